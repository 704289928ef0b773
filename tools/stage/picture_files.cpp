#include "picture_files.h"

#include "pending_file.h"
#include <fstream>
#include <memory>
#include <stdexcept>

namespace tessaly::stage
{

namespace
{

cairo_status_t AppendBytes (void* png, const unsigned char* bytes, unsigned int count)
{
    const auto* begin = reinterpret_cast<const std::byte*> (bytes);
    static_cast<Png*> (png)->insert (static_cast<Png*> (png)->end (), begin, begin + count);
    return CAIRO_STATUS_SUCCESS;
}

} // namespace

Png PngOf (cairo_surface_t* pixels)
{
    Png png;
    const auto status = cairo_surface_write_to_png_stream (pixels, AppendBytes, &png);
    if (status != CAIRO_STATUS_SUCCESS)
        throw std::runtime_error (std::string ("a picture can't be made: ") + cairo_status_to_string (status));
    return png;
}

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
