#pragma once

#include "bundle.h"
#include "chance.h"
#include "connection.h"
#include "edit_ledger.h"
#include "named_host.h"
#include "tally.h"

#include "pluginterfaces/vst/ivstaudioprocessor.h"
#include "pluginterfaces/vst/ivstcomponent.h"

#include <memory>
#include <vector>

namespace tessaly::soak
{

/// One instance from its making to its end, and what a host knows of it meanwhile. Unlike the host library's instance
/// it can be led out of order: a host's mistakes are part of the soak. Main thread, but for Processor.
class StripLife
{
public:
    /// @param from       the instance keeps a copy
    /// @param hostToUse  not owned: the run's, outlives the instance
    /// @param runTally   not owned: the run's
    /// @throws Fault when a half is missing or refuses to initialize
    StripLife (const host::Bundle& from, host::NamedHost& hostToUse, Chance& chance, Tally& runTally);
    ~StripLife ();

    StripLife (const StripLife&) = delete;
    StripLife& operator= (const StripLife&) = delete;

    void Connect (host::ConnectionKind kind);
    void Disconnect ();
    bool IsConnected () const { return connected; } ///< so the controller has the component's parameters

    void SetUp (double rateHz, Steinberg::int32 blockSize, Steinberg::int32 mode);
    void SetActive (bool on);
    void SetProcessing (bool on);
    bool IsActive () const { return active; }
    std::size_t BlockSize () const { return promised; } ///< of the last SetUp; at least 1
    Steinberg::int32 Mode () const { return processMode; }

    void GiveHandler (bool echoes); ///< a new one in place of the old one. @throws Fault when that has an edit open
    void TakeHandler ();            ///< @throws Fault as well

    /// Terminates one half or both, connected or not, and begins anew. @throws Fault
    void StartAgain (Chance& chance);

    /// Ends the instance in one of the orders seen in hosts, some of them without asking. Call it once, last.
    /// @throws Fault when an edit stays open
    void End (Chance& chance);

    void CheckEdits () const; ///< @throws Fault when the controller has told its host nonsense

    Steinberg::Vst::IComponent& Component () const { return *component; }
    Steinberg::Vst::IAudioProcessor& Processor () const { return *processor; }
    Steinberg::Vst::IEditController& Controller () const { return *controller; }
    const std::vector<Steinberg::Vst::ParamID>& ParameterIds () const { return ids; } ///< without the meters

private:
    void InitializeComponent ();
    void InitializeController ();
    void EndComponent (Chance& chance);
    void EndController (Chance& chance);
    void ReplaceHandler (std::unique_ptr<EditLedger> next);

    host::Bundle bundle;                // first in, last out: every pointer below leads into its library
    host::NamedHost& host;              // not owned: the run's
    Tally& tally;                       // not owned: the run's
    std::unique_ptr<EditLedger> ledger; // of the handler that the controller has; null for none
    Steinberg::IPtr<Steinberg::Vst::IComponent> component;
    Steinberg::IPtr<Steinberg::Vst::IAudioProcessor> processor;
    Steinberg::IPtr<Steinberg::Vst::IEditController> controller;
    host::Connection connection;
    std::vector<Steinberg::Vst::ParamID> ids;
    bool connected = false;
    bool active = false;
    std::size_t promised = 1;
    Steinberg::int32 processMode = Steinberg::Vst::kRealtime;
};

} // namespace tessaly::soak
