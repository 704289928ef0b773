#include "effect.h"

#include "relaxed_cells.h"
#include <utility>

namespace tessaly
{

namespace
{

template <typename T>
bool Answer (void* out, T value)
{
    *static_cast<T*> (out) = value;
    return true;
}

} // namespace

void ZEffect::Shutdown ()
{
    OnShutdown ();
    AdoptCore (nullptr);
    AdoptStorage (nullptr);
    AdoptVuBuffer (nullptr);
    AdoptMidiEvent (nullptr);
}

void ZEffect::SetPluginCore (std::unique_ptr<ZPluginCore> newCore)
{
    if (newCore == core)
        return;
    AdoptCore (std::move (newCore));
    if (core == nullptr)
        return;

    core->SetVuBuffer (vuBuffer.get ());
    core->SetMidiEvent (midiEvent.get ());
    core->SetChannels (numInputs, numOutputs);
    core->SetSampleRate (sampleRate);
    core->SetBlockSize (blockSize);
    core->SetBypass (bypass);
    if (storage == nullptr)
        return;
    core->SetProgram (storage->GetCurrentProgram ());
    for (std::int32_t i = 0; i < storage->GetParameterCount (); ++i)
        core->SetParameter (i, storage->GetPlain (i));
}

void ZEffect::SetStorage (std::unique_ptr<ZParameterStorageBase> newStorage, const ZParameterRecord* parameters,
                          const ZProgramRecord* programs, std::int32_t numPrograms, std::int32_t numParameters)
{
    if (newStorage == storage)
        return;
    if (newStorage != nullptr)
    {
        newStorage->Initialize (parameters, programs, numPrograms, numParameters);
        newStorage->GetValues (programValues);
    }
    AdoptStorage (std::move (newStorage));
    SetProgram (0);
}

void ZEffect::AdoptCore (std::unique_ptr<ZPluginCore> newCore)
{
    if (newCore == core)
        return;
    core.reset ();
    core = std::move (newCore);
    NotifyEditor (kCodeCore, core.get ());
}

void ZEffect::AdoptStorage (std::unique_ptr<ZParameterStorageBase> newStorage)
{
    if (newStorage == storage)
        return;
    storage.reset ();
    storage = std::move (newStorage);
    NotifyEditor (kCodeStorage, storage.get ());
}

void ZEffect::AdoptVuBuffer (std::unique_ptr<ZVuBuffer> newBuffer)
{
    if (newBuffer == vuBuffer)
        return;
    vuBuffer.reset ();
    vuBuffer = std::move (newBuffer);
    NotifyEditor (kCodeVuBuffer, vuBuffer.get ());
    if (core != nullptr)
        core->SetVuBuffer (vuBuffer.get ());
}

void ZEffect::AdoptMidiEvent (std::unique_ptr<ZMidiEvent> newBuffer)
{
    if (newBuffer == midiEvent)
        return;
    midiEvent.reset ();
    midiEvent = std::move (newBuffer);
    NotifyEditor (kCodeMidiEvent, midiEvent.get ());
    if (core != nullptr)
        core->SetMidiEvent (midiEvent.get ());
}

std::unique_ptr<ZVuBuffer> ZEffect::NewVuBuffer (std::int32_t count)
{
    return std::make_unique<ZVuBuffer> (count, 0.0f);
}

std::unique_ptr<ZMidiEvent> ZEffect::NewMidiEvent ()
{
    return std::make_unique<ZMidiEvent> ();
}

bool ZEffect::GetInfo (std::int32_t kind, void* out)
{
    if (out == nullptr)
        return false;
    switch (kind)
    {
    case kCodeEffect:
        return Answer (out, this);
    case kCodeCore:
        return Answer (out, core.get ());
    case kCodeStorage:
        return Answer (out, storage.get ());
    case kCodeVuBuffer:
        return Answer (out, vuBuffer.get ());
    case kCodeMidiEvent:
        return Answer (out, midiEvent.get ());
    case kCodeSampleRate:
        return Answer<double> (out, sampleRate);
    case kCodeBlockSize:
        return Answer<std::int32_t> (out, blockSize);
    case kCodeBypass:
        return Answer<bool> (out, bypass);
    case kCodeMeterArgument:
        return Answer<std::int32_t> (out, meterArgument);
    case kCodeTimeInfo:
        GetTimeInfo (static_cast<ZTimeInfo*> (out));
        return true;
    case kCodeNumInputs:
        return Answer<std::int32_t> (out, numInputs);
    case kCodeHostName:
        return GetHostName (static_cast<char*> (out)) == kOk;
    default:
        return false;
    }
}

bool ZEffect::NotifyEditor (std::int32_t code, void* data)
{
    return wrapper != nullptr && wrapper->NotifyEditor (code, data);
}

bool ZEffect::NotifyEditor2 (std::int32_t code, void* data)
{
    return wrapper != nullptr && wrapper->NotifyEditor2 (code, data);
}

void ZEffect::BeginBuffers ()
{
    if (vuBuffer != nullptr)
        vuBuffer->BeginBlock (meterArgument);
    if (midiEvent != nullptr)
        midiEvent->BeginBlock ();
}

void ZEffect::EndBuffers (std::int32_t samples)
{
    if (vuBuffer != nullptr)
        vuBuffer->EndBlock (samples);
    if (midiEvent != nullptr)
        midiEvent->EndBlock ();
}

std::int32_t ZEffect::Process (ZAudioBlock& block)
{
    BeginBuffers ();
    auto result = kOk;
    if (core != nullptr)
        result = bypass ? core->ProcessBlockBypassed (block) : core->ProcessBlock (block);
    EndBuffers (block.numSamples);
    return result;
}

void ZEffect::ProcessRaw (float** in, float** out, std::int32_t count)
{
    BeginBuffers ();
    if (core != nullptr && bypass)
        core->ProcessBypassed (in, out, count);
    else if (core != nullptr)
        core->Process (in, out, count);
    EndBuffers (count);
}

std::int32_t ZEffect::AfterProcess (ZAudioBlock& block)
{
    return core != nullptr ? core->UpdateSilence (block) : kOk;
}

void ZEffect::SetChannels (std::int32_t inputs, std::int32_t outputs)
{
    if (inputs == numInputs && outputs == numOutputs)
        return;
    if (core != nullptr)
        core->SetChannels (inputs, outputs);
    numInputs = inputs;
    numOutputs = outputs;
}

std::int32_t ZEffect::NegotiateChannels (std::int32_t* inputs, std::int32_t* outputs)
{
    if (inputs == nullptr || outputs == nullptr || core == nullptr)
        return kOk;
    if (*inputs == numInputs && *outputs == numOutputs)
        return kOk;
    const auto result = core->NegotiateChannels (inputs, outputs);
    numInputs = *inputs;
    numOutputs = *outputs;
    return result;
}

std::int32_t ZEffect::GetSideChainChannels (std::int32_t mainChannels, std::int32_t* count)
{
    if (core != nullptr)
        return core->GetSideChainChannels (mainChannels, count);
    *count = 0;
    return kOk;
}

void ZEffect::MidiEvent (std::uint8_t status, std::uint8_t data1, std::uint8_t data2, std::int32_t sampleOffset)
{
    if (midiEvent != nullptr)
        midiEvent->Event (status, data1, data2, sampleOffset);
    if (core != nullptr)
        core->MidiEvent (status, data1, data2, sampleOffset);
}

void ZEffect::MidiExtra (std::int32_t a, std::int32_t b, std::int32_t c)
{
    if (core != nullptr)
        core->MidiExtra (a, b, c);
}

void ZEffect::SetParameter (std::int32_t index, float normalized)
{
    OnParameter (index, normalized);
    if (storage != nullptr)
        TrackSweep (index);
}

void ZEffect::TrackSweep (std::int32_t index)
{
    if (index == 0)
    {
        sweepIndex = 0;
        sweepRunning = true;
        return;
    }
    if (index != std::int64_t{ sweepIndex } + 1)
        sweepRunning = false;
    sweepIndex = index;
    if (sweepRunning && index == storage->GetParameterCount () - 1)
    {
        OnAllParameters ();
        sweepRunning = false;
    }
}

void ZEffect::SetProgram (std::int32_t index)
{
    if (core != nullptr)
        core->SetProgram (index);
    if (storage != nullptr)
    {
        storage->SetCurrentProgram (index);
        SetLoading (true);
        storage->GetValues (programValues);
        for (std::int32_t i = 0; i < static_cast<std::int32_t> (programValues.size ()); ++i)
            SetParameter (i, LoadRelaxed (programValues[static_cast<std::size_t> (i)]));
        SetLoading (false);
    }
    OnProgram (index);
}

void ZEffect::SetSampleRate (double rateHz)
{
    if (core != nullptr)
        core->SetSampleRate (rateHz);
    sampleRate = rateHz;
    NotifyEditor (kCodeSampleRate, &rateHz);
}

void ZEffect::SetBlockSize (std::int32_t samples)
{
    if (core != nullptr)
        core->SetBlockSize (samples);
    blockSize = samples;
    NotifyEditor (kCodeBlockSize, &samples);
}

void ZEffect::SetBypass (bool on)
{
    if (core != nullptr)
        core->SetBypass (on);
    bypass = on;
    NotifyEditor (kCodeBypass, &on);
}

void ZEffect::SetMeterArgument (std::int32_t samples)
{
    meterArgument = samples;
}

std::int32_t ZEffect::SetActive (bool active)
{
    return core != nullptr ? core->SetActive (active) : kOk;
}

void ZEffect::HookA ()
{
    if (core != nullptr)
        core->HookA ();
    NotifyEditor (kCodeHookA, nullptr);
}

void ZEffect::HookB ()
{
    if (core != nullptr)
        core->HookB ();
    NotifyEditor (kCodeHookB, nullptr);
}

std::int32_t ZEffect::GetLatency ()
{
    return core != nullptr ? core->GetLatency () : 0;
}

std::int32_t ZEffect::GetTail ()
{
    return core != nullptr ? core->GetTail () : 0;
}

void ZEffect::PostHost (std::int32_t argument)
{
    if (wrapper != nullptr)
        wrapper->PostHost (argument);
    NotifyEditor (kCodePostHost, &argument);
}

void ZEffect::GetTimeInfo (ZTimeInfo* info)
{
    if (wrapper != nullptr)
        wrapper->GetTimeInfo (info);
}

std::int32_t ZEffect::GetHostName (char* buffer)
{
    return wrapper != nullptr ? wrapper->GetHostName (buffer) : kFailed;
}

float ZEffect::ReadParameter (std::int32_t index)
{
    return storage != nullptr ? storage->GetNormalized (index) : 0.0f;
}

void ZEffect::ToCore (std::int32_t index, float plain)
{
    if (core != nullptr)
        core->SetParameter (index, plain);
}

void ZEffect::SetNormalized (std::int32_t index, float normalized)
{
    if (storage == nullptr)
        return;
    ToCore (index, storage->PutNormalized (index, normalized));
}

void ZEffect::SetPlain (std::int32_t index, float plain)
{
    if (storage != nullptr)
        storage->SetPlain (index, plain);
    ToCore (index, plain);
}

void ZEffect::SetBool (std::int32_t index, bool on)
{
    if (storage != nullptr)
        storage->SetBool (index, on);
    ToCore (index, on ? 1.0f : 0.0f);
}

void ZEffect::SetInt (std::int32_t index, std::int32_t number)
{
    if (storage != nullptr)
        storage->SetInt (index, number);
    ToCore (index, static_cast<float> (number));
}

} // namespace tessaly
