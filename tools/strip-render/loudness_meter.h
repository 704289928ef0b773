#pragma once

#include "loudness.h"

#include <memory>
#include <span>

namespace tessaly::render
{

/// Measures loudness with libebur128. Of one and two channels each counts once; of more, the order is left, right, center,
/// low frequencies (not counted), left and right surround, and what comes after is not counted.
class LoudnessMeter
{
public:
    /// Whether there is such a meter in this build. @throws RenderError when there is none
    static void RequireBuilt ();

    /// @throws RenderError when there are more than 64 channels, or a rate that has no measure
    LoudnessMeter (int channels, int sampleRateHz);
    ~LoudnessMeter ();

    /// @param samples  whole frames, channels in turn; infinite or NaN ones count as silence
    void Add (std::span<const float> samples);

    Loudness Reading () const;

private:
    struct State; // the library's
    std::unique_ptr<State> state;
};

} // namespace tessaly::render
