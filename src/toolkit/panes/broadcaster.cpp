#include "broadcaster.h"

#include "listener.h"
#include <algorithm>

namespace tessaly
{

ZBroadcaster::~ZBroadcaster ()
{
    while (!listeners.empty ())
        RemoveListener (listeners.back ());
}

bool ZBroadcaster::AddListener (ZListener* listener)
{
    if (listener == nullptr || HasListener (listener))
        return false;
    listeners.push_back (listener);
    listener->AddBroadcaster (this); // calls back here, is refused above, and that ends the exchange
    return true;
}

bool ZBroadcaster::RemoveListener (ZListener* listener)
{
    if (std::erase (listeners, listener) == 0)
        return false;
    listener->RemoveBroadcaster (this);
    return true;
}

bool ZBroadcaster::HasListener (const ZListener* listener) const
{
    return std::find (listeners.begin (), listeners.end (), listener) != listeners.end ();
}

template <typename Tell>
void ZBroadcaster::TellListeners (const Tell& tell) const
{
    if (!enabled)
        return;
    const auto attached = listeners; // a copy: the list may change under way
    for (auto* listener : attached)
        if (HasListener (listener) && listener->IsListenEnabled ())
            tell (*listener);
}

void ZBroadcaster::BroadcastValue (std::int32_t id, float value)
{
    TellListeners ([=] (ZListener& listener) { listener.OnValue (id, value); });
}

void ZBroadcaster::BroadcastMessage (std::int32_t message, ZControl* sender)
{
    TellListeners ([=] (ZListener& listener) { listener.OnMessage (message, sender); });
}

} // namespace tessaly
