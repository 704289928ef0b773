#pragma once

#include <cstdint>

namespace tessaly
{

class ZEffect;

/// One effect on the lists of those that are alive in this module. The controller gets its effect as raw bytes in a
/// message, and hosts have been seen to deliver messages late, twice or to the wrong half: a pointer that is not listed
/// is not used. Nor is one whose effect has gone without a word and has left its address to another: each life has a
/// number. Every call of the host asks, so there are many short lists, by the effect's address.
///
/// Some hosts end instances on a thread of their own, so the lists have a lock; the audio thread never comes here.
/// Nothing of it needs destruction: some hosts tear instances down from `exit`, after the module's statics have gone.
class LiveEffect
{
public:
    LiveEffect () = default;
    ~LiveEffect () { Remove (); }
    LiveEffect (const LiveEffect&) = delete;
    LiveEffect& operator= (const LiveEffect&) = delete;

    void Add (const ZEffect* newEffect); ///< lists it in place of what was listed through this object
    void Remove ();

    static std::uint64_t LifeOf (const ZEffect* effect); ///< never the same number again; 0 when not listed, or null

private:
    const ZEffect* effect = nullptr; // not owned: whoever owns this object
    std::uint64_t life = 0;
    LiveEffect* next = nullptr; // not owned: the next one of the same list
};

} // namespace tessaly
