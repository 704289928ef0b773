#pragma once

#include <cstdint>

namespace tessaly
{

class ZEffectListener;

/// What an open view hears of its controller. Host's user-interface thread.
class EditorViewListener
{
public:
    virtual ~EditorViewListener () = default;

    virtual void SetActive (bool state) = 0; ///< the processor was switched on or off
    virtual void OnEffectGone () = 0; ///< comes while core, storage and meters are still there, for the last time
    virtual void OnEffectCame () = 0; ///< a new effect is connected, or the same one again
};

/// What a view asks of the controller that made it. Ids below kFirstMeterId are indexes of the storage, values are
/// normalized. Host's user-interface thread.
class EditorController
{
public:
    virtual ~EditorController () = default;

    virtual bool QueryEffect (std::int32_t kind, void* out) = 0;
    /// EffectCode kinds; the meter buffer is the controller's own, the rest is the effect's. false without an effect
    virtual bool GetInfo (std::int32_t kind, void* out) = 0;

    /// Sets a value as the user does and reports it to the host.
    virtual void SetParameterFromEditor (std::uint32_t id, float value) = 0;
    virtual void BeginHeldEdit (std::uint32_t id) = 0;
    virtual void EndAllHeldEdits () = 0;
    virtual void EndAllTimedEdits () = 0;
    virtual void RenewHeldEdits () = 0; ///< the user still holds them: their two seconds begin anew
    /// Reports the storage's value of parameter `index`, or of all that differ for -1, after a change by a side door.
    /// An index that there is none of does nothing.
    virtual void SyncParameter (std::int32_t index) = 0;

    /// From here on the editor hears the effect's events, on whatever thread causes them, and those of every effect that
    /// is connected later. One editor at a time: the newest.
    virtual void ConnectEditor (ZEffectListener& editor) = 0;
    /// When it has returned, no thread is inside the editor's OnEffectEvent but, perhaps, the calling one.
    virtual void DisconnectEditor (ZEffectListener& editor) = 0;

    virtual bool HasEffect () const = 0;
    virtual bool IsActive () const = 0;                  ///< the processor's state
    virtual void AddView (EditorViewListener& view) = 0; ///< not owned: hears of changes until it is removed
    virtual void RemoveView (EditorViewListener& view) = 0;
};

} // namespace tessaly
