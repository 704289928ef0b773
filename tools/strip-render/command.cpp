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
#include <memory>

namespace tessaly::render
{

namespace
{

void RenderOne (RenderSession& session, const Options& options)
{
    // Sound may go to standard output, under whatever name; what is told then goes to standard error
    std::ostream& told = IsStream (options.output) ? std::cerr : std::cout;
    const Summary summary = RenderFile (session, options);
    if (options.json)
        Print (told, ToJson (summary, options.dryRun));
    else if (options.quiet)
        return;
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
    std::unique_ptr<host::PendingFile> state; // ahead of the render, so that neither comes without the other
    if (options.saveState && !options.dryRun)
        state = session.PrepareState (*options.saveState, Present (options));
    if (options.list && options.json)
        Print (std::cout, ToJson (session.Parameters ()));
    else if (options.list)
        PrintParameters (std::cout, session.Parameters ());
    if (options.RendersBatch ())
        return RenderBatch (session, options);
    if (options.Renders ())
        RenderOne (session, options);
    if (state)
        state->Commit ();
    return 0;
}

} // namespace tessaly::render
