#pragma once

#include "shared_value.h"
#include "step_ranges.h"
#include "strip_parameter.h"
#include "value_tables.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>

namespace tessaly
{

/// What is derived from some of the steps together, when one of them has changed.
enum class StripPart : std::uint8_t
{
    dynamics, ///< threshold, times, knee, slope and makeup
    sideChain,
    highBand,
    midBand,
    lowBand,
    none ///< read as it is, in each chunk
};

/// The strip's settings: the step of each parameter, and the parts that the audio thread has yet to derive from them.
///
/// Setting goes by tables, without a branch that depends on the parameter: an automated block sets them in any order,
/// and wrongly predicted branches would cost more than the rest.
///
/// Threads: `set` and reads any; `take` the audio thread, or any during set-up.
class StripSteps
{
public:
    StripSteps ()
    {
        for (std::size_t i = 0; i < kSettings.size (); ++i)
            steps[i] = kSettings[i].initialStep;
    }

    /// A step without a time or a ratio, and an unknown parameter, change nothing.
    void set (StripParameter parameter, std::int32_t step)
    {
        const auto index = static_cast<std::size_t> (parameter);
        if (index >= kSettings.size () || static_cast<std::uint32_t> (step) >= kSettings[index].meaningfulSteps)
            return;
        steps[index] = step;
        changed[static_cast<std::size_t> (kSettings[index].part)].store (true, std::memory_order_release);
    }

    std::int32_t operator[] (StripParameter parameter) const { return steps[static_cast<std::size_t> (parameter)]; }

    /// Whether a step of the part has been set since the last call; the steps read afterwards are as new as that.
    bool take (StripPart part)
    {
        auto& flag = changed[static_cast<std::size_t> (part)];
        return flag.load (std::memory_order_relaxed) && flag.exchange (false, std::memory_order_acquire);
    }

private:
    /// Of a parameter: the step before one is set; how many, from 0 up, have a meaning; where it belongs.
    struct Setting
    {
        std::int32_t initialStep;
        std::uint64_t meaningfulSteps;
        StripPart part;
    };

    static constexpr std::uint64_t kAnyStep = std::uint64_t{ 1 } << 32; // those below 0, too
    static constexpr std::array<Setting, kStripParameterCount> kSettings{ {
        { 0, kAnyStep, StripPart::dynamics }, // drive: a threshold of 0 dB
        { StepsOf (StripParameter::attack).init, attackMs.size (), StripPart::dynamics },
        { StepsOf (StripParameter::release).init, releaseMs.size (), StripPart::dynamics },
        { StepsOf (StripParameter::ratio).init, ratioValue.size (), StripPart::dynamics },
        { StepsOf (StripParameter::knee).init, kAnyStep, StripPart::dynamics },
        { StepsOf (StripParameter::driveOffset).init, kAnyStep, StripPart::dynamics },
        { StepsOf (StripParameter::makeupAmount).init, kAnyStep, StripPart::dynamics },
        { 44, kAnyStep, StripPart::sideChain },  // 200 Hz
        { 180, kAnyStep, StripPart::sideChain }, // 0 dB
        { 12, kAnyStep, StripPart::sideChain },  // q of 1
        { 44, kAnyStep, StripPart::highBand },   // 200 Hz, 0 dB
        { 180, kAnyStep, StripPart::highBand },
        { 44, kAnyStep, StripPart::midBand }, // 200 Hz, 0 dB, q of 1
        { 180, kAnyStep, StripPart::midBand },
        { 12, kAnyStep, StripPart::midBand },
        { 32, kAnyStep, StripPart::lowBand }, // 100 Hz, 0 dB
        { 180, kAnyStep, StripPart::lowBand },
        { 180, kAnyStep, StripPart::none }, // total gain: 0 dB
        { 0, kAnyStep, StripPart::none },   // the two section bypasses
        { 0, kAnyStep, StripPart::none },
        { 0, kAnyStep, StripPart::none }, // morph: no setting of the engine
        { 0, kAnyStep, StripPart::none }, // bypass
    } };
    static_assert (kSettings.back ().meaningfulSteps > 0, "a row for each parameter, or its steps are ignored");

    std::array<SharedValue<std::int32_t>, kStripParameterCount> steps;
    std::array<std::atomic<bool>, static_cast<std::size_t> (StripPart::none) + 1> changed{}; // raised after the step
};

} // namespace tessaly
