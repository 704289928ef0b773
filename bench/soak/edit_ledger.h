#pragma once

#include "component_handler.h"
#include "tally.h"

#include <set>
#include <string>

namespace tessaly::soak
{

/// One component handler with a book of the edits that it hears. An edit begins once, performs within its brackets
/// only, with values from 0 to 1, and ends once.
///
/// The plug-in calls in, so a fault is written down and thrown later.
class EditLedger
{
public:
    /// @param edited    not owned: the strip's, outlives this object
    /// @param runTally  not owned: the run's
    /// @param echoes    answers each value with setting it, as some hosts do
    EditLedger (Steinberg::Vst::IEditController& edited, Tally& runTally, bool echoes);

    host::ComponentHandler& Handler () { return handler; }

    void Check () const;         ///< @throws Fault when a call came out of turn
    void CheckAllEnded () const; ///< for the time after the controller has let go. @throws Fault

private:
    void Hear (const host::HandlerCall& call);
    void Complain (const char* what, Steinberg::Vst::ParamID id);

    host::ComponentHandler handler;
    Steinberg::Vst::IEditController& controller; // not owned: the strip's
    Tally& tally;                                // not owned: the run's
    bool echoesValues;
    std::set<Steinberg::Vst::ParamID> open;
    std::string fault; ///< the first one; empty for none
};

} // namespace tessaly::soak
