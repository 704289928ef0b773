#include "command.h"

#include "batch.h"
#include "file_render.h"
#include "input_file.h"
#include "json_report.h"
#include "loudness_meter.h"
#include "page_file.h"
#include "path_checks.h"
#include "report.h"

#include <iostream>

namespace tessaly::render
{

namespace
{

void RenderOne (RenderSession& session, const Options& options)
{
    // Sound may go to standard output, under whatever name; what is told then goes to standard error
    std::ostream& told = IsStream (options.output) ? std::cerr : std::cout;
    const Summary summary = RenderFile (session, options);
    if (options.quiet)
        return;
    if (options.json)
        Print (told, ToJson (summary, options.dryRun));
    else if (options.dryRun)
        PrintPlan (told, summary);
    else
        PrintSummary (told, summary);
}

} // namespace

int RunCommand (const Options& options)
{
    CheckPaths (options);
    if (options.loudness || options.matchLoudness)
        LoudnessMeter::RequireBuilt ();
    if (options.plot)
        plot::RequirePlots ();
    RenderSession session (options);
    if (options.list && options.json)
        Print (std::cout, ToJson (session.Parameters ()));
    else if (options.list)
        PrintParameters (std::cout, session.Parameters ());
    if (options.RendersBatch ())
        return RenderBatch (session, options);
    if (options.Renders ())
        RenderOne (session, options);
    if (options.saveState && !options.dryRun)
        session.Save (*options.saveState, Present (options));
    return 0;
}

} // namespace tessaly::render
