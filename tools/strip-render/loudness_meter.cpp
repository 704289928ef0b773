#include "loudness_meter.h"

#include "render_error.h"

#include <algorithm>
#include <cmath>
#include <ebur128.h>
#include <string>
#include <vector>

namespace tessaly::render
{

void LoudnessMeter::RequireBuilt () {}

struct LoudnessMeter::State
{
    State (int channels, int sampleRateHz)
        : measure (ebur128_init (static_cast<unsigned> (channels), static_cast<unsigned long> (sampleRateHz),
                                 EBUR128_MODE_I | EBUR128_MODE_LRA | EBUR128_MODE_TRUE_PEAK))
    {
        if (measure == nullptr)
            throw RenderError ("there is no measure of loudness for " + std::to_string (channels) + " channels at " +
                               std::to_string (sampleRateHz) + " Hz");
    }
    ~State () { ebur128_destroy (&measure); }

    State (const State&) = delete;
    State& operator= (const State&) = delete;

    ebur128_state* measure; // owned
};

LoudnessMeter::LoudnessMeter (int channels, int sampleRateHz)
    : state (std::make_unique<State> (channels, sampleRateHz))
{
}

LoudnessMeter::~LoudnessMeter () = default;

void LoudnessMeter::Add (std::span<const float> samples)
{
    const auto frames = samples.size () / state->measure->channels;
    const auto isInvalid = [] (float sample) { return !std::isfinite (sample); };
    if (std::ranges::none_of (samples, isInvalid))
    {
        ebur128_add_frames_float (state->measure, samples.data (), frames);
        return;
    }
    std::vector<float> valid (samples.begin (), samples.end ()); // one NaN would stay in the filters to the end
    std::ranges::replace_if (valid, isInvalid, 0.0F);
    ebur128_add_frames_float (state->measure, valid.data (), frames);
}

Loudness LoudnessMeter::Reading () const
{
    Loudness loudness;
    ebur128_loudness_global (state->measure, &loudness.integratedLufs);
    ebur128_loudness_range (state->measure, &loudness.rangeLu);
    double largest = 0.0;
    for (unsigned channel = 0; channel < state->measure->channels; ++channel)
    {
        double peak = 0.0;
        ebur128_true_peak (state->measure, channel, &peak);
        largest = std::max (largest, peak);
    }
    loudness.truePeakDbtp = 20.0 * std::log10 (largest);
    return loudness;
}

} // namespace tessaly::render
