#pragma once

#include <cmath>
#include <numbers>

namespace tessaly
{

/// Linear gain of a level in dB, 10^(dB/20). As an exponential, which takes half the time of a power.
inline double linearGain (double db)
{
    return std::exp (db * (std::numbers::ln10 / 20));
}

/// The same for a level that seldom changes: worked out anew only when it has. Audio thread.
class DbToGain
{
public:
    /// @return the gain before, if this one is not finite
    double operator() (double newDb)
    {
        if (newDb == db)
            return gain;
        db = newDb;
        if (const double newGain = linearGain (db); std::isfinite (newGain))
            gain = newGain;
        return gain;
    }

private:
    double db = 0.0;
    double gain = 1.0;
};

} // namespace tessaly
