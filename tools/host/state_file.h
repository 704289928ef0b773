#pragma once

#include "host_error.h"
#include "pending_file.h"

#include "public.sdk/source/vst/utility/uid.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace tessaly::host
{

/// Reads what a host keeps of the strip: a preset file (.vstpreset), whose component chunk is taken, or the component's
/// state chunk alone. Which of the two it is, its first bytes tell.
/// @param component  a preset of another class is refused; without, any class is taken
/// @throws HostError with the reason when the file cannot be read or is neither of the two; DamagedPreset
std::vector<std::byte> ReadStateFile (const std::filesystem::path& file,
                                      const std::optional<VST3::UID>& component = std::nullopt);

/// A preset whose list of chunks can't be read, as of one that is cut off: the list is at the end.
class DamagedPreset : public HostError
{
public:
    using HostError::HostError;
};

/// What is there of the state in such a preset, which may end anywhere.
/// @throws HostError when it is a preset of another class, or has no state ahead of its other chunks
std::vector<std::byte> SalvagePreset (const std::filesystem::path& file, const VST3::UID& component);

/// Writes a state chunk: as a preset of the class `component` where the extension is ".vstpreset", by itself under any
/// other name.
/// @return the file, whole, to be committed when all else is done
/// @throws HostError when it cannot be written or may not
std::unique_ptr<PendingFile> PrepareStateFile (const std::filesystem::path& file, const VST3::UID& component,
                                               std::span<const std::byte> chunk, Existing existing = Existing::replace);

/// As PrepareStateFile, and commits. The file appears whole or not at all.
void WriteStateFile (const std::filesystem::path& file, const VST3::UID& component, std::span<const std::byte> chunk,
                     Existing existing = Existing::replace);

} // namespace tessaly::host
