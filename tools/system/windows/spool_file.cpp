#include "spool_file.h"

#include "open_files.h"
#include "running_process.h"
#include "temporary_name.h"
#include <atomic>
#include <fcntl.h>
#include <io.h>
#include <string>
#include <sys/stat.h>

namespace tessaly::tools
{

namespace fs = std::filesystem;

fs::path TemporaryName ()
{
    static std::atomic<int> made = 0; // several threads may make files
    return fs::temp_directory_path () /
           ("strip-render-" + std::to_string (ProcessNumber ()) + "-" + std::to_string (++made));
}

SpoolFile::SpoolFile ()
    : path (TemporaryName ())
{
    descriptor = _wopen (path.c_str (), _O_CREAT | _O_EXCL | _O_RDWR | _O_BINARY | _O_NOINHERIT, _S_IREAD | _S_IWRITE);
}

SpoolFile::~SpoolFile ()
{
    if (descriptor < 0)
        return;
    Close (descriptor);
    std::error_code ignored;
    fs::remove (path, ignored);
}

} // namespace tessaly::tools
