#include "effect.h"
#include "live_effect.h"
#include "parameter_ids.h"
#include "parameter_storage_base.h"
#include "scoped_flag.h"
#include "stored_value.h"
#include "vst3_controller_wrapper.h"
#include <utility>

// The controller: the roads of the values between the host, the parameter objects and the effect.

namespace tessaly
{

using namespace Steinberg;

tresult PLUGIN_API ZVst3ControllerWrapper::setParamNormalized (Vst::ParamID id, Vst::ParamValue value)
{
    OnHostCall ();
    const auto usable = StoredValue (value);
    if (!usable)
        return kResultFalse;
    value = *usable;
    const auto kept = static_cast<float> (value);
    if (auto* const late = LatePoints (); late != nullptr && !inSetParam)
        late->OnEachTold (id, kept);
    const bool repeat = IsRepeat (id, kept);
    const tresult result = EditControllerEx1::setParamNormalized (id, value);
    if (repeat || inSetParam)
        return repeat ? result : kResultFalse;
    const ScopedFlag guard (inSetParam);
    auto* const effect = Effect ();
    if (IsOrdinaryId (id) && effect != nullptr && storage != nullptr)
    {
        SetInEffect (*effect, static_cast<std::int32_t> (id), kept);
        const tresult reported = ReportSideEffects (id, kept);
        return reported != kResultOk ? reported : result;
    }
    if (IsMeterId (id))
    {
        vuBuffer.Write (static_cast<std::int32_t> (id - kFirstMeterId), kept, 0);
        vuBuffer.Flush ();
    }
    return result;
}

Vst::ParamValue PLUGIN_API ZVst3ControllerWrapper::getParamNormalized (Vst::ParamID id)
{
    OnHostCall ();
    return EditControllerEx1::getParamNormalized (id);
}

tresult PLUGIN_API ZVst3ControllerWrapper::setComponentState (IBStream*)
{
    // The processor has filled the shared storage already, so there is nothing to read.
    OnHostCall ();
    RefreshValues ();
    return kResultOk;
}

tresult PLUGIN_API ZVst3ControllerWrapper::setState (IBStream*)
{
    OnHostCall ();
    return kResultOk;
}

tresult PLUGIN_API ZVst3ControllerWrapper::getState (IBStream*)
{
    OnHostCall ();
    return kResultOk;
}

/// Values are kept as floats, so a host's double of the same dial is the same value.
bool ZVst3ControllerWrapper::IsRepeat (Vst::ParamID id, float value)
{
    const auto* parameter = getParameterObject (id);
    if (parameter == nullptr || static_cast<float> (parameter->getNormalized ()) != value)
        return false;
    return !IsOrdinaryId (id) || storage->GetNormalized (static_cast<std::int32_t> (id)) == value;
}

/// Sets a value with the values before and after it.
void ZVst3ControllerWrapper::SetInEffect (ZEffect& effect, std::int32_t index, float value)
{
    const auto alone = life->ExcludeLatePoints ();
    if (auto* const late = LatePoints ())
        late->OnToldByHost (static_cast<Vst::ParamID> (index), value);
    storage->GetValues (snapshot);
    effect.SetParameter (index, value);
    storage->GetValues (values);
}

/// Tells the host of every parameter that the effect moved besides the one that was set to `value`. Ardour keeps edits
/// from before the first activation until after it has restored the state, where they would win: it is made to read
/// the values instead.
tresult ZVst3ControllerWrapper::ReportSideEffects (Vst::ParamID id, float value)
{
    const bool asEdits = everActive || LatePoints () == nullptr;
    bool untold = false;
    for (std::size_t i = 0; i < values.size () && i < snapshot.size (); ++i)
    {
        const auto moved = static_cast<Vst::ParamID> (i);
        if (values[i] == (moved == id ? value : snapshot[i]))
            continue;
        if (asEdits)
        {
            BeginTimedEdit (moved);
            PerformInEdit (moved, static_cast<double> (values[i]));
        }
        untold = untold || !asEdits;
        const tresult stored = EditControllerEx1::setParamNormalized (moved, static_cast<double> (values[i]));
        if (stored != kResultOk)
            return stored;
    }
    if (untold && componentHandler)
        componentHandler->restartComponent (Vst::kParamValuesChanged);
    return kResultOk;
}

tresult ZVst3ControllerWrapper::performEdit (Vst::ParamID id, Vst::ParamValue value)
{
    if (auto* const late = LatePoints ())
        late->OnEdited (id);
    return EditControllerEx1::performEdit (id, value);
}

void ZVst3ControllerWrapper::EndHostEdit (std::uint32_t id)
{
    if (auto* const late = LatePoints ())
        late->LetGo (id);
    endEdit (id);
}

void ZVst3ControllerWrapper::RefreshValues ()
{
    for (std::int32_t i = 0; HasEffect () && i < storage->GetParameterCount (); ++i)
        EditControllerEx1::setParamNormalized (static_cast<Vst::ParamID> (i),
                                               static_cast<double> (storage->GetNormalized (i)));
}

/// The parameter objects take what reached the storage by another road. Ardour is made to read what its own points did
/// not tell it of, once for all values; but not while it exports, as it would send the values back as points, which in
/// an offline block count.
void ZVst3ControllerWrapper::FollowStorage ()
{
    auto* const late = LatePoints ();
    for (std::int32_t i = 0; late != nullptr && i < storage->GetParameterCount (); ++i)
    {
        const auto id = static_cast<Vst::ParamID> (i);
        const float value = storage->GetNormalized (i);
        if (EditControllerEx1::getParamNormalized (id) == static_cast<double> (value) || late->IsNewest (id, value))
            continue;
        late->OnRead (id, value);
        hostIsBehind = true;
    }
    RefreshValues ();
    if (late == nullptr || late->IsOffline () || !std::exchange (hostIsBehind, false) || !componentHandler)
        return;
    const ScopedFlag guard (inFollow);
    componentHandler->restartComponent (Vst::kParamValuesChanged);
}

void ZVst3ControllerWrapper::SyncParameter (std::int32_t index)
{
    if (!HasEffect ())
        return;
    if (index != -1)
    {
        if (index >= 0 && index < storage->GetParameterCount ())
            ReportToHost (index, storage->GetNormalized (index));
        return;
    }
    for (std::int32_t i = 0; HasEffect () && i < storage->GetParameterCount (); ++i)
    {
        const float value = storage->GetNormalized (i);
        if (EditControllerEx1::getParamNormalized (static_cast<Vst::ParamID> (i)) != static_cast<double> (value))
            ReportToHost (i, value);
    }
    UpdateCopies ();
}

void ZVst3ControllerWrapper::ReportToHost (std::int32_t index, float value)
{
    const auto id = static_cast<Vst::ParamID> (index);
    EndTimedEdit (id); // one that the morph has begun
    const bool isHeld = edits.IsOpen (id);
    if (!isHeld)
        beginEdit (id);
    performEdit (id, static_cast<double> (value));
    EditControllerEx1::setParamNormalized (id, static_cast<double> (value));
    if (!isHeld)
        endEdit (id);
}

/// Within the edit that is open, or as one of its own: a host that closes the panel on hearing of an edit ends all.
void ZVst3ControllerWrapper::PerformInEdit (Vst::ParamID id, Vst::ParamValue value)
{
    const bool isOpen = edits.IsOpen (id);
    if (!isOpen)
        beginEdit (id);
    performEdit (id, value);
    if (!isOpen)
        endEdit (id);
}

} // namespace tessaly
