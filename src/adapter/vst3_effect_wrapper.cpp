#include "vst3_effect_wrapper.h"

#include "ardour_host.h"
#include "binary_message.h"
#include "class_id.h"
#include "effect.h"
#include "effect_listener.h"
#include "late_delivery.h"
#include "parameter_ids.h"
#include "parameter_storage_base.h"
#include "plugin_config.h"
#include "pluginterfaces/base/ustring.h"
#include "pluginterfaces/vst/ivstevents.h"
#include "pluginterfaces/vst/ivsthostapplication.h"
#include "pluginterfaces/vst/ivstparameterchanges.h"
#include "pluginterfaces/vst/ivstprocesscontext.h"
#include "pluginterfaces/vst/vstspeaker.h"
#include "result.h"
#include "stored_value.h"
#include "text_conversion.h"
#include "truncate.h"
#include "vst3_effect_wrapper_accessor.h"
#include "vu_buffer.h"
#include <algorithm>
#include <bit>
#include <chrono>

namespace tessaly
{

using namespace Steinberg;

namespace
{

constexpr std::int32_t kReservedPoints = 64;     // parameter points of a block that wait for it at a time
constexpr std::uint32_t kTimeInfoFlags = 0xFF0E; // transport and validity bits that the snapshot keeps

bool IsOneSpeaker (const Vst::SpeakerArrangement* arrangements, int32 count)
{
    return arrangements != nullptr && count > 0 && std::popcount (arrangements[0]) == 1;
}

/// A block without buses or without samples only carries parameters.
bool HasAudio (const Vst::ProcessData& data)
{
    return data.numInputs > 0 && data.numOutputs > 0 && data.inputs != nullptr && data.outputs != nullptr &&
           data.numSamples > 0;
}

/// The strip leaves the output alone where it has nothing to read, and what a host's buffer held before is not to be
/// heard.
void SilenceWithoutInput (const Vst::ProcessData& data)
{
    const auto& in = data.inputs[0];
    const auto& out = data.outputs[0];
    const bool hasInput = in.numChannels > 0 && in.channelBuffers32 != nullptr && in.channelBuffers32[0] != nullptr;
    if (hasInput || data.symbolicSampleSize != Vst::kSample32 || out.channelBuffers32 == nullptr)
        return;
    for (int32 channel = 0; channel < out.numChannels; ++channel)
        if (auto* samples = out.channelBuffers32[channel])
            std::fill_n (samples, data.numSamples, 0.0f);
}

} // namespace

ZVst3EffectWrapper::ZVst3EffectWrapper ()
{
    setControllerClass (ControllerClassId ());
    processContextRequirements.needSystemTime ()
        .needProjectTimeMusic ()
        .needTempo ()
        .needBarPositionMusic ()
        .needCycleMusic ()
        .needTimeSignature ()
        .needFrameRate ()
        .needSamplesToNextClock ()
        .needTransportState ();
}

ZVst3EffectWrapper::~ZVst3EffectWrapper ()
{
    // A host that drops the object without terminate must not leave the controller with a dead pointer.
    if (effect)
        terminate ();
}

FUnknown* ZVst3EffectWrapper::CreateInstance (void*)
{
    return static_cast<Vst::IAudioProcessor*> (new ZVst3EffectWrapper);
}

tresult PLUGIN_API ZVst3EffectWrapper::initialize (FUnknown* context)
{
    const tresult result = effect ? kResultFalse : AudioEffect::initialize (context);
    if (result != kResultOk)
        return result;
    addAudioInput (STR16 ("Mono In"), Vst::SpeakerArr::kMono);
    addAudioOutput (STR16 ("Mono Out"), Vst::SpeakerArr::kMono);
    if constexpr (config::kUsesMidi)
        addEventInput (STR16 ("Midi In"), 1);

    life = std::make_shared<LiveEffect> (*this);
    life->Adopt (factory->CreateEffect (life.get ()));
    effect = life->Effect ();
    storage = factory->CreateStorage (*effect, config::kChannels);
    auto core = factory->CreateCore (effect);
    effect->CreateVuBuffer (config::kMeterCount);
    if constexpr (config::kUsesMidi)
        effect->CreateMidiEvent ();
    effect->SetPluginCore (std::move (core));
    effect->Initialize ();
    if (ardour::IsArdour (context))
        life->SetLatePoints (
            std::make_unique<ardour::LatePoints> (*effect, *storage, [of = life.get ()] { of->MarkValuesMoved (); }));
    latePoints = life->LatePoints ();
    life->List ();
    if (!AddSideChain ())
        return kResultFalse;
    parameterQueue.Reserve (kReservedPoints);
    return kResultOk;
}

bool ZVst3EffectWrapper::AddSideChain ()
{
    std::int32_t channels = 0;
    if (effect->GetSideChainChannels (config::kChannels, &channels) != kOk || audioInputs.size () != 1)
        return false;
    if (channels == 0)
        return true;
    if (channels != 1 && channels != 2)
        return false;
    hasSideChain = true;
    addAudioInput (STR16 ("SideChain In"), channels == 1 ? Vst::SpeakerArr::kMono : Vst::SpeakerArr::kStereo, Vst::kAux,
                   0);
    return true;
}

tresult PLUGIN_API ZVst3EffectWrapper::terminate ()
{
    if (latePoints != nullptr)
        ardour::LateDelivery::Leave (*latePoints);
    latePoints = nullptr;
    if (effect)
    {
        // Some hosts terminate without a disconnect: the controller must let go before the effect dies.
        if (getPeer () != nullptr)
            SendPointer (message::kDisconnectEffect);
        life->End ();
    }
    storage = nullptr;
    effect = nullptr;
    life.reset (); // ends the effect, unless the controller has not heard of it
    parameterQueue.Clear ();
    lastProcessMode = Vst::kRealtime;
    offlineLatch = false;
    return AudioEffect::terminate ();
}

tresult ZVst3EffectWrapper::SendPointer (const char* id) const
{
    return SendBinaryMessage (*this, id, message::kPointerAttribute, &effect, sizeof (effect));
}

tresult PLUGIN_API ZVst3EffectWrapper::connect (Vst::IConnectionPoint* peer)
{
    const tresult result = AudioEffect::connect (peer);
    if (result != kResultOk)
        return result;
    const tresult sent = SendPointer (message::kConnectEffect);
    const auto* bus = getAudioInput (0);
    if (bus == nullptr)
        return sent;
    const bool mono = const_cast<Vst::AudioBus*> (bus)->getArrangement () == Vst::SpeakerArr::kMono;
    return SendPointer (mono ? message::kMono : message::kStereo);
}

tresult PLUGIN_API ZVst3EffectWrapper::disconnect (Vst::IConnectionPoint* peer)
{
    SendPointer (message::kDisconnectEffect);
    if (life)
        life->Editor ().Set (nullptr);
    return AudioEffect::disconnect (peer);
}

tresult PLUGIN_API ZVst3EffectWrapper::notify (Vst::IMessage* received)
{
    const tresult result = AudioEffect::notify (received);
    if (result != kResultFalse)
        return result;
    const FIDString id = received->getMessageID ();
    ZEffectListener* listener = nullptr;
    const bool connects = FIDStringsEqual (id, message::kConnectEditor) && ReadValue (*received, listener);
    if (!connects && !FIDStringsEqual (id, message::kDisconnectEditor))
        return kResultFalse;
    if (life)
        life->Editor ().Set (listener);
    return kResultOk;
}

tresult PLUGIN_API ZVst3EffectWrapper::setActive (TBool state)
{
    const std::uint8_t active = state != 0 ? 1 : 0;
    if (latePoints != nullptr && active != 0)
        ardour::LateDelivery::Join (*latePoints);
    else if (latePoints != nullptr)
    {
        ardour::LateDelivery::Leave (*latePoints);
        latePoints->Deliver (); // what came with the last blocks
        latePoints->OnStop ();
    }
    if (effect)
        effect->SetActive (active != 0);
    SendBinaryMessage (*this, message::kActive, message::kPointerAttribute, &active, sizeof (active));
    return kResultOk;
}

tresult PLUGIN_API ZVst3EffectWrapper::setState (IBStream* stream)
{
    if (storage == nullptr || !effect)
        return kResultFalse;
    const auto alone = life->ExcludeLatePoints ();
    if (latePoints != nullptr)
        latePoints->Forget ();
    ZVst3EffectWrapperAccessorImp accessor (*this);
    effect->SetLoading (true);
    const tresult result = stateBlock.ReadBlock (accessor, stream);
    effect->SetLoading (false);
    life->MarkValuesMoved ();
    return result;
}

tresult PLUGIN_API ZVst3EffectWrapper::getState (IBStream* stream)
{
    if (storage == nullptr || !effect)
        return kResultFalse;
    const auto alone = life->ExcludeLatePoints (); // or the state could have a half of what "Morph" moves
    ZVst3EffectWrapperAccessorImp accessor (*this);
    return stateBlock.WriteBlock (accessor, stream);
}

tresult PLUGIN_API ZVst3EffectWrapper::setBusArrangements (Vst::SpeakerArrangement* inputs, int32 numIns,
                                                           Vst::SpeakerArrangement* outputs, int32 numOuts)
{
    // Any one-speaker arrangement is mono: some hosts ask for the left speaker instead of the mono one.
    return IsOneSpeaker (inputs, numIns) && IsOneSpeaker (outputs, numOuts) ? kResultTrue : kResultFalse;
}

tresult PLUGIN_API ZVst3EffectWrapper::setupProcessing (Vst::ProcessSetup& setup)
{
    if (effect)
    {
        effect->SetSampleRate (setup.sampleRate);
        effect->SetBlockSize (setup.maxSamplesPerBlock);
        pace.Reset (setup.sampleRate, setup.maxSamplesPerBlock);
    }
    return AudioEffect::setupProcessing (setup);
}

uint32 PLUGIN_API ZVst3EffectWrapper::getLatencySamples ()
{
    return effect ? static_cast<uint32> (effect->GetLatency ()) : 0;
}

uint32 PLUGIN_API ZVst3EffectWrapper::getTailSamples ()
{
    return effect ? static_cast<uint32> (effect->GetTail ()) : 0;
}

tresult PLUGIN_API ZVst3EffectWrapper::process (Vst::ProcessData& data)
{
    if (lastProcessMode == Vst::kOffline || data.processMode == Vst::kOffline)
        offlineLatch = true;
    appliesPoints = offlineLatch && HasAudio (data) && data.symbolicSampleSize == Vst::kSample32;
    hasAppliedPoints = false;
    parameterQueue.Clear ();
    CollectParameterChanges (data.inputParameterChanges);
    if (latePoints != nullptr)
        HandOverLatePoints (data);
    CollectEvents (data.inputEvents);
    UpdateTimeInfo (data.processContext);
    if (data.numInputs == 0 || data.numOutputs == 0)
        return kResultOk;
    if (HasAudio (data))
        ProcessBlock (data);
    WriteMeters (data.outputParameterChanges);
    if (data.processMode != Vst::kOffline)
        offlineLatch = false;
    lastProcessMode = data.processMode;
    return kResultOk;
}

void ZVst3EffectWrapper::CollectParameterChanges (Vst::IParameterChanges* changes)
{
    const int32 queueCount = changes != nullptr ? changes->getParameterCount () : 0;
    for (int32 i = 0; i < queueCount; ++i)
    {
        Vst::IParamValueQueue* queue = changes->getParameterData (i);
        if (queue == nullptr)
            continue;
        const Vst::ParamID id = queue->getParameterId ();
        for (int32 point = 0, count = queue->getPointCount (); point < count; ++point)
        {
            int32 sampleOffset = 0;
            Vst::ParamValue value = 0.0;
            if (queue->getPoint (point, sampleOffset, value) == kResultOk)
                CollectPoint (id, sampleOffset, value);
        }
    }
}

void ZVst3EffectWrapper::CollectPoint (Vst::ParamID id, int32 sampleOffset, Vst::ParamValue value)
{
    const auto usable = StoredValue (value);
    if (!usable)
        return;
    value = *usable;
    if (IsOrdinaryId (id))
    {
        UpdateBypass (id);
        AddPoint (id, sampleOffset, static_cast<float> (value));
    }
    else if (IsMidiId (id) && effect)
        CollectMidi (id - kFirstMidiId, sampleOffset, value);
}

void ZVst3EffectWrapper::CollectMidi (std::uint32_t number, int32 sampleOffset, Vst::ParamValue value)
{
    if (number < 128)
    {
        effect->MidiEvent (static_cast<std::uint8_t> (0xB0), static_cast<std::uint8_t> (number),
                           static_cast<std::uint8_t> (Truncate (value * 127.0)), sampleOffset);
    }
    else if (number == kMidiPitchBend)
    {
        const std::int32_t bend = Truncate (value * 16383.0);
        effect->MidiEvent (static_cast<std::uint8_t> (0xE0), static_cast<std::uint8_t> (bend & 0x7F),
                           static_cast<std::uint8_t> ((bend >> 7) & 0x7F), sampleOffset);
    }
}

/// The block's points are noted. Offline, and in a bounce that only looks like playback, they are heard in this block.
void ZVst3EffectWrapper::HandOverLatePoints (const Vst::ProcessData& data)
{
    const bool isOffline = data.processMode == Vst::kOffline;
    latePoints->OnBlock (isOffline);
    if (isOffline)
    {
        pace.Restart ();
        latePoints->DeliverOffline ();
        return;
    }
    const std::chrono::nanoseconds now = std::chrono::steady_clock::now ().time_since_epoch ();
    if (pace.IsAhead (data.numSamples, now.count ()) || offlineLatch)
        latePoints->DeliverAhead ();
}

/// Keeps the queue within its reserve: a full one is handed on early, as the core would do with the block's.
void ZVst3EffectWrapper::AddPoint (Vst::ParamID id, int32 sampleOffset, float value)
{
    if (latePoints != nullptr)
    {
        latePoints->Note (id, value);
        return;
    }
    std::int32_t count = 0;
    parameterQueue.GetCount (&count);
    if (count == kReservedPoints)
        HandOnQueue ();
    parameterQueue.Add (sampleOffset, id, value);
    hasAppliedPoints = appliesPoints;
}

void ZVst3EffectWrapper::HandOnQueue ()
{
    ZPluginCore* core = nullptr;
    if (appliesPoints && effect && effect->GetInfo (kCodeCore, &core) && core != nullptr)
        core->ApplyParameterQueue (&parameterQueue);
    parameterQueue.Clear ();
}

void ZVst3EffectWrapper::CollectEvents (Vst::IEventList* events)
{
    const int32 count = events != nullptr && effect ? events->getEventCount () : 0;
    for (int32 i = 0; i < count; ++i)
    {
        Vst::Event event{};
        if (events->getEvent (i, event) != kResultOk)
            continue;
        if (event.type == Vst::Event::kNoteOnEvent)
            effect->MidiEvent (static_cast<std::uint8_t> (0x90), static_cast<std::uint8_t> (event.noteOn.pitch),
                               static_cast<std::uint8_t> (Truncate (event.noteOn.velocity * 127.0)),
                               event.sampleOffset);
        else if (event.type == Vst::Event::kNoteOffEvent)
            effect->MidiEvent (static_cast<std::uint8_t> (0x80), static_cast<std::uint8_t> (event.noteOff.pitch),
                               static_cast<std::uint8_t> (Truncate (event.noteOff.velocity * 127.0)),
                               event.sampleOffset);
    }
}

void ZVst3EffectWrapper::UpdateTimeInfo (const Vst::ProcessContext* context)
{
    timeInfo = {};
    if (context == nullptr)
        return;
    timeInfo.samplePos = static_cast<double> (context->projectTimeSamples);
    timeInfo.sampleRate = context->sampleRate;
    timeInfo.nanoSeconds = static_cast<double> (context->systemTime);
    timeInfo.ppqPos = context->projectTimeMusic;
    timeInfo.tempo = context->tempo;
    timeInfo.barStartPos = context->barPositionMusic;
    timeInfo.cycleStartPos = context->cycleStartMusic;
    timeInfo.cycleEndPos = context->cycleEndMusic;
    timeInfo.timeSigNumerator = context->timeSigNumerator;
    timeInfo.timeSigDenominator = context->timeSigDenominator;
    timeInfo.smpteOffset = context->smpteOffsetSubframes;
    timeInfo.smpteFrameRate = static_cast<std::int32_t> (context->frameRate.framesPerSecond);
    timeInfo.samplesToNextClock = context->samplesToNextClock;
    timeInfo.flags = static_cast<std::int32_t> (context->state & kTimeInfoFlags);
}

void ZVst3EffectWrapper::UpdateBypass (Vst::ParamID id)
{
    const auto index = static_cast<std::int32_t> (id);
    if (storage == nullptr || (storage->GetFlags (index) & kIsBypass) == 0)
        return;
    if (effect)
        effect->SetBypass (storage->GetPlain (index) != 0.0f);
}

void ZVst3EffectWrapper::ProcessBlock (Vst::ProcessData& data)
{
    ZAudioBlock block;
    FillBlock (data, block);
    if (effect)
    {
        effect->BeforeProcess ();
        effect->Process (block);
        effect->AfterProcess (block);
        if (hasAppliedPoints)
            life->MarkValuesMoved ();
    }
    SilenceWithoutInput (data);
    data.outputs[0].silenceFlags = block.silenceFlags;
}

void ZVst3EffectWrapper::FillBlock (Vst::ProcessData& data, ZAudioBlock& block)
{
    block.processMode = offlineLatch ? kOffline : data.processMode;
    block.symbolicSampleSize = data.symbolicSampleSize;
    block.inputs = data.inputs[0].channelBuffers32;
    block.numInputChannels = data.inputs[0].numChannels;
    block.silenceFlags = data.inputs[0].silenceFlags;
    block.outputs = data.outputs[0].channelBuffers32;
    block.numOutputChannels = data.outputs[0].numChannels;
    block.numSamples = data.numSamples;
    if (data.numInputs == 2)
    {
        block.sideChain = data.inputs[1].channelBuffers32;
        block.numSideChainChannels = data.inputs[1].numChannels;
        auto* bus = getAudioInput (1);
        block.sideChainActive = bus != nullptr && bus->isActive ();
    }
    block.parameterQueue = &parameterQueue;
}

void ZVst3EffectWrapper::WriteMeters (Vst::IParameterChanges* changes) const
{
    ZVuBuffer* meters = nullptr;
    if (changes == nullptr || !effect || !effect->GetInfo (kCodeVuBuffer, &meters) || meters == nullptr)
        return;
    for (std::int32_t i = 0; i < meters->Count (); ++i)
    {
        const Vst::ParamID id = kFirstMeterId + static_cast<std::uint32_t> (i);
        int32 position = 0;
        if (Vst::IParamValueQueue* queue = changes->addParameterData (id, position))
            queue->addPoint (0, static_cast<double> (meters->Get (i)), position);
    }
}

bool ZVst3EffectWrapper::NotifyEditor (std::int32_t code, void* data)
{
    return life->NotifyEditor (code, data);
}

bool ZVst3EffectWrapper::NotifyEditor2 (std::int32_t code, void* data)
{
    return life->NotifyEditor2 (code, data);
}

void ZVst3EffectWrapper::GetTimeInfo (ZTimeInfo* out)
{
    *out = timeInfo;
}

std::int32_t ZVst3EffectWrapper::GetHostName (char* buffer)
{
    const FUnknownPtr<Vst::IHostApplication> host (getHostContext ());
    Vst::String128 name{};
    if (!host || host->getName (name) != kResultOk)
        return kFailed;
    std::array<char, 256> narrow{};
    Narrow (name, narrow);
    std::memcpy (buffer, narrow.data (), narrow.size ());
    return kOk;
}

} // namespace tessaly
