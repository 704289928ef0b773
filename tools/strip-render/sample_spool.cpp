#include "sample_spool.h"

#include "input_file.h"
#include "render_error.h"

namespace tessaly::render
{

SampleSpool::SampleSpool ()
    : file (fdopen (OpenUnnamedFile (), "w+b"))
{
    if (!file)
        throw RenderError ("no temporary file can be made");
}

void SampleSpool::Write (std::span<const float> samples)
{
    if (std::fwrite (samples.data (), sizeof (float), samples.size (), file.get ()) != samples.size ())
        throw RenderError ("the folder for temporary files has no room for the result; TMPDIR names another");
}

void SampleSpool::Rewind ()
{
    if (std::fflush (file.get ()) != 0)
        throw RenderError ("the folder for temporary files has no room for the result; TMPDIR names another");
    std::rewind (file.get ());
}

std::size_t SampleSpool::Read (std::span<float> samples)
{
    const auto count = std::fread (samples.data (), sizeof (float), samples.size (), file.get ());
    if (std::ferror (file.get ()) != 0)
        throw RenderError ("a temporary file cannot be read");
    return count;
}

} // namespace tessaly::render
