#pragma once

#include <filesystem>

namespace tessaly::tools
{

/// A temporary file that others can open by a path as long as this lives, and that goes with it.
class SpoolFile
{
public:
    SpoolFile (); ///< with a descriptor of -1, and the reason in errno, when there can be none
    ~SpoolFile ();

    SpoolFile (const SpoolFile&) = delete;
    SpoolFile& operator= (const SpoolFile&) = delete;

    int Descriptor () const { return descriptor; }
    const std::filesystem::path& Path () const { return path; }

private:
    int descriptor = -1;
    std::filesystem::path path;
};

} // namespace tessaly::tools
