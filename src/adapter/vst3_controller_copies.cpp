#include "live_effect.h"
#include "vst3_controller_wrapper.h"
#include <algorithm>

// The controller: the other copies of the plug-in on a track of Ardour's.

namespace tessaly
{

using namespace Steinberg;

namespace ardour
{
DEF_CLASS_IID (ICopyHandler)
}

namespace
{

/// The effect of a copy's controller; null for a foreign one, and for one without an effect.
std::shared_ptr<LiveEffect> LifeOf (Vst::IEditController* controller)
{
    ZEffect* effect = nullptr;
    auto* const copy = FCast<ZVst3ControllerWrapper> (controller);
    return copy != nullptr && copy->GetInfo (kCodeEffect, &effect) ? LiveEffect::Find (effect) : nullptr;
}

} // namespace

tresult PLUGIN_API ZVst3ControllerWrapper::addSlave (Vst::IEditController* copy, int32)
{
    const auto added = LifeOf (copy);
    if (LatePoints () == nullptr || !added || added == life)
        return kResultFalse;
    copies.emplace_back (added);
    return kResultOk;
}

tresult PLUGIN_API ZVst3ControllerWrapper::removeSlave (Vst::IEditController* copy)
{
    const auto removed = LifeOf (copy);
    std::erase_if (copies, [&] (const auto& kept) { return kept.expired () || kept.lock () == removed; });
    return kResultOk;
}

void ZVst3ControllerWrapper::UpdateCopies ()
{
    if (!HasEffect ()) // it may have ended while the host was told
        return;
    for (const auto& kept : copies)
        if (const auto copy = kept.lock (); copy && !copy->HasEnded ())
            copy->TakeStateOf (*life);
}

} // namespace tessaly
