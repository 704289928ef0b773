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

    /// To each enabled listener in the order of attachment. The value is the wanted one, normalized.
    void BroadcastValue (std::int32_t id, float value);
    /// A gesture without a value. @param sender  never null
    void BroadcastMessage (std::int32_t message, ZControl* sender);

private:
    std::vector<ZListener*> listeners; // not owned: each takes itself out when it ends
    bool enabled = true;
};

} // namespace tessaly
