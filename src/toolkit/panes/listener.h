#pragma once

#include <cstdint>
#include <vector>

namespace tessaly
{

class ZBroadcaster;
class ZControl;

/// The other side of ZBroadcaster.
class ZListener
{
public:
    ZListener () = default;
    virtual ~ZListener ();
    ZListener (const ZListener&) = delete;
    ZListener& operator= (const ZListener&) = delete;

    bool AddBroadcaster (ZBroadcaster* broadcaster);    ///< borrowed. @return false for null and for one that is there
    bool RemoveBroadcaster (ZBroadcaster* broadcaster); ///< @return false for what is not there
    bool HasBroadcaster (const ZBroadcaster* broadcaster) const;
    void SetListenEnabled (bool on) { enabled = on; }
    bool IsListenEnabled () const { return enabled; }

    virtual void OnValue (std::int32_t /*id*/, float /*value*/) {}
    virtual void OnMessage (std::int32_t /*message*/, ZControl* /*sender*/) {}

private:
    std::vector<ZBroadcaster*> broadcasters; // not owned: each takes itself out when it ends
    bool enabled = true;
};

} // namespace tessaly
