#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>

namespace tessaly::tools
{

// Files by descriptor. A result of -1, or false, comes with the reason in errno.

int OpenToRead (const std::filesystem::path& path);
int OpenToWrite (const std::filesystem::path& path); ///< one that is there: a pipe, a device
int Duplicate (int file);                            ///< another descriptor of one file, with one position
int DuplicateInput ();                               ///< another descriptor of standard input, for bytes
int DuplicateOutput ();                              ///< likewise of standard output

/// Creates an empty file. What already has the name, or a link that somebody put there, is not written over.
bool CreateNew (const std::filesystem::path& path);

/// Gives a file another name in its folder, unless that is taken: EEXIST. Other errors: this can't be had here.
bool RenameToNew (const std::filesystem::path& from, const std::filesystem::path& to);

std::int64_t ReadSome (int file, void* bytes, std::size_t count); ///< 0 at the end
std::int64_t WriteSome (int file, const void* bytes, std::size_t count);
std::int64_t ReadSomeAt (int file, std::int64_t offset, void* bytes, std::size_t count);
std::int64_t Rewind (int file); ///< @return the file's size
bool IsOrdinary (int file);     ///< no pipe and no device
bool Close (int file);

/// A temporary file, open for both ways, that goes when it is closed.
int OpenTemporary ();

/// Whether a path is a name of an open file, as /dev/stdout: a link that leads to an ordinary file where the output of a
/// program goes into one, which must not be replaced while others write to it. On Windows: a name of a device.
bool IsNameOfOpenFile (const std::filesystem::path& path);

} // namespace tessaly::tools
