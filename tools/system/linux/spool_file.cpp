#include "spool_file.h"

#include "open_files.h"
#include <string>

namespace tessaly::tools
{

SpoolFile::SpoolFile ()
    : descriptor (OpenTemporary ())
    , path ("/proc/self/fd/" + std::to_string (descriptor)) // no other path leads to it
{
}

SpoolFile::~SpoolFile ()
{
    if (descriptor >= 0)
        Close (descriptor);
}

} // namespace tessaly::tools
