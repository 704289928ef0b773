#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace tessaly::render
{

/// A bar on standard error for work that takes over a second. Where standard error is no terminal it stays silent.
class Progress
{
public:
    /// @param total  in any unit, the same as that of Update; 0 for a bar that is not to be seen
    explicit Progress (std::int64_t total);
    ~Progress (); ///< wipes

    Progress (const Progress&) = delete;
    Progress& operator= (const Progress&) = delete;

    /// @param note  what else to show, behind the bar
    void Update (std::int64_t done, const std::string& note = {});

    /// Wipes the bar away, ahead of other output.
    void Wipe ();

private:
    using Clock = std::chrono::steady_clock;

    std::int64_t total;
    bool enabled;
    bool drawn = false;
    Clock::time_point nextDraw;
};

/// @param fraction  0 to 1, clamped
/// @return as "[#####-----]  50 %", `cells` marks wide between the brackets
std::string ProgressBar (double fraction, int cells);

} // namespace tessaly::render
