#include "listener.h"

#include "broadcaster.h"
#include <algorithm>

namespace tessaly
{

ZListener::~ZListener ()
{
    while (!broadcasters.empty ())
        RemoveBroadcaster (broadcasters.back ());
}

bool ZListener::AddBroadcaster (ZBroadcaster* broadcaster)
{
    if (broadcaster == nullptr || HasBroadcaster (broadcaster))
        return false;
    broadcasters.push_back (broadcaster);
    broadcaster->AddListener (this);
    return true;
}

bool ZListener::RemoveBroadcaster (ZBroadcaster* broadcaster)
{
    if (std::erase (broadcasters, broadcaster) == 0)
        return false;
    broadcaster->RemoveListener (this);
    return true;
}

bool ZListener::HasBroadcaster (const ZBroadcaster* broadcaster) const
{
    return std::find (broadcasters.begin (), broadcasters.end (), broadcaster) != broadcasters.end ();
}

} // namespace tessaly
