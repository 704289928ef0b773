#include "picture_files.h"

#include "pending_file.h"
#include <fstream>
#include <memory>
#include <stdexcept>

namespace tessaly::stage
{

void WritePictures (const Pictures& pictures, const std::filesystem::path& folder)
{
    std::vector<std::unique_ptr<host::PendingFile>> files;
    for (const auto& [name, png] : pictures)
    {
        auto& pending = *files.emplace_back (std::make_unique<host::PendingFile> (folder / (name + ".png")));
        std::ofstream file (pending.WorkingPath (), std::ios::binary);
        file.write (reinterpret_cast<const char*> (png.data ()), static_cast<std::streamsize> (png.size ()));
        if (!file.flush ())
            throw std::runtime_error ("\"" + pending.Target ().string () + "\" can't be written");
    }
    for (const auto& file : files)
        file->Commit ();
}

} // namespace tessaly::stage
