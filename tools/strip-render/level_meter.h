#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace tessaly::render
{

/// Peak and root of the mean square of all samples it is given, all channels together, against a full scale of 1.
class LevelMeter
{
public:
    void Add (std::span<const float> samples);

    double PeakDb () const;                                  ///< dBFS; silence reads minus infinity
    std::int64_t InvalidSamples () const { return invalid; } ///< infinite or no numbers; left out of the levels
    double RmsDb () const; ///< dBFS, a square wave of full scale reads 0; silence reads minus infinity

private:
    void AddOneByOne (std::span<const float> samples);

    double peak = 0.0;
    double sumOfSquares = 0.0;
    std::int64_t count = 0;
    std::int64_t invalid = 0;
};

/// @return a level as "-12.34 dBFS", or "silent"
std::string LevelText (double dbfs);

} // namespace tessaly::render
