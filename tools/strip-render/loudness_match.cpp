#include "loudness_match.h"

#include "interrupts.h"
#include "warning.h"

#include <vector>

namespace tessaly::render
{

double MatchGainDb (const std::filesystem::path& recording, const Loudness& input, const Loudness& output)
{
    if (!input.IsSilent () && !output.IsSilent ())
        return input.integratedLufs - output.integratedLufs;
    Warn ("\"" + recording.string () + "\": the " + (input.IsSilent () ? "recording" : "result") +
          " is silent or shorter than 0.4 s, so its loudness is not matched");
    return 0.0;
}

LevelMeter WriteLouder (SampleSpool& from, AudioWriter& writer, int channels, double gain)
{
    constexpr std::size_t kFramesAtOnce = 4096;
    std::vector<float> samples (kFramesAtOnce * static_cast<std::size_t> (channels));
    LevelMeter level;
    from.Rewind ();
    while (const std::size_t count = from.Read (samples))
    {
        ThrowIfInterrupted ();
        const auto piece = std::span (samples).first (count);
        for (float& sample : piece)
            sample = static_cast<float> (static_cast<double> (sample) * gain);
        level.Add (piece);
        writer.Write (piece);
    }
    return level;
}

} // namespace tessaly::render
