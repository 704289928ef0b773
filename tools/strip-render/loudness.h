#pragma once

#include <cmath>

namespace tessaly::render
{

/// How loud a recording is, by ITU-R BS.1770 and EBU R 128. Silence reads minus infinity.
struct Loudness
{
    double integratedLufs = -HUGE_VAL; ///< of what lies above the gates, one at -70 LUFS
    double rangeLu = 0.0;              ///< between soft and loud passages, EBU Tech 3342
    double truePeakDbtp = -HUGE_VAL;   ///< between the samples, too

    bool IsSilent () const { return std::isinf (integratedLufs); }

    /// As after a gain in dB.
    Loudness Louder (double gainDb) const { return { integratedLufs + gainDb, rangeLu, truePeakDbtp + gainDb }; }
};

} // namespace tessaly::render
