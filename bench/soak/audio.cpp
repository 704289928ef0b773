#include "audio.h"

#include "fault.h"
#include "wild.h"

#include "pluginterfaces/vst/ivstprocesscontext.h"
#include "public.sdk/source/vst/hosting/parameterchanges.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

namespace tessaly::soak
{

using namespace Steinberg;

namespace
{

constexpr std::array kModes{ Vst::kRealtime, Vst::kPrefetch, Vst::kOffline };
constexpr std::size_t kMostSamples = 5000;
constexpr double kShownRateHz = 48000.0; // in the context, whatever was set up

std::size_t MakeLength (Chance& chance, std::size_t promised)
{
    switch (chance.Below (12))
    {
    case 0:
        return 0;
    case 1:
        return 1;
    case 2:
        return chance.Below (32);
    case 3:
        return std::min (promised + 1 + chance.Below (300), kMostSamples); // more than was promised
    case 4:
    case 5:
        return 1 + chance.Below (std::min (promised, kMostSamples));
    default:
        return std::min (promised, kMostSamples);
    }
}

std::vector<host::ParameterPoint> MakePoints (Chance& chance, const StripLife& life, std::size_t length)
{
    std::vector<host::ParameterPoint> points;
    if (!chance.OneIn (3))
        return points;
    for (std::size_t left = chance.Below (chance.OneIn (20) ? 300 : 6); left > 0; --left)
    {
        const Vst::ParamID id = chance.OneIn (20) ? chance.Pick (kWildIds) : chance.Pick (life.ParameterIds ());
        const double value = MakeValue (chance);
        points.push_back ({ id, value, static_cast<int32> (chance.Below (length + 2)) });
    }
    return points;
}

void Fill (Vst::ParameterChanges& changes, const std::vector<host::ParameterPoint>& points)
{
    for (const auto& point : points)
    {
        int32 ignored = 0;
        if (auto* queue = changes.addParameterData (point.id, ignored))
            queue->addPoint (point.sampleOffset, point.value, ignored);
    }
}

void CheckOutput (const std::vector<float>& samples)
{
    const auto wrong = std::find_if (samples.begin (), samples.end (), [] (float x) { return !std::isfinite (x); });
    if (wrong != samples.end ())
        throw Fault ("finite input gives " + std::to_string (*wrong) + " at sample " +
                     std::to_string (wrong - samples.begin ()) + " of " + std::to_string (samples.size ()));
}

void CheckMeters (Vst::ParameterChanges& changes)
{
    for (int32 i = 0; i < changes.getParameterCount (); ++i)
    {
        auto* queue = changes.getParameterData (i);
        for (int32 point = 0; point < queue->getPointCount (); ++point)
        {
            int32 offset = 0;
            Vst::ParamValue value = 0.0;
            queue->getPoint (point, offset, value);
            if (!(value >= 0.0 && value <= 1.0))
                throw Fault ("meter " + std::to_string (queue->getParameterId ()) + " shows " + std::to_string (value));
        }
    }
}

} // namespace

AudioCall MakeAudioCall (Chance& chance, const StripLife& life)
{
    AudioCall call;
    const std::size_t length = MakeLength (chance, life.BlockSize ());
    call.sound = MakeSound (chance, length);
    call.points = MakePoints (chance, life, length);
    call.mode = chance.OneIn (30) ? static_cast<int32> (chance.Pick (kModes)) : life.Mode ();
    call.inPlace = chance.OneIn (3);
    call.tellsSilence = chance.OneIn (20);
    call.hasBuses = length > 0 || chance.OneIn (2);
    call.hasContext = !chance.OneIn (10);
    call.hasInputChanges = !chance.OneIn (10);
    call.hasOutputChanges = !chance.OneIn (10);
    return call;
}

void Run (StripLife& life, AudioCall& call, Tally& tally)
{
    std::vector<float> separate (call.inPlace ? 0 : call.sound.samples.size ());
    std::vector<float>& out = call.inPlace ? call.sound.samples : separate;
    float* inChannel = call.sound.samples.data ();
    float* outChannel = out.data ();
    Vst::AudioBusBuffers inBus;
    inBus.numChannels = 1;
    inBus.silenceFlags = call.tellsSilence ? 1 : 0;
    inBus.channelBuffers32 = &inChannel;
    Vst::AudioBusBuffers outBus;
    outBus.numChannels = 1;
    outBus.channelBuffers32 = &outChannel;
    Vst::ProcessContext context{};
    context.sampleRate = kShownRateHz;
    Vst::ParameterChanges inChanges;
    Fill (inChanges, call.points);
    Vst::ParameterChanges outChanges;

    Vst::ProcessData data;
    data.processMode = call.mode;
    data.symbolicSampleSize = Vst::kSample32;
    data.numSamples = static_cast<int32> (out.size ());
    data.numInputs = call.hasBuses ? 1 : 0;
    data.numOutputs = call.hasBuses ? 1 : 0;
    data.inputs = call.hasBuses ? &inBus : nullptr;
    data.outputs = call.hasBuses ? &outBus : nullptr;
    data.inputParameterChanges = call.hasInputChanges ? &inChanges : nullptr;
    data.outputParameterChanges = call.hasOutputChanges ? &outChanges : nullptr;
    data.processContext = call.hasContext ? &context : nullptr;
    if (life.Processor ().process (data) != kResultOk)
        throw Fault ("the strip fails to process a block of " + std::to_string (out.size ()) + " samples");
    ++tally.blocks;
    tally.samples += out.size ();
    if (call.sound.isFinite)
        CheckOutput (out);
    CheckMeters (outChanges);
}

} // namespace tessaly::soak
