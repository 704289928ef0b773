#include "vst3_controller_wrapper.h"

#include "binary_message.h"
#include "effect.h"
#include "host_call.h"
#include "host_context.h"
#include "live_effect.h"
#include "parameter_ids.h"
#include "parameter_storage_base.h"
#include "plugin_config.h"
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
    if (life && !editors.empty ())
        life->Editor ().TakeBack (editors.back ());
    SetStorage (nullptr); // the parameter objects look into the old effect's storage
    HostCall::AtEnd ([old = std::exchange (life, std::move (newLife))] {}); // the panel may be at work on it
    everActive = false;
    if (!life)
        return;
    SetStorage (StorageOf (life->Effect ()));
    if (!editors.empty ())
        life->Editor ().Set (editors.back ());
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

tresult PLUGIN_API ZVst3ControllerWrapper::setComponentHandler (Vst::IComponentHandler* handler)
{
    hostThread = std::this_thread::get_id (); // some hosts make instances on a worker thread
    OnHostCall ();
    if (handler != componentHandler)
        EndAllEdits (); // the handler that heard their beginning has to hear their end
    return EditControllerEx1::setComponentHandler (handler);
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

} // namespace tessaly
