#include "edit_brackets.h"

#include <algorithm>

namespace tessaly
{

namespace
{

bool Contains (const std::vector<std::uint32_t>& ids, std::uint32_t id)
{
    return std::find (ids.begin (), ids.end (), id) != ids.end ();
}

} // namespace

void EditBrackets::BeginHeld (std::uint32_t id, std::uint32_t nowMs)
{
    if (!Contains (held, id))
    {
        held.push_back (id);
        host.BeginHostEdit (id);
    }
    std::erase (timed, id);
    heldClock = { nowMs, true };
}

void EditBrackets::RenewHeld (std::uint32_t nowMs)
{
    if (!held.empty ())
        heldClock = { nowMs, true };
}

void EditBrackets::EndHeld (std::uint32_t id)
{
    std::erase (timed, id);
    if (std::erase (held, id) != 0)
        host.EndHostEdit (id); // last: the host may come back in from here
}

void EditBrackets::BeginTimed (std::uint32_t id, std::uint32_t nowMs)
{
    if (!Contains (held, id) && !Contains (timed, id))
    {
        timed.push_back (id);
        host.BeginHostEdit (id);
    }
    timedClock = { nowMs, true };
}

void EditBrackets::EndTimed (std::uint32_t id)
{
    if (std::erase (timed, id) != 0 && !Contains (held, id))
        host.EndHostEdit (id);
}

bool EditBrackets::IsOpen (std::uint32_t id) const
{
    return Contains (held, id) || Contains (timed, id);
}

void EditBrackets::EndAllHeld ()
{
    while (!held.empty ())
        EndHeld (held.back ());
}

void EditBrackets::EndAllTimed ()
{
    while (!timed.empty ())
        EndTimed (timed.back ());
}

void EditBrackets::EndExpired (std::uint32_t nowMs)
{
    if (heldClock.IsExpired (nowMs))
    {
        heldClock.running = false;
        EndAllHeld ();
    }
    if (timedClock.IsExpired (nowMs))
    {
        timedClock.running = false;
        EndAllTimed ();
    }
}

} // namespace tessaly
