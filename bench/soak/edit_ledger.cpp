#include "edit_ledger.h"

#include "fault.h"

namespace tessaly::soak
{

using Kind = host::HandlerCall::Kind;

EditLedger::EditLedger (Steinberg::Vst::IEditController& edited, Tally& runTally, bool echoes)
    : handler ([this] (const host::HandlerCall& call) { Hear (call); })
    , controller (edited)
    , tally (runTally)
    , echoesValues (echoes)
{
}

void EditLedger::Hear (const host::HandlerCall& call)
{
    switch (call.kind)
    {
    case Kind::beginEdit:
        if (!open.insert (call.id).second)
            Complain ("begins twice", call.id);
        break;
    case Kind::performEdit:
        ++tally.edits;
        if (open.count (call.id) == 0)
            Complain ("performs without a beginning", call.id);
        if (!(call.value >= 0.0 && call.value <= 1.0))
            Complain ("performs a value beyond 0 to 1", call.id);
        if (echoesValues)
            controller.setParamNormalized (call.id, call.value);
        break;
    case Kind::endEdit:
        if (open.erase (call.id) == 0)
            Complain ("ends without a beginning", call.id);
        break;
    default:
        break;
    }
}

void EditLedger::Complain (const char* what, Steinberg::Vst::ParamID id)
{
    if (fault.empty ())
        fault = "the edit of parameter " + std::to_string (id) + " " + what;
}

void EditLedger::Check () const
{
    if (!fault.empty ())
        throw Fault (fault);
}

void EditLedger::CheckAllEnded () const
{
    Check ();
    if (!open.empty ())
        throw Fault ("the edit of parameter " + std::to_string (*open.begin ()) + " has not ended, nor have " +
                     std::to_string (open.size () - 1) + " more");
}

} // namespace tessaly::soak
