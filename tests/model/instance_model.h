/// One instance as a host sees it: 22 normalized values that are rounded to steps, the morph, the two roads of a
/// parameter, the three bypass switches, and the order in which a fresh strip is told everything.
#pragma once

#include "strip_model.h"

#include <utility>

namespace tessaly::model
{

/// The host's names of its ways to run a block.
enum class Mode
{
    kRealtime = 0,
    kPrefetch = 1,
    kOffline = 2
};

struct Change
{
    unsigned parameter = 0; // 0 to 21
    double value = 0.0;     // normalized
};

/// Lowest, highest and initial step.
constexpr std::array<std::array<int, 3>, kParameterCount> kRanges{ {
    { 0, 200, 100 }, { 57, 283, 221 }, { 24, 300, 164 }, { 0, 120, 120 }, { 0, 2, 1 },      { 0, 200, 100 },
    { 0, 200, 100 }, { 4, 124, 60 },   { 0, 360, 180 },  { 0, 60, 20 },   { 60, 124, 112 }, { 0, 360, 180 },
    { 4, 124, 84 },  { 0, 360, 180 },  { 0, 60, 20 },    { 4, 72, 32 },   { 0, 360, 180 },  { 0, 360, 180 },
    { 0, 1, 0 },     { 0, 1, 0 },      { 0, 120, 0 },    { 0, 1, 0 },
} };

/// The set "01 Basic": one row a key point, column j for parameter j + 1.
constexpr int kKeyPoints[9][17] = {
    { 184, 159, 30, 1, 100, 70, 30, 133, 12, 112, 180, 72, 180, 12, 32, 180, 180 },
    { 165, 170, 45, 1, 100, 70, 50, 205, 12, 116, 151, 53, 210, 14, 30, 152, 180 },
    { 147, 181, 60, 1, 100, 94, 71, 260, 12, 113, 100, 71, 269, 16, 28, 89, 180 },
    { 181, 135, 73, 1, 100, 64, 69, 135, 12, 118, 174, 67, 187, 16, 30, 163, 180 },
    { 215, 90, 86, 1, 90, 56, 68, 43, 12, 112, 260, 68, 105, 19, 31, 245, 180 },
    { 200, 83, 73, 0, 100, 64, 50, 138, 12, 113, 234, 80, 158, 16, 32, 250, 180 },
    { 185, 76, 60, 0, 100, 80, 32, 234, 12, 115, 180, 96, 160, 16, 36, 252, 180 },
    { 135, 118, 88, 1, 100, 70, 75, 254, 12, 116, 230, 107, 191, 16, 30, 208, 180 },
    { 95, 126, 96, 2, 100, 64, 119, 274, 12, 118, 285, 111, 210, 16, 11, 144, 180 },
};

/// The three entries of the knee list share the normalized range alike, a switch turns over at the middle; everything
/// else is linear, and rounded half away from zero.
inline float ToPlain (unsigned parameter, float normalized)
{
    if (parameter == kEqualizerBypass || parameter == kCompressorBypass || parameter == kBypass)
        return normalized >= 0.5f ? 1.0f : 0.0f;
    const auto& [minimum, maximum, initial] = kRanges[parameter];
    if (parameter == kKnee)
        return static_cast<float> (std::clamp (static_cast<int> (3.0f * normalized), minimum, maximum));
    const double steps = minimum + static_cast<double> (normalized) * (maximum - minimum);
    return static_cast<float> (std::round (steps));
}

inline float ToNormalized (unsigned parameter, int step)
{
    const auto& [minimum, maximum, initial] = kRanges[parameter];
    return static_cast<float> (static_cast<double> (step - minimum) / (maximum - minimum));
}

class InstanceModel
{
public:
    InstanceModel ()
    {
        for (unsigned i = 0; i < kParameterCount; ++i)
            SetParameter (i, ToNormalized (i, kRanges[i][2])); // the morph among them, after what it moves
        std::copy (values.begin (), values.end (), shown.begin ());
    }

    void Setup (double rateHz) { strip.SetRate (rateHz); }
    void SetActive (bool active) { active ? strip.Resume () : strip.Suspend (); }

    /// The controller's road: at once, unless the controller shows this value and the strip has it, both as floats.
    void SetFromController (Change change)
    {
        FollowPoints ();
        const auto [id, value] = change;
        const auto kept = static_cast<float> (value);
        const bool isRepeat = static_cast<float> (shown[id]) == kept && values[id] == kept;
        shown[id] = value;
        if (isRepeat)
            return;
        auto expected = values;
        expected[id] = kept;
        SetParameter (id, expected[id]);
        for (unsigned i = 0; i < kParameterCount; ++i)
            if (values[i] != expected[i])
                shown[i] = values[i];
    }

    /// One block. The queue counts in offline blocks and in the first other block after one, before the first sample.
    /// @param output  as long as the input; an empty block runs nothing and reads the meters as they stand
    void Process (std::span<const Change> queue, Mode mode, std::span<const float> input, std::span<float> output)
    {
        const bool queueCounts = mode == Mode::kOffline || wasOffline;
        wasOffline = mode == Mode::kOffline;
        if (input.empty ())
            return;
        if (queueCounts)
            for (const Change& change : queue)
            {
                SetParameter (change.parameter, static_cast<float> (change.value));
                pointsMovedValues = true;
            }
        strip.Run (input, output);
    }

    const std::array<double, kParameterCount>& Shown ()
    {
        FollowPoints ();
        return shown;
    }
    const std::array<float, 2>& Meters () const { return strip.Readings (); }

private:
    /// The controller looks at what the points of blocks have moved whenever the host calls it.
    void FollowPoints ()
    {
        if (std::exchange (pointsMovedValues, false))
            std::copy (values.begin (), values.end (), shown.begin ());
    }

    float Plain (unsigned parameter) const { return ToPlain (parameter, values[parameter]); }
    bool IsOn (unsigned parameter) const { return Plain (parameter) != 0.0f; }

    void Store (unsigned parameter, float value)
    {
        values[parameter] = value;
        strip.Set (parameter, Plain (parameter));
    }

    /// With what hangs on it.
    void SetParameter (unsigned parameter, float value)
    {
        Store (parameter, value);
        if (parameter == kEqualizerBypass || parameter == kCompressorBypass)
            Store (kBypass, IsOn (kEqualizerBypass) && IsOn (kCompressorBypass) ? 1.0f : 0.0f);
        if (parameter == kMorph)
            Morph ();
        if (parameter == kBypass)
            for (unsigned section : { kEqualizerBypass, kCompressorBypass })
                Store (section, value >= 0.5f ? 1.0f : 0.0f);
    }

    void Morph ()
    {
        const double position = Plain (kMorph) / 15.0; // steps a key point
        const auto row = static_cast<std::size_t> (position);
        const double fraction = position - static_cast<double> (row);
        for (unsigned column = 0; column < 17; ++column)
        {
            const int from = kKeyPoints[row][column];
            const int to = fraction == 0.0 ? from : kKeyPoints[row + 1][column];
            Store (column + 1, ToNormalized (column + 1, static_cast<int> (from + fraction * (to - from))));
        }
    }

    std::array<float, kParameterCount> values{}; // normalized
    std::array<double, kParameterCount> shown{}; // what the controller answers
    StripModel strip;
    bool wasOffline = false;
    bool pointsMovedValues = false; // since the host's last call of the controller
};

} // namespace tessaly::model
