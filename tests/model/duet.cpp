#include "duet.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tessaly::model
{
namespace
{

constexpr Steinberg::Vst::ParamID kFirstMeterId = 0x10000000;

std::vector<host::ParameterPoint> Points (std::span<const Change> queue, std::size_t sampleCount)
{
    const std::size_t last = std::max<std::size_t> (sampleCount, 1) - 1;
    std::vector<host::ParameterPoint> points;
    for (const Change& change : queue)
        points.push_back ({ static_cast<Steinberg::Vst::ParamID> (change.parameter), change.value,
                            static_cast<Steinberg::int32> (std::min (points.size (), last)) });
    return points;
}

} // namespace

Duet::Duet (const host::Bundle& bundle, host::NamedHost& hostContext)
    : instance (bundle, hostContext)
{
}

void Duet::Start (double rateHz, int maxBlockSize, Mode mode)
{
    Stop ();
    blockMode = mode;
    instance.Setup (rateHz, maxBlockSize, static_cast<Steinberg::int32> (mode));
    model.Setup (rateHz);
    Resume ();
}

void Duet::Resume ()
{
    instance.Activate ();
    model.SetActive (true);
    running = true;
}

void Duet::Stop ()
{
    if (!running)
        return;
    instance.Deactivate ();
    model.SetActive (false);
    running = false;
}

void Duet::SetFromController (Change change)
{
    instance.Parameters ().SetNormalized (static_cast<Steinberg::Vst::ParamID> (change.parameter), change.value);
    model.SetFromController (change);
}

void Duet::Process (std::span<const float> input, std::span<const Change> queue)
{
    // Twice full scale in front: a block that comes back untouched is no match.
    played.assign (std::max<std::size_t> (input.size (), 1), 2.0f);
    expected.assign (input.size (), 0.0f);
    const float* const in = input.data ();
    float* const out = played.data ();
    const std::vector<host::ParameterPoint> points = Points (queue, input.size ());
    std::vector<host::ParameterPoint> answers;
    instance.Process ({ { &in, 1 }, { &out, 1 }, static_cast<Steinberg::int32> (input.size ()), points }, &answers);
    model.Process (queue, blockMode, input, expected);

    for (std::size_t i = 0; i < input.size (); ++i)
    {
        const double difference = std::abs (static_cast<double> (played[i]) - expected[i]);
        const double level = std::abs (expected[i]);
        loudestSample = std::max (loudestSample, level);
        // Written so that something that is no number counts as the largest.
        if (const double relative = difference / std::max (level, 1.0); !(relative <= largestDifference))
            largestDifference = relative;
    }
    samples += input.size ();
    CompareMeters (answers);
}

void Duet::CompareMeters (std::span<const host::ParameterPoint> points)
{
    std::array<bool, 2> equal{};
    if (points.size () == equal.size ())
        for (std::size_t i = 0; i < equal.size (); ++i)
            equal[i] = points[i].id == kFirstMeterId + i && points[i].sampleOffset == 0 &&
                       points[i].value == static_cast<double> (model.Meter (static_cast<int> (i)));
    unequalMeters += static_cast<std::size_t> (std::count (equal.begin (), equal.end (), false));
}

void Duet::CompareParameters ()
{
    for (int i = 0; i < kParameterCount; ++i)
        if (instance.Parameters ().Normalized (static_cast<Steinberg::Vst::ParamID> (i)) != model.Shown (i))
            ++unequalParameters;
}

} // namespace tessaly::model
