#pragma once

#include "effect.h"
#include "effect_listener.h"
#include "guarded_pointer.h"
#include "late_points.h"
#include <atomic>
#include <memory>

namespace tessaly
{

/// One effect and what it looks at: made and ended by the processor, shared with the controller. A host may end the
/// processor on one thread while it calls the controller on another, and may lose the message that tells of it: core,
/// storage and buffers live until the last of the two lets go, and HasEnded tells the controller that it should.
///
/// The controller gets its effect as raw bytes in a message, and hosts have been seen to deliver messages late, twice or
/// to the wrong half. So the effects that are alive in this module are listed, and a pointer that is not is not used.
///
/// It is also the face that the effect sees: it calls the editor, and hands all else to the processor while that is
/// there. The list has a lock, which the audio thread never meets: neither it nor the controller's parameter calls come
/// to Find. Nothing of it needs destruction: some hosts tear instances down from `exit`, after the module's statics have
/// gone.
class LiveEffect final : public ZEffectWrapper, public std::enable_shared_from_this<LiveEffect>
{
public:
    /// @param processor  not owned: itself, which calls End before it goes
    explicit LiveEffect (ZEffectWrapper& processor)
        : host (&processor)
    {
    }
    ~LiveEffect () override; ///< shuts the effect down
    LiveEffect (const LiveEffect&) = delete;
    LiveEffect& operator= (const LiveEffect&) = delete;

    /// Takes over the effect of this life, which has this object as its wrapper.
    void Adopt (std::unique_ptr<ZEffect> newEffect) { effect = std::move (newEffect); }
    void List (); ///< from here on Find finds it

    /// The processor's part is over: the editor is told to let go of core, storage and meters, then nobody is told of
    /// anything any more. Waits for calls into the processor that other threads are in.
    void End ();
    bool HasEnded () const { return ended.load (std::memory_order_acquire); } ///< any thread

    /// The whole state of another life's effect, whose values are told from here on. Not the audio thread.
    void TakeStateOf (LiveEffect& other);

    /// In Ardour alone. Set once, before List.
    void SetLatePoints (std::unique_ptr<ardour::LatePoints> points) { latePoints = std::move (points); }
    ardour::LatePoints* LatePoints () const { return latePoints.get (); } ///< null in every other host
    /// Late points wait while it lives, so that values are read and set as of one moment; holds nothing elsewhere.
    [[nodiscard]] ardour::LatePoints::Exclusion ExcludeLatePoints () const;

    /// Values reached the storage by another road than the controller: points of a block, or a state. Any thread.
    void MarkValuesMoved () { valuesMoved.store (true, std::memory_order_release); }
    /// @return whether they have since the last call; the values themselves are seen then
    bool TakeValuesMoved () { return valuesMoved.load () && valuesMoved.exchange (false, std::memory_order_acquire); }

    static std::shared_ptr<LiveEffect> Find (const ZEffect* effect); ///< null when not listed; takes the list's lock

    ZEffect* Effect () const { return effect.get (); }            ///< null until Adopt
    GuardedPointer<ZEffectListener>& Editor () { return editor; } ///< the open editor, not owned: the view's

    // ZEffectWrapper
    bool NotifyEditor (std::int32_t code, void* data) override;
    bool NotifyEditor2 (std::int32_t code, void* data) override;
    void GetTimeInfo (ZTimeInfo* info) override;
    std::int32_t GetHostName (char* buffer) override;

private:
    void Unlist ();

    GuardedPointer<ZEffectWrapper> host;    // not owned: the processor; null after End
    GuardedPointer<ZEffectListener> editor; // not owned: the view's
    std::unique_ptr<ZEffect> effect;        // ahead of what it looks at
    std::unique_ptr<ardour::LatePoints> latePoints;
    std::atomic<bool> ended = false;
    std::atomic<bool> valuesMoved = false;
    bool listed = false;        // the list's lock
    LiveEffect* next = nullptr; // not owned: the next one of the list; the list's lock
};

} // namespace tessaly
