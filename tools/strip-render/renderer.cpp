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
    std::int64_t Read (std::span<float> samples, LevelMeter& level)
    {
        const std::int64_t channels = reader.Channels ();
        const std::int64_t wanted = static_cast<std::int64_t> (samples.size ()) / channels;
        const std::int64_t recorded = reader.Read (samples.data (), wanted);
        const auto recordedSamples = static_cast<std::size_t> (recorded * channels);
        level.Add (samples.first (recordedSamples));

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

} // namespace

RenderResult Render (AudioReader& reader, AudioWriter& writer, ChannelBank& bank, const RenderPlan& plan, MeterLog* log)
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
        const std::int64_t frames = source.Read (std::span (in).first (wanted * channels), result.input);
        if (frames == 0)
            break;

        const std::size_t samples = static_cast<std::size_t> (frames) * channels;
        bank.Process (std::span (in).first (samples), std::span (out).first (samples), settings);
        writer.Write (std::span (out).first (samples));
        result.output.Add (std::span (out).first (samples));
        for (const MeterReading& reading : bank.Meters ())
            result.largestGainReductionDb = std::max (result.largestGainReductionDb, reading.gainReductionDb);
        if (log)
            log->Add (static_cast<double> (result.frames) / rateHz, bank.Meters ());
        result.frames += frames;
        progress.Update (result.frames);
    }
    result.automationLeft = schedule.Left ();
    result.damageFound = reader.DamageFound ();
    return result;
}

} // namespace tessaly::render
