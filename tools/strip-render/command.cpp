#include "command.h"

#include "batch.h"
#include "file_render.h"
#include "path_checks.h"
#include "report.h"

#include <iostream>

namespace tessaly::render
{

int RunCommand (const Options& options)
{
    CheckPaths (options);
    RenderSession session (options);
    if (options.list && options.json)
        PrintParametersAsJson (std::cout, session.Parameters ());
    else if (options.list)
        PrintParameters (std::cout, session.Parameters ());
    if (options.RendersBatch ())
        return RenderBatch (session, options);
    if (options.Renders ())
        RenderFile (session, options);
    if (options.saveState && !options.dryRun)
        session.Save (*options.saveState, Present (options));
    return 0;
}

} // namespace tessaly::render
