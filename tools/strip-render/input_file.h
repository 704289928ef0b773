#pragma once

#include <cstdint>
#include <filesystem>

namespace tessaly::render
{

/// Bytes that can be read from any place: those of a file, or all that a pipe, a device or standard input ("-") gives,
/// spooled into a temporary file without a name.
class InputFile
{
public:
    /// @throws RenderError when it cannot be read; Interrupted
    explicit InputFile (const std::filesystem::path& path);
    ~InputFile ();

    InputFile (const InputFile&) = delete;
    InputFile& operator= (const InputFile&) = delete;

    int Descriptor () const { return descriptor; } ///< stands at the first byte
    std::int64_t Size () const { return size; }

    /// @return whether all of `count` bytes from `offset` are there
    bool ReadAt (std::int64_t offset, void* bytes, std::size_t count) const;

private:
    void Spool (const std::filesystem::path& path);

    int descriptor = -1;
    std::int64_t size = 0;
};

/// Whether a path means a stream: "-", a name of an open file as /dev/stdout, a pipe, a device. Never replaced.
bool IsStream (const std::filesystem::path& path);

/// A temporary file, open for both ways, that no name leads to. @throws RenderError
int OpenUnnamedFile ();

} // namespace tessaly::render
