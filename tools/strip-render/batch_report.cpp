#include "batch_report.h"

#include "report.h"
#include "warning.h"

#include <algorithm>
#include <ostream>

namespace tessaly::render
{

std::size_t CountOf (const std::vector<Outcome>& outcomes, Fate fate)
{
    return static_cast<std::size_t> (std::ranges::count (outcomes, fate, &Outcome::fate));
}

void PrintOutcomes (std::ostream& out, const std::vector<Outcome>& outcomes, bool dryRun)
{
    for (const auto& [fate, input, summary, failure] : outcomes)
        if (summary && dryRun)
            PrintPlan (out, *summary);
        else if (summary && summary->outputLoudness)
            out << summary->output.string () << '\n'
                << "    input " << LoudnessText (*summary->inputLoudness) << '\n'
                << "    output " << LoudnessText (*summary->outputLoudness) << '\n';
    out << CountOf (outcomes, Fate::rendered) << (dryRun ? " to render, " : " rendered, ")
        << CountOf (outcomes, Fate::present) << " there already, " << CountOf (outcomes, Fate::noAudio) << " no audio, "
        << CountOf (outcomes, Fate::failed) << " failed\n";
}

Json ToJson (const std::vector<Outcome>& outcomes, bool dryRun)
{
    const auto empty = Json::array ();
    Json json{ { "rendered", empty }, { "present", empty }, { "noAudio", empty }, { "failed", empty } };
    for (const auto& [fate, input, summary, failure] : outcomes)
    {
        if (fate == Fate::rendered)
            json["rendered"].push_back (ToJson (*summary, dryRun));
        else if (fate == Fate::failed)
            json["failed"].push_back ({ { "file", input.string () }, { "reason", failure } });
        else
            json[fate == Fate::present ? "present" : "noAudio"].push_back (input.string ());
    }
    return json;
}

void TellLeftOut (const std::vector<Outcome>& outcomes)
{
    for (const auto& outcome : outcomes)
        if (outcome.fate == Fate::noAudio)
            Warn ("no audio: \"" + outcome.input.string () + "\"");
    for (const auto& outcome : outcomes)
        if (outcome.fate == Fate::failed)
            Warn ("failed: \"" + outcome.input.string () + "\": " + outcome.failure);
}

} // namespace tessaly::render
