#include "effect_wrapper.h"
#include "gui_editor.h"
#include "parameter_storage_base.h"
#include "vu_buffer.h"
#include <algorithm>
#include <cmath>

namespace tessaly
{

namespace
{

/// Whether a control that has one value is to be given the other. NaN never is.
bool IsNews (float value, float known)
{
    return value != known && !std::isnan (value);
}

} // namespace

bool ZGuiEditor::OnEffectEvent (std::int32_t code, void* data)
{
    if (code >= kCodeFirstOfEffect && !TakesOwnEvent (code))
        return false;
    if (!parked.Park (code, data))
        return false;
    if (std::this_thread::get_id () == uiThread.load (std::memory_order_relaxed))
        CarryOutEvents ();
    return true;
}

bool ZGuiEditor::OnEffectEvent2 (std::int32_t code, void* data)
{
    if (code != kWhichEditor || data == nullptr)
        return false;
    *static_cast<ZGuiEditor**> (data) = this;
    return true;
}

void ZGuiEditor::CarryOutEvents ()
{
    const auto events = parked.Take ();
    if (events.Has (kCodeCore))
        OnCore (events.core);
    if (events.Has (kCodeStorage))
        OnStorage (events.storage);
    if (events.Has (kCodeVuBuffer))
        OnVuBuffer (events.meters);
    if (events.Has (kCodeMidiEvent))
        OnMidiEvent (events.midi);
    if (events.Has (kCodeSampleRate))
        OnSampleRate (events.sampleRate);
    if (events.Has (kCodeBlockSize))
        OnBlockSize (events.blockSize);
    if (events.Has (kCodeHookA))
        OnHookA ();
    if (events.Has (kCodeHookB))
        OnHookB ();
    if (events.Has (kCodeBypass))
        OnBypass (events.bypass);
    if (events.Has (kCodeMeterArgument))
        OnMeterArgument (events.meterArgument);
    if (events.Has (kCodePostHost))
    {
        if (events.everyParameter)
            OnParameterPosted (kEveryPane);
        for (std::int32_t id = 0; id < EffectEvents::kParameters; ++id)
            if (events.HasParameter (id))
                OnParameterPosted (id);
    }
    if (events.Has (kCodeNumInputs))
        OnChannelCount (events.channels);
    for (std::int32_t own = 0; own < ParkedEvents::kOwnCodes; ++own)
        if (events.HasOwn (own))
            OnOwnEvent (kCodeFirstOfEffect + own);
}

void ZGuiEditor::OnStorage (ZParameterStorageBase* newStorage)
{
    if (!IsOpen ())
        return; // Open asks for it
    storage = newStorage;
    for (auto* control : controls)
        control->SetStorage (storage);
}

void ZGuiEditor::OnVuBuffer (ZVuBuffer* newMeters)
{
    if (IsOpen ())
        meterSource = newMeters;
}

void ZGuiEditor::OnParameterPosted (std::int32_t id)
{
    for (std::int32_t i = 0; i < controls.GetCount (); ++i)
        controls.At (i)->UpdateFromStorage (id);
    if (storage != nullptr && id >= 0 && id < storage->GetParameterCount ())
        ParameterChanged (id, storage->GetNormalized (id));
}

void ZGuiEditor::SetParameter (std::int32_t id, float value)
{
    if (std::isnan (value))
        return;
    if (storage != nullptr && id >= 0 && id < storage->GetParameterCount ())
        wrapper.SetParameter (id, std::clamp (value, 0.0f, 1.0f));
    ParameterChanged (id, value);
}

void ZGuiEditor::ParameterChanged (std::int32_t id, float value)
{
    if (std::isnan (value))
        return;
    SetValueById (id, value);
    if (id >= 0 && static_cast<std::size_t> (id) < lastValues.size ())
        lastValues[static_cast<std::size_t> (id)] = value;
    valuesChanged = true;
}

void ZGuiEditor::PollParameters ()
{
    if (controls.GetCount () == 0 || storage == nullptr)
        return;
    storage->GetValues (currentValues);
    if (currentValues == lastValues)
        return;
    ShowChangedParameters ();
    lastValues = currentValues;
}

void ZGuiEditor::ShowChangedParameters ()
{
    for (std::size_t i = 0; i < currentValues.size (); ++i)
        if (i >= lastValues.size () || IsNews (currentValues[i], lastValues[i]))
            ParameterChanged (static_cast<std::int32_t> (i), currentValues[i]);
}

void ZGuiEditor::PollMeters ()
{
    if (meterSource == nullptr || meters.GetCount () == 0)
        return;
    fade.Step ();
    for (std::int32_t i = 0; i < meterSource->Count (); ++i)
    {
        const auto level = meterSource->Get (i) * fade.Level ();
        for (auto* meter : meters)
            meter->SetValueById (i, std::isnan (level) ? 0.0f : level);
    }
}

void ZGuiEditor::SetMeterFade (bool on)
{
    if (!fade.SetWanted (on) || !IsOpen ())
        return;
    if (on)
        fade.StartIn ();
    else
        fade.StartOut ();
}

} // namespace tessaly
