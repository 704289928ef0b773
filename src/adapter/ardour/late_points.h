#pragma once

#include "tick_clock.h"
#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <mutex>
#include <vector>

namespace tessaly
{
class ZEffect;
class ZParameterStorageBase;
} // namespace tessaly

namespace tessaly::ardour
{

/// The parameter points of one instance, from the block that brought them to the effect, which gets them from another
/// thread. A cell for each id keeps the newest value; the audio thread writes it, without a lock, and whoever delivers
/// takes it out, so that each reaches the effect once at most. "Morph" goes first, as it moves what the others set; then
/// the ids in their order. A value of the step that the storage holds changes nothing, which keeps an edit on top of a
/// lane that lies flat.
///
/// Points that only repeat what the controller did are stale by the time they come. So the points of an id are dropped
/// while the user holds it and half a second from its last edit, and for a tenth of a second from a host's value that
/// is not the newest point's: then the host tells of the lane itself, late, and the two must not take turns. A value
/// that the host was made to read is dropped when it comes back; another one, set in the meantime, is not. A value that
/// the host told is dropped once, as each comes as a point, too: those of a session that is restored come together in
/// the first block, after the state and beside the lanes, however long that takes.
///
/// Threads: Note and the block's end on the audio thread, all else on any other thread, under a lock of the instance.
class LatePoints
{
public:
    using Exclusion = std::unique_lock<std::recursive_mutex>;

    static constexpr std::uint32_t kAfterEditMs = 500; ///< more than two of the longest blocks and a display's turn
    static constexpr std::uint32_t kAfterToldMs = 100; ///< more than two turns of a display

    /// @param effect   not owned: outlives this object
    /// @param storage  not owned: the effect's
    /// @param moved    called after points moved values, on the thread that delivers
    LatePoints (ZEffect& effect, ZParameterStorageBase& storage, std::function<void ()> moved,
                TickClock tickClock = SteadyTickMs);

    void Note (std::uint32_t id, float value); ///< audio thread; an id without a cell does nothing

    /// Audio thread, at the end of an offline block's points: all that is noted is heard in this block. May wait.
    void DeliverOffline ();
    /// Audio thread, likewise in a bounce that runs in the real-time mode; leaves it to Deliver rather than wait.
    void DeliverAhead ();
    /// Audio thread, once a block, after its points.
    void OnBlock (bool isOffline);
    void OnStop () { blocksRun.store (false, std::memory_order_relaxed); } ///< not the audio thread: no blocks for now
    /// Whether the last block was offline: the host must not be made to send points then, none would be told as stale.
    bool IsOffline () const { return offline.load (std::memory_order_relaxed); }

    void Deliver (); ///< not the audio thread: everything noted, by the rules above

    void Forget (); ///< a state takes the place of what is noted

    void Hold (std::uint32_t id);                ///< the user holds it
    void LetGo (std::uint32_t id);               ///< no more
    void OnEdited (std::uint32_t id);            ///< the host is told of a new value by an edit
    void OnRead (std::uint32_t id, float value); ///< the host is made to read a new value, and will send it as a point
    void OnToldByHost (std::uint32_t id, float value); ///< the host sets the controller's value to another one
    void OnEachTold (std::uint32_t id, float value);   ///< ahead of that, and with a value that is set already, too

    /// Whether this is the newest point of an id, so that the host has it already.
    bool IsNewest (std::uint32_t id, float value);

    /// For a change by the controller: nothing is delivered in the middle of it.
    [[nodiscard]] Exclusion Exclude () { return Exclusion (mutex); }

private:
    using Cell = std::atomic<std::uint32_t>; // the bits of a float; kEmpty: none
    static_assert (Cell::is_always_lock_free, "the audio thread takes no lock");

    /// A value that the host will send back.
    struct Echo
    {
        std::uint32_t bits = 0xFFFFFFFF;
        std::uint32_t endMs = 0;
        bool isOnce = false;
        bool waits = false; // for the first block; endMs is set then
    };

    /// What is known of one id beside its cell.
    struct Rule
    {
        bool held = false;
        bool quiet = false; // until quietEndMs
        std::uint32_t quietEndMs = 0;
        std::array<Echo, 4> echoes{}; // the last ones, in turn
        std::size_t nextEcho = 0;
        std::uint32_t newest = 0xFFFFFFFF; // the bits last taken out of the cell
    };

    void DeliverLocked (bool byRules);
    bool DeliverCell (std::uint32_t id, bool byRules);
    bool IsQuiet (Rule& rule) const;
    bool IsEcho (Rule& rule, std::uint32_t bits, bool byRules) const;
    void AddEcho (Rule& rule, std::uint32_t bits, bool isOnce);
    void EndWaits ();
    void Silence (Rule& rule, std::uint32_t durationMs);
    bool IsSameStep (std::uint32_t id, float value) const;

    ZEffect& effect;                // not owned: the instance's
    ZParameterStorageBase& storage; // not owned: the effect's
    std::function<void ()> onMoved;
    TickClock clock;
    std::vector<Cell> cells;
    std::atomic<bool> offline = false;
    std::atomic<bool> blocksRun = false;
    bool anyWaits = false;
    /// Guards the rules, and each delivery as a whole. Recursive, as the effect tells the editor of what it is given.
    std::recursive_mutex mutex;
    std::vector<Rule> rules;
};

} // namespace tessaly::ardour
