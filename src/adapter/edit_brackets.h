#pragma once

#include <cstdint>
#include <vector>

namespace tessaly
{

/// Where the brackets of a host edit go.
class EditHost
{
public:
    virtual ~EditHost () = default;
    virtual void BeginHostEdit (std::uint32_t id) = 0;
    virtual void EndHostEdit (std::uint32_t id) = 0;
};

/// The host edits that are open: those that the user holds, and those that end by themselves two seconds after their
/// last change. Host's user-interface thread; times are milliseconds of a wrapping clock.
class EditBrackets
{
public:
    static constexpr std::uint32_t kLifetimeMs = 2000;

    /// @param host  not owned: outlives this object
    explicit EditBrackets (EditHost& editHost)
        : host (editHost)
    {
    }

    /// Opens an edit that the user is holding. A timed edit of the same id is taken over without an end.
    void BeginHeld (std::uint32_t id, std::uint32_t nowMs);
    void RenewHeld (std::uint32_t nowMs); ///< the two seconds of all held edits begin anew
    /// Ends a held edit; a timed one of the same id is dropped with it.
    void EndHeld (std::uint32_t id);
    /// Opens an edit unless one of this id is open; the two seconds of all timed edits begin anew.
    void BeginTimed (std::uint32_t id, std::uint32_t nowMs);
    void EndTimed (std::uint32_t id);
    bool IsOpen (std::uint32_t id) const; ///< by either way
    void EndAllHeld ();                   ///< last one first
    void EndAllTimed ();                  ///< last one first

    /// Ends each group whose last change lies more than two seconds back.
    void EndExpired (std::uint32_t nowMs);

private:
    /// The time of a group's last change, and whether it still has something to end.
    struct Clock
    {
        std::uint32_t lastChangeMs = 0;
        bool running = false;
        bool IsExpired (std::uint32_t nowMs) const { return running && nowMs - lastChangeMs > kLifetimeMs; }
    };

    EditHost& host; // not owned: the controller
    std::vector<std::uint32_t> held;
    std::vector<std::uint32_t> timed;
    Clock heldClock;
    Clock timedClock;
};

} // namespace tessaly
