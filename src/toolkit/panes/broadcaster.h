#pragma once

#include <cstdint>
#include <vector>

namespace tessaly
{

class ZControl;
class ZListener;

/// Tells listeners what a user wants of a value. The two lists of a broadcaster and its listeners mirror each other:
/// attaching one side attaches the other, and an end on either side detaches both. Host's user-interface thread.
class ZBroadcaster
{
public:
    ZBroadcaster () = default;
    virtual ~ZBroadcaster ();
    ZBroadcaster (const ZBroadcaster&) = delete;
    ZBroadcaster& operator= (const ZBroadcaster&) = delete;

    bool AddListener (ZListener* listener);    ///< borrowed. @return false for null and for one that is there
    bool RemoveListener (ZListener* listener); ///< @return false for what is not there
    bool HasListener (const ZListener* listener) const;
    void SetBroadcastEnabled (bool on) { enabled = on; }
    bool IsBroadcastEnabled () const { return enabled; }

    // To each enabled listener in the order of attachment. One that is told may attach and detach any listener, but
    // must not end the broadcaster. Who joins meanwhile is told the next time.
    void BroadcastValue (std::int32_t id, float value);             ///< the wanted one, normalized
    void BroadcastMessage (std::int32_t message, ZControl* sender); ///< a gesture without a value; sender: never null

private:
    template <typename Tell>
    void TellListeners (const Tell& tell) const;

    std::vector<ZListener*> listeners; // not owned: each takes itself out when it ends
    bool enabled = true;
};

} // namespace tessaly
