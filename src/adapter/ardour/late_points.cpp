#include "late_points.h"

#include "channel_strip_parameters.h"
#include "effect.h"
#include "parameter_storage_base.h"
#include <algorithm>
#include <bit>
#include <utility>

namespace tessaly::ardour
{

namespace
{

constexpr std::uint32_t kEmpty = 0xFFFFFFFF; // a NaN, which no point is
constexpr auto kMorph = static_cast<std::uint32_t> (IndexOf (StripParameter::morph));

} // namespace

LatePoints::LatePoints (ZEffect& effectOfInstance, ZParameterStorageBase& storageOfEffect, std::function<void ()> moved,
                        TickClock tickClock)
    : effect (effectOfInstance)
    , storage (storageOfEffect)
    , onMoved (std::move (moved))
    , clock (tickClock)
    , cells (static_cast<std::size_t> (storage.GetParameterCount ()))
    , rules (cells.size ())
{
    for (auto& cell : cells)
        cell.store (kEmpty, std::memory_order_relaxed);
}

void LatePoints::Note (std::uint32_t id, float value)
{
    if (id < cells.size ())
        cells[id].store (std::bit_cast<std::uint32_t> (value), std::memory_order_release);
}

void LatePoints::OnBlock (bool isOffline)
{
    offline.store (isOffline, std::memory_order_relaxed);
    blocksRun.store (true, std::memory_order_release);
}

void LatePoints::DeliverOffline ()
{
    const std::scoped_lock lock (mutex);
    DeliverLocked (false);
}

void LatePoints::DeliverAhead ()
{
    if (const Exclusion lock (mutex, std::try_to_lock); lock)
        DeliverLocked (false);
}

void LatePoints::Deliver ()
{
    const std::scoped_lock lock (mutex);
    DeliverLocked (true);
}

void LatePoints::Forget ()
{
    const std::scoped_lock lock (mutex);
    for (auto& cell : cells)
        cell.store (kEmpty, std::memory_order_relaxed);
}

/// "Morph" is taken out first, too: what a block notes ahead of it is then there, or newer.
void LatePoints::DeliverLocked (bool byRules)
{
    const bool run = blocksRun.load (std::memory_order_acquire);
    bool moved = kMorph < cells.size () && DeliverCell (kMorph, byRules);
    for (std::uint32_t id = 0; id < cells.size (); ++id)
        moved = (id != kMorph && DeliverCell (id, byRules)) || moved;
    if (run && anyWaits)
        EndWaits ();
    if (moved)
        onMoved ();
}

bool LatePoints::DeliverCell (std::uint32_t id, bool byRules)
{
    if (cells[id].load (std::memory_order_relaxed) == kEmpty)
        return false;
    const auto bits = cells[id].exchange (kEmpty, std::memory_order_acquire);
    rules[id].newest = bits;
    const auto value = std::bit_cast<float> (bits);
    const bool isEcho = IsEcho (rules[id], bits, byRules);
    if (isEcho || (byRules && IsQuiet (rules[id])) || IsSameStep (id, value))
        return false;
    effect.SetParameter (static_cast<std::int32_t> (id), value);
    return true;
}

bool LatePoints::IsSameStep (std::uint32_t id, float value) const
{
    const auto index = static_cast<std::int32_t> (id);
    return storage.NormalizedToPlain (index, value) == storage.GetPlain (index);
}

bool LatePoints::IsQuiet (Rule& rule) const
{
    rule.quiet = rule.quiet && static_cast<std::int32_t> (rule.quietEndMs - clock ()) > 0;
    return rule.held || rule.quiet;
}

/// A time that is running is never cut short.
void LatePoints::Silence (Rule& rule, std::uint32_t durationMs)
{
    const auto end = clock () + durationMs;
    if (!rule.quiet || static_cast<std::int32_t> (end - rule.quietEndMs) > 0)
        rule.quietEndMs = end;
    rule.quiet = true;
}

void LatePoints::Hold (std::uint32_t id)
{
    const std::scoped_lock lock (mutex);
    if (id < rules.size ())
        rules[id].held = true;
}

void LatePoints::LetGo (std::uint32_t id)
{
    const std::scoped_lock lock (mutex);
    if (id >= rules.size () || !rules[id].held)
        return;
    rules[id].held = false;
    Silence (rules[id], kAfterEditMs);
}

void LatePoints::OnEdited (std::uint32_t id)
{
    const std::scoped_lock lock (mutex);
    if (id < rules.size ())
        Silence (rules[id], kAfterEditMs);
}

void LatePoints::OnRead (std::uint32_t id, float value)
{
    const std::scoped_lock lock (mutex);
    if (id >= rules.size ())
        return;
    AddEcho (rules[id], std::bit_cast<std::uint32_t> (value), false);
}

/// A value whose point has come already is no echo to come.
void LatePoints::OnEachTold (std::uint32_t id, float value)
{
    const std::scoped_lock lock (mutex);
    const auto bits = std::bit_cast<std::uint32_t> (value);
    if (id < rules.size () && rules[id].newest != bits)
        AddEcho (rules[id], bits, true);
}

void LatePoints::AddEcho (Rule& rule, std::uint32_t bits, bool isOnce)
{
    const bool waits = !blocksRun.load (std::memory_order_acquire);
    rule.echoes[rule.nextEcho] = { bits, clock () + kAfterEditMs, isOnce, waits };
    rule.nextEcho = (rule.nextEcho + 1) % rule.echoes.size ();
    anyWaits = anyWaits || waits;
}

/// An offline block knows no other echoes than those of the time before the first block.
bool LatePoints::IsEcho (Rule& rule, std::uint32_t bits, bool byRules) const
{
    const auto matches = [&] (const Echo& echo)
    {
        const bool runs = byRules && static_cast<std::int32_t> (echo.endMs - clock ()) > 0;
        return echo.bits == bits && (echo.waits || runs);
    };
    const auto found = std::find_if (rule.echoes.begin (), rule.echoes.end (), matches);
    if (found == rule.echoes.end ())
        return false;
    if (found->isOnce)
        *found = {};
    return true;
}

/// The first block's points have been looked at.
void LatePoints::EndWaits ()
{
    for (auto& rule : rules)
        for (auto& echo : rule.echoes)
            if (std::exchange (echo.waits, false))
                echo.endMs = clock () + kAfterEditMs;
    anyWaits = false;
}

bool LatePoints::IsNewest (std::uint32_t id, float value)
{
    const std::scoped_lock lock (mutex);
    return id < rules.size () && rules[id].newest == std::bit_cast<std::uint32_t> (value);
}

void LatePoints::OnToldByHost (std::uint32_t id, float value)
{
    const std::scoped_lock lock (mutex);
    if (id >= rules.size ())
        return;
    const auto bits = cells[id].exchange (kEmpty, std::memory_order_acquire);
    const auto newest = bits != kEmpty ? bits : rules[id].newest;
    rules[id].newest = newest;
    if (newest != std::bit_cast<std::uint32_t> (value))
        Silence (rules[id], kAfterToldMs);
}

} // namespace tessaly::ardour
