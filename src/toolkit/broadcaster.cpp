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

void ZBroadcaster::BroadcastValue (std::int32_t id, float value)
{
    for (std::size_t i = 0; enabled && i < listeners.size (); ++i) // by index: a listener may leave while it is told
        if (listeners[i]->IsListenEnabled ())
            listeners[i]->OnValue (id, value);
}

void ZBroadcaster::BroadcastMessage (std::int32_t message, ZControl* sender)
{
    for (std::size_t i = 0; enabled && i < listeners.size (); ++i)
        if (listeners[i]->IsListenEnabled ())
            listeners[i]->OnMessage (message, sender);
}

} // namespace tessaly
