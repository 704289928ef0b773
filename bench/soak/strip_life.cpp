#include "strip_life.h"

#include "fault.h"
#include "parameter_access.h"

#include <algorithm>

namespace tessaly::soak
{

using namespace Steinberg;

StripLife::StripLife (const host::Bundle& from, host::NamedHost& hostToUse, Chance& chance, Tally& runTally)
    : bundle (from)
    , host (hostToUse)
    , tally (runTally)
{
    bundle.Factory ().setHostContext (&host);
    component = bundle.Factory ().createInstance<Vst::IComponent> (bundle.FirstAudioEffect ().ID ());
    processor = FUnknownPtr<Vst::IAudioProcessor> (component);
    TUID classId{};
    if (!processor || component->getControllerClassId (classId) != kResultOk)
        throw Fault ("the bundle makes no component");
    controller = bundle.Factory ().createInstance<Vst::IEditController> (VST3::UID::fromTUID (classId));
    if (!controller)
        throw Fault ("the bundle makes no controller");
    InitializeComponent ();
    InitializeController ();
    if (chance.OneIn (4))
        GiveHandler (chance.OneIn (3)); // some hosts do so before they connect
    Connect (chance.OneIn (2) ? host::ConnectionKind::direct : host::ConnectionKind::viaProxies);
    if (!ledger && !chance.OneIn (4))
        GiveHandler (chance.OneIn (3));
    for (const auto& parameter : host::ParameterAccess (*controller).List ())
        if (!parameter.IsReadOnly ())
            ids.push_back (parameter.id);
    if (ids.empty ())
        throw Fault ("the controller has no parameters");
    ++tally.instances;
}

/// After End there is nothing left to do. Without it a fault is on its way, and the process ends.
StripLife::~StripLife ()
{
    connection.Disconnect ();
    if (controller)
        controller->setComponentHandler (nullptr);
}

void StripLife::InitializeComponent ()
{
    if (component->initialize (&host) != kResultOk)
        throw Fault ("the component does not initialize");
}

void StripLife::InitializeController ()
{
    if (controller->initialize (&host) != kResultOk)
        throw Fault ("the controller does not initialize");
}

void StripLife::Connect (host::ConnectionKind kind)
{
    connection.Connect (component, controller, kind);
    connected = kind != host::ConnectionKind::none;
}

void StripLife::Disconnect ()
{
    connection.Disconnect ();
    connected = false;
}

void StripLife::SetUp (double rateHz, int32 blockSize, int32 mode)
{
    Vst::ProcessSetup setup{ mode, Vst::kSample32, blockSize, rateHz };
    processor->setupProcessing (setup);
    promised = static_cast<std::size_t> (std::max (blockSize, 1));
    processMode = mode;
}

void StripLife::SetActive (bool on)
{
    component->activateBus (Vst::kAudio, Vst::kInput, 0, on);
    component->activateBus (Vst::kAudio, Vst::kOutput, 0, on);
    if (component->setActive (on) != kResultOk)
        throw Fault ("the component refuses to change its activity");
    active = on;
}

void StripLife::SetProcessing (bool on)
{
    processor->setProcessing (on); // an effect without anything to do here answers "not implemented"
}

void StripLife::GiveHandler (bool echoes)
{
    ReplaceHandler (std::make_unique<EditLedger> (*controller, tally, echoes));
}

void StripLife::TakeHandler ()
{
    ReplaceHandler (nullptr);
}

void StripLife::ReplaceHandler (std::unique_ptr<EditLedger> next)
{
    controller->setComponentHandler (next ? &next->Handler () : nullptr);
    ledger.swap (next);
    if (next)
        next->CheckAllEnded ();
}

void StripLife::CheckEdits () const
{
    if (ledger)
        ledger->Check ();
}

void StripLife::StartAgain (Chance& chance)
{
    if (chance.OneIn (2))
        Disconnect ();
    const std::size_t which = chance.Below (3);
    if (which != 0)
    {
        controller->terminate ();
        if (ledger)
            ledger->CheckAllEnded ();
        ledger.reset (); // the controller has let go of it
        InitializeController ();
    }
    if (which != 1)
    {
        component->terminate ();
        InitializeComponent ();
        active = false;
    }
    Disconnect ();
    Connect (chance.OneIn (2) ? host::ConnectionKind::direct : host::ConnectionKind::viaProxies);
}

void StripLife::End (Chance& chance)
{
    if (!chance.OneIn (4) && active)
    {
        SetProcessing (false);
        SetActive (false);
    }
    if (!chance.OneIn (3))
        Disconnect ();
    if (chance.OneIn (2))
    {
        EndController (chance);
        EndComponent (chance);
    }
    else
    {
        EndComponent (chance);
        EndController (chance);
    }
    Disconnect ();
    controller = nullptr;
    processor = nullptr;
    component = nullptr;
    if (ledger)
        ledger->CheckAllEnded ();
}

void StripLife::EndController (Chance& chance)
{
    if (chance.OneIn (2))
        TakeHandler ();
    controller->terminate ();
    if (ledger)
        ledger->CheckAllEnded ();
}

void StripLife::EndComponent (Chance& chance)
{
    if (!chance.OneIn (6)) // some hosts just drop it
        component->terminate ();
}

} // namespace tessaly::soak
