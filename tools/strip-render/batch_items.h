#pragma once

#include "options.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace tessaly::render
{

/// One file of a batch.
struct BatchItem
{
    std::filesystem::path input;
    std::filesystem::path output;
    std::int64_t bytes = 0; ///< of the input, for the progress
    std::string fault;      ///< why it must not be rendered; empty if it may
    bool isTaken = false;   ///< the output is that of another item, so that one that is there says nothing of this one
};

/// The files that a batch renders, in a fixed order: those that are named, and of folders those in them or below, whose
/// places are mirrored. What lies in a folder of results below them is no input. Names stay; the extension is that of the
/// wanted format, and .wav where the input has one that is not written. An output that would take the place of an input
/// or of another output is a fault of that file.
std::vector<BatchItem> BatchItems (const Options& options);

/// Whether the extension promises a recording, so that a file that can't be read as one has failed. Some such formats
/// are not read here at all.
bool IsNamedAsAudio (const std::filesystem::path& file);

} // namespace tessaly::render
