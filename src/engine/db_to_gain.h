#pragma once

#include <cmath>

namespace tessaly
{

/// Linear gain of a level in dB, 10^(dB/20), worked out anew only when the level has changed. Audio thread.
class DbToGain
{
public:
    /// @return the gain before, if this one is not finite
    double operator() (double newDb)
    {
        if (newDb == db)
            return gain;
        db = newDb;
        if (const double newGain = std::pow (10.0, db / 20); std::isfinite (newGain))
            gain = newGain;
        return gain;
    }

private:
    double db = 0.0;
    double gain = 1.0;
};

} // namespace tessaly
