#include "progress.h"

#include "running_process.h"

#include <algorithm>
#include <iostream>

namespace tessaly::render
{

namespace
{

constexpr auto kQuietTime = std::chrono::seconds (1);
constexpr auto kRedrawTime = std::chrono::milliseconds (100);
constexpr int kCells = 40;
constexpr const char* kWipeLine = "\r\x1b[K";

} // namespace

Progress::Progress (std::int64_t allOfIt)
    : total (allOfIt)
    , enabled (tools::IsErrorTerminal ())
    , nextDraw (Clock::now () + kQuietTime)
{
}

Progress::~Progress ()
{
    Wipe ();
}

void Progress::Wipe ()
{
    if (drawn)
        std::cerr << kWipeLine << std::flush;
    drawn = false;
}

void Progress::Update (std::int64_t done, const std::string& note)
{
    if (!enabled || total <= 0)
        return;
    const auto now = Clock::now ();
    if (now < nextDraw)
        return;
    nextDraw = now + kRedrawTime;
    drawn = true;
    std::cerr << kWipeLine << ProgressBar (static_cast<double> (done) / static_cast<double> (total), kCells) << note
              << std::flush;
}

std::string ProgressBar (double fraction, int cells)
{
    const double part = std::clamp (fraction, 0.0, 1.0);
    const std::string percent = std::to_string (static_cast<int> (part * 100.0));
    std::string bar = "[";
    bar.append (static_cast<std::size_t> (part * cells), '#');
    bar.resize (static_cast<std::size_t> (cells) + 1, '-');
    bar += "] ";
    bar.append (3 - percent.size (), ' ');
    bar += percent;
    bar += " %";
    return bar;
}

} // namespace tessaly::render
