#pragma once

#include "json_report.h"
#include "summary.h"

#include <filesystem>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace tessaly::render
{

/// What has become of a file of a batch.
enum class Fate
{
    rendered, ///< or would be
    present,  ///< has a result already
    noAudio,
    failed
};

struct Outcome
{
    Fate fate = Fate::failed;
    std::filesystem::path input;
    std::optional<Summary> summary{}; ///< of a rendered one
    std::string failure{};            ///< why, of one that has failed
};

std::size_t CountOf (const std::vector<Outcome>& outcomes, Fate fate);

/// The counts; ahead of them, a line for each file whose loudness was asked for, or that would be written by a dry run.
void PrintOutcomes (std::ostream& out, const std::vector<Outcome>& outcomes, bool dryRun);

/// All of it, a list for each fate.
Json ToJson (const std::vector<Outcome>& outcomes, bool dryRun);

/// What was no audio and what has failed, on standard error.
void TellLeftOut (const std::vector<Outcome>& outcomes);

} // namespace tessaly::render
