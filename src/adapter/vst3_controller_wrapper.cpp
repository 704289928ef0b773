#include "vst3_controller_wrapper.h"

#include "binary_message.h"
#include "effect.h"
#include "gui_editor.h"
#include "host_context.h"
#include "kvp_parameters.h"
#include "live_effect.h"
#include "parameter_ids.h"
#include "parameter_storage_base.h"
#include "plugin_config.h"
#include "scoped_flag.h"
#include "stored_value.h"
#include "text_conversion.h"
#include "vst3_editor_view_wrapper.h"
#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace tessaly
{

using namespace Steinberg;

namespace
{

constexpr std::uint64_t kTimerIntervalMs = 20;

ZParameterStorageBase* StorageOf (ZEffect* effect)
{
    ZParameterStorageBase* storage = nullptr;
    effect->GetInfo (kCodeStorage, &storage);
    return storage;
}

} // namespace

std::uint32_t SteadyTickMs ()
{
    const auto now = std::chrono::steady_clock::now ().time_since_epoch ();
    return static_cast<std::uint32_t> (std::chrono::duration_cast<std::chrono::milliseconds> (now).count ());
}

ZVst3ControllerWrapper::ZVst3ControllerWrapper (TickClock tickClock)
    : clock (tickClock)
    , vuBuffer (config::kMeterCount, 0.0f)
{
}

ZVst3ControllerWrapper::~ZVst3ControllerWrapper () = default;

FUnknown* ZVst3ControllerWrapper::CreateInstance (void*)
{
    return static_cast<Vst::IEditController*> (new ZVst3ControllerWrapper);
}

tresult PLUGIN_API ZVst3ControllerWrapper::initialize (FUnknown* context)
{
    const tresult result = EditControllerEx1::initialize (context);
    if (result != kResultOk)
        return result;
    hostThread = std::this_thread::get_id ();
    timer.Start (context, FactoryHostContext (), kTimerIntervalMs, [this] { edits.EndExpired (clock ()); });
    return kResultOk;
}

tresult PLUGIN_API ZVst3ControllerWrapper::terminate ()
{
    timer.Stop ();
    EndAllEdits ();
    Attach (nullptr);
    views.clear ();
    return EditControllerEx1::terminate ();
}

tresult PLUGIN_API ZVst3ControllerWrapper::notify (Vst::IMessage* received)
{
    OnHostCall ();
    const tresult result = EditControllerEx1::notify (received);
    if (result != kResultFalse)
        return result;
    return OnEffectMessage (*received) ? kResultOk : kResultFalse;
}

/// Hosts have been seen to deliver messages twice, late or to both halves, so a pointer counts only while its effect
/// lives, and announcing an effect again changes nothing.
/// @return true if the message is one of the processor's that is answered with success
bool ZVst3ControllerWrapper::OnEffectMessage (Vst::IMessage& received)
{
    const FIDString id = received.getMessageID ();
    if (FIDStringsEqual (id, message::kActive))
    {
        std::uint8_t state = 0;
        if (ReadValue (received, state))
            SetActive (state != 0);
        return false; // the sender does not look at the answer
    }
    ZEffect* sent = nullptr;
    if (!ReadValue (received, sent))
        return false;
    const auto sentLife = LiveEffect::Find (sent);
    if (!sentLife)
        return false;
    if (FIDStringsEqual (id, message::kConnectEffect))
    {
        if (sentLife != life)
            Attach (sentLife);
        return true;
    }
    if (FIDStringsEqual (id, message::kDisconnectEffect))
    {
        if (sentLife == life)
            Attach (nullptr);
        return true;
    }
    const bool mono = FIDStringsEqual (id, message::kMono);
    const bool stereo = FIDStringsEqual (id, message::kStereo);
    const bool counted = FIDStringsEqual (id, message::kChannelCount);
    if (!mono && !stereo && !counted)
        return false;
    if (counted)
        sent->GetInfo (kCodeNumInputs, &numChannels);
    else
        numChannels = mono ? 1 : 2;
    if (sentLife == life)
        UpdateParameters (StorageOf (sent));
    return true;
}

ZEffect* ZVst3ControllerWrapper::Effect () const
{
    return life && !life->HasEnded () ? life->Effect () : nullptr;
}

ardour::LatePoints* ZVst3ControllerWrapper::LatePoints () const
{
    return HasEffect () ? life->LatePoints () : nullptr;
}

Vst::Parameter* ZVst3ControllerWrapper::getParameterObject (Vst::ParamID id)
{
    return HasEffect () ? EditControllerEx1::getParameterObject (id) : nullptr;
}

void ZVst3ControllerWrapper::SetActive (bool state)
{
    everActive = everActive || state;
    active = state;
    // Nothing plays on either side of the switch, and a host's feed may begin with the value that was last shown.
    vuBuffer.SetAll (0.0f);
    for (std::int32_t i = 0; i < config::kMeterCount; ++i)
        EditControllerEx1::setParamNormalized (kFirstMeterId + static_cast<Vst::ParamID> (i), 0.0);
    for (auto* view : std::vector (views)) // a copy: a view may close
        view->SetActive (state);
}

void ZVst3ControllerWrapper::Attach (std::shared_ptr<LiveEffect> newLife)
{
    TellViewsOfEnd ();
    if (life && editor != nullptr)
        life->Editor ().TakeBack (editor);
    SetStorage (nullptr); // the parameter objects look into the old effect's storage
    life = std::move (newLife);
    everActive = false;
    if (!life)
        return;
    SetStorage (StorageOf (life->Effect ()));
    if (editor != nullptr)
        life->Editor ().Set (editor);
    viewsHaveEffect = true;
    for (auto* view : std::vector (views))
        view->OnEffectCame ();
}

void ZVst3ControllerWrapper::TellViewsOfEnd ()
{
    if (std::exchange (viewsHaveEffect, false))
        for (auto* view : std::vector (views)) // a copy: a view may close
            view->OnEffectGone ();
}

void ZVst3ControllerWrapper::SetStorage (ZParameterStorageBase* newStorage)
{
    storage = newStorage;
    BuildParameters ();
}

void ZVst3ControllerWrapper::BuildUnits ()
{
    units.clear ();
    for (std::int32_t i = 0; i < storage->GetUnitCount (); ++i)
    {
        ZUnitRecord record{};
        storage->GetUnit (i, &record);
        if (record.id == 0)
            continue;
        Vst::String128 name{};
        Widen (record.name.data (), name);
        addUnit (new Vst::Unit (name, record.id, record.parentId)); // the controller's list owns it
    }
}

void ZVst3ControllerWrapper::BuildParameters ()
{
    parameters.removeAll ();
    if (storage == nullptr)
        return;
    BuildUnits ();
    // The container owns what is added.
    for (std::int32_t i = 0; i < storage->GetParameterCount (); ++i)
        parameters.addParameter (new KVPParameter (i, storage));
    for (std::int32_t i = 0; i < config::kMeterCount; ++i)
        parameters.addParameter (new KVPVuParameter (i));
    if constexpr (config::kUsesMidi)
    {
        for (std::uint32_t i = 0; i < kMidiNumberCount; ++i)
            parameters.addParameter (new KVPMidiParameter (static_cast<std::int32_t> (i)));
    }
}

void ZVst3ControllerWrapper::UpdateParameters (ZParameterStorageBase* newStorage)
{
    if (newStorage == nullptr)
        return;
    storage = newStorage;
    for (std::int32_t i = 0; i < storage->GetParameterCount (); ++i)
    {
        if (auto* parameter = FCast<KVPParameter> (getParameterObject (static_cast<Vst::ParamID> (i))))
            parameter->SetUp (storage);
    }
    RefreshValues ();
    if (componentHandler)
    {
        componentHandler->restartComponent (Vst::kParamTitlesChanged);
        componentHandler->restartComponent (Vst::kParamValuesChanged);
        setDirty (false);
    }
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

/// A host's value for a conversion; NaN stands for the present value.
Vst::ParamValue ZVst3ControllerWrapper::Usable (Vst::ParamID id, Vst::ParamValue normalized)
{
    return StoredValue (normalized).value_or (EditControllerEx1::getParamNormalized (id));
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

int32 PLUGIN_API ZVst3ControllerWrapper::getParameterCount ()
{
    OnHostCall ();
    return HasEffect () ? EditControllerEx1::getParameterCount () : 0;
}

tresult PLUGIN_API ZVst3ControllerWrapper::getParameterInfo (int32 index, Vst::ParameterInfo& info)
{
    OnHostCall ();
    return HasEffect () ? EditControllerEx1::getParameterInfo (index, info) : kResultFalse;
}

tresult PLUGIN_API ZVst3ControllerWrapper::getParamStringByValue (Vst::ParamID id, Vst::ParamValue normalized,
                                                                  Vst::String128 text)
{
    OnHostCall ();
    return EditControllerEx1::getParamStringByValue (id, Usable (id, normalized), text);
}

tresult PLUGIN_API ZVst3ControllerWrapper::getParamValueByString (Vst::ParamID id, Vst::TChar* text,
                                                                  Vst::ParamValue& normalized)
{
    OnHostCall ();
    const tresult result = EditControllerEx1::getParamValueByString (id, text, normalized);
    normalized = Usable (id, normalized); // "nan" and "inf" are numbers to a reader of text
    return result;
}

Vst::ParamValue PLUGIN_API ZVst3ControllerWrapper::normalizedParamToPlain (Vst::ParamID id, Vst::ParamValue normalized)
{
    OnHostCall ();
    return EditControllerEx1::normalizedParamToPlain (id, Usable (id, normalized));
}

Vst::ParamValue PLUGIN_API ZVst3ControllerWrapper::plainParamToNormalized (Vst::ParamID id, Vst::ParamValue plain)
{
    OnHostCall ();
    return Usable (id, std::isnan (plain) ? plain : EditControllerEx1::plainParamToNormalized (id, plain));
}

tresult PLUGIN_API ZVst3ControllerWrapper::setComponentHandler (Vst::IComponentHandler* handler)
{
    hostThread = std::this_thread::get_id (); // some hosts make instances on a worker thread
    OnHostCall ();
    if (handler != componentHandler)
        EndAllEdits (); // the handler that heard their beginning has to hear their end
    return EditControllerEx1::setComponentHandler (handler);
}

Vst::ParamValue PLUGIN_API ZVst3ControllerWrapper::getParamNormalized (Vst::ParamID id)
{
    OnHostCall ();
    return EditControllerEx1::getParamNormalized (id);
}

tresult PLUGIN_API ZVst3ControllerWrapper::setParamNormalized (Vst::ParamID id, Vst::ParamValue value)
{
    OnHostCall ();
    const auto usable = StoredValue (value);
    if (!usable)
        return kResultFalse;
    value = *usable;
    const auto kept = static_cast<float> (value);
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

/// Sets a value with the values before and after it.
void ZVst3ControllerWrapper::SetInEffect (ZEffect& effect, std::int32_t index, float value)
{
    auto* const late = LatePoints ();
    const auto alone = late != nullptr ? late->Exclude () : ardour::LatePoints::Exclusion ();
    if (late != nullptr)
        late->OnToldByHost (static_cast<Vst::ParamID> (index), value);
    storage->GetValues (snapshot);
    effect.SetParameter (index, value);
    storage->GetValues (values);
}

IPlugView* PLUGIN_API ZVst3ControllerWrapper::createView (FIDString name)
{
    OnHostCall ();
    if (!FIDStringsEqual (name, Vst::ViewType::kEditor))
        return nullptr;
    auto view = Steinberg::owned (new ZVst3EditorViewWrapper (*this, *this, FactoryHostContext ()));
    auto made = factory->CreateEditor (*view);
    made->OnEffectEvent (kCodeStorage, HasEffect () ? storage : nullptr);
    made->OnEffectEvent (kCodeNumInputs, &numChannels);
    view->SetEditor (std::move (made));
    return view.take ();
}

/// Values are kept as floats, so a host's double of the same dial is the same value.
bool ZVst3ControllerWrapper::IsRepeat (Vst::ParamID id, float value)
{
    const auto* parameter = getParameterObject (id);
    if (parameter == nullptr || static_cast<float> (parameter->getNormalized ()) != value)
        return false;
    return !IsOrdinaryId (id) || storage->GetNormalized (static_cast<std::int32_t> (id)) == value;
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
            performEdit (moved, static_cast<double> (values[i]));
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

tresult PLUGIN_API ZVst3ControllerWrapper::connect (Vst::IConnectionPoint* peer)
{
    OnHostCall ();
    return EditControllerEx1::connect (peer);
}

tresult PLUGIN_API ZVst3ControllerWrapper::disconnect (Vst::IConnectionPoint* peer)
{
    OnHostCall ();
    return EditControllerEx1::disconnect (peer);
}

int32 PLUGIN_API ZVst3ControllerWrapper::getUnitCount ()
{
    OnHostCall ();
    return EditControllerEx1::getUnitCount ();
}

tresult PLUGIN_API ZVst3ControllerWrapper::getMidiControllerAssignment (int32, int16, Vst::CtrlNumber controller,
                                                                        Vst::ParamID& id)
{
    OnHostCall ();
    const auto number = static_cast<std::uint32_t> (controller);
    if (!config::kUsesMidi || number >= kMidiNumberCount)
        return kResultFalse;
    id = number + kFirstMidiId;
    return kResultTrue;
}

tresult PLUGIN_API ZVst3ControllerWrapper::getXmlRepresentationStream (Vst::RepresentationInfo&, IBStream*)
{
    OnHostCall ();
    return kResultFalse; // the strip offers none
}

tresult PLUGIN_API ZVst3ControllerWrapper::setUnitProgramData (int32, int32, IBStream*)
{
    OnHostCall ();
    return kResultFalse;
}

void ZVst3ControllerWrapper::SetParameterFromEditor (Vst::ParamID id, float value)
{
    setParamNormalized (id, static_cast<double> (value));
    performEdit (id, static_cast<double> (value));
}

void ZVst3ControllerWrapper::EndAllEdits ()
{
    EndAllTimedEdits ();
    EndAllHeldEdits ();
}

/// What is to happen by time or without a message, looked at on every call of the host: the parameter objects follow the
/// points of an offline block, or a state, that some hosts give to the processor alone. All of it belongs to the host's
/// own thread, and nothing happens while the host is being told of a change.
void ZVst3ControllerWrapper::OnHostCall ()
{
    if (std::this_thread::get_id () != hostThread.load (std::memory_order_relaxed) || inSetParam)
        return;
    if (!HasEffect ()) // a host's connection may drop messages off its main thread, that of the end too
        TellViewsOfEnd ();
    else if (!inFollow)
    {
        if (auto* const late = LatePoints ())
            late->Deliver (); // so that no answer is older than the host's own points
        if (life->TakeValuesMoved () || hostIsBehind)
            FollowStorage ();
    }
    edits.EndExpired (clock ());
}

void ZVst3ControllerWrapper::BeginHeldEdit (Vst::ParamID id)
{
    edits.BeginHeld (id, clock ());
    if (auto* const late = LatePoints ())
        late->Hold (id);
}

void ZVst3ControllerWrapper::EndHostEdit (std::uint32_t id)
{
    if (auto* const late = LatePoints ())
        late->LetGo (id);
    endEdit (id);
}

tresult ZVst3ControllerWrapper::performEdit (Vst::ParamID id, Vst::ParamValue value)
{
    if (auto* const late = LatePoints ())
        late->OnEdited (id);
    return EditControllerEx1::performEdit (id, value);
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
    for (std::int32_t i = 0; i < storage->GetParameterCount (); ++i)
    {
        const float value = storage->GetNormalized (i);
        if (EditControllerEx1::getParamNormalized (static_cast<Vst::ParamID> (i)) != static_cast<double> (value))
            ReportToHost (i, value);
    }
}

void ZVst3ControllerWrapper::ReportToHost (std::int32_t index, float value)
{
    const auto id = static_cast<Vst::ParamID> (index);
    beginEdit (id);
    performEdit (id, static_cast<double> (value));
    EditControllerEx1::setParamNormalized (id, static_cast<double> (value));
    endEdit (id);
}

void ZVst3ControllerWrapper::ConnectEditor (ZEffectListener& newEditor)
{
    editor = &newEditor;
    SendBinaryMessage (*this, message::kConnectEditor, message::kPointerAttribute, &editor, sizeof (editor));
    if (life)
        life->Editor ().Set (editor); // whether or not the host delivers messages this way
}

void ZVst3ControllerWrapper::DisconnectEditor (ZEffectListener& oldEditor)
{
    ZEffectListener* const leaving = &oldEditor;
    if (editor == leaving) // or a newer one has taken its place
    {
        editor = nullptr;
        SendBinaryMessage (*this, message::kDisconnectEditor, message::kPointerAttribute, &leaving, sizeof (leaving));
    }
    if (life)
        life->Editor ().TakeBack (leaving);
}

void ZVst3ControllerWrapper::AddView (EditorViewListener& view)
{
    if (std::find (views.begin (), views.end (), &view) == views.end ())
        views.push_back (&view);
}

bool ZVst3ControllerWrapper::QueryEffect (std::int32_t kind, void* out)
{
    auto* const effect = Effect ();
    return effect != nullptr && effect->QueryEffect (kind, out);
}

bool ZVst3ControllerWrapper::GetInfo (std::int32_t kind, void* out)
{
    if (kind == kCodeVuBuffer && out != nullptr)
    {
        *static_cast<ZVuBuffer**> (out) = &vuBuffer;
        return true;
    }
    auto* const effect = Effect ();
    return effect != nullptr && effect->GetInfo (kind, out);
}

} // namespace tessaly
