#include "renderer.h"

#include "interrupts.h"
#include "progress.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace tessaly::render
{

namespace
{

/// The recording and then its tail of silence.
class Source
{
public:
    Source (AudioReader& from, std::int64_t tailFrames)
        : reader (from)
        , tailLeft (tailFrames)
    {
    }

    /// Fills `samples` as far as there is something; @return the frames of recording and tail together
    std::int64_t Read (std::span<float> samples, LevelMeter& level, LoudnessMeter* loudness)
    {
        const std::int64_t channels = reader.Channels ();
        const std::int64_t wanted = static_cast<std::int64_t> (samples.size ()) / channels;
        const std::int64_t recorded = reader.Read (samples.data (), wanted);
        const auto recordedSamples = static_cast<std::size_t> (recorded * channels);
        level.Add (samples.first (recordedSamples));
        if (loudness)
            loudness->Add (samples.first (recordedSamples));

        const std::int64_t silent = std::min (wanted - recorded, tailLeft);
        tailLeft -= silent;
        std::ranges::fill (samples.subspan (recordedSamples), 0.0F);
        return recorded + silent;
    }

private:
    AudioReader& reader; // not owned: the caller's
    std::int64_t tailLeft;
};

/// Hands out the settings of the plan as the frames go by.
class Schedule
{
public:
    Schedule (const RenderPlan& from, double rateHz)
        : plan (from)
        , sampleRateHz (rateHz)
        , due (from.settings)
    {
    }

    /// @return what takes effect at `frame`
    std::vector<Setting> Take (std::int64_t frame)
    {
        for (; next < plan.automation.size () && FrameOfNext () <= frame; ++next)
            due.push_back (plan.automation[next].setting);
        std::vector<Setting> taken = LastOfEach (due);
        due.clear ();
        return taken;
    }

    /// @return the end of the block that begins at `frame`, when Take has been called for that
    std::int64_t BlockEnd (std::int64_t frame) const
    {
        const std::int64_t gridEnd = (frame / plan.blockSize + 1) * plan.blockSize;
        return next < plan.automation.size () ? std::min (gridEnd, FrameOfNext ()) : gridEnd;
    }

    std::size_t Left () const { return plan.automation.size () - next; }

private:
    std::int64_t FrameOfNext () const
    {
        constexpr double kNever = 9.0e18; // still a frame number; no recording is that long
        return std::llround (std::min (plan.automation[next].seconds * sampleRateHz, kNever));
    }

    const RenderPlan& plan; // not owned: the caller's
    double sampleRateHz;
    std::size_t next = 0; // first row still to come
    std::vector<Setting> due;
};

/// The plain sum: the strip has no latency.
void Mix (std::span<const float> dry, std::span<float> wet, double mix)
{
    const auto part = static_cast<float> (mix);
    for (std::size_t i = 0; i < wet.size (); ++i)
        wet[i] = dry[i] * (1.0F - part) + wet[i] * part;
}

double LargestReductionDb (std::span<const MeterReading> channels)
{
    double largest = 0.0;
    for (const MeterReading& reading : channels)
        largest = std::max (largest, reading.gainReductionDb);
    return largest;
}

} // namespace

RenderResult Render (AudioReader& reader, SampleSink& sink, ChannelBank& bank, const RenderPlan& plan,
                     const RenderWitnesses& witnesses)
{
    const auto channels = static_cast<std::size_t> (reader.Channels ());
    const double rateHz = reader.SampleRateHz ();
    std::vector<float> in (static_cast<std::size_t> (plan.blockSize) * channels);
    std::vector<float> out (in.size ());
    Source source (reader, plan.tailFrames);
    Schedule schedule (plan, rateHz);
    Progress progress (plan.showsProgress ? reader.Frames () + plan.tailFrames : 0);

    RenderResult result;
    while (true)
    {
        ThrowIfInterrupted ();
        const auto settings = schedule.Take (result.frames);
        const auto wanted = static_cast<std::size_t> (schedule.BlockEnd (result.frames) - result.frames);
        const std::int64_t frames =
            source.Read (std::span (in).first (wanted * channels), result.input, witnesses.inputLoudness);
        if (frames == 0)
            break;

        const std::size_t samples = static_cast<std::size_t> (frames) * channels;
        const auto dry = std::span (in).first (samples);
        const auto wet = std::span (out).first (samples);
        bank.Process (dry, wet, settings);
        if (plan.mix < 1.0)
            Mix (dry, wet, plan.mix);
        sink.Write (wet);
        result.output.Add (wet);
        const double reductionDb = LargestReductionDb (bank.Meters ());
        result.largestGainReductionDb = std::max (result.largestGainReductionDb, reductionDb);
        if (witnesses.outputLoudness)
            witnesses.outputLoudness->Add (wet);
        if (witnesses.levels)
            witnesses.levels->Add (dry, wet, reductionDb);
        if (witnesses.meters)
            witnesses.meters->Add (static_cast<double> (result.frames) / rateHz, bank.Meters ());
        result.frames += frames;
        progress.Update (result.frames);
    }
    result.automationLeft = schedule.Left ();
    result.damageFound = reader.DamageFound ();
    return result;
}

} // namespace tessaly::render
