#include "state_file.h"

#include "public.sdk/source/common/memorystream.h"
#include "public.sdk/source/vst/vstpresetfile.h"

#include <algorithm>
#include <cstring>
#include <fstream>
#include <string_view>

namespace tessaly::host
{

using namespace Steinberg;
namespace fs = std::filesystem;

namespace
{

using Bytes = std::vector<std::byte>;

constexpr std::string_view kPresetStart = "VST3";
constexpr std::string_view kChunkStart = "2620"; // the plug-in writes it and reads past it
constexpr std::size_t kLargestFile = 1 << 24;    // a state has less than 1 KiB; a preset may carry more beside it

std::string Quoted (const fs::path& file)
{
    return "\"" + file.string () + "\"";
}

bool StartsWith (const Bytes& bytes, std::string_view start)
{
    return bytes.size () >= start.size () &&
           std::ranges::equal (start, std::span (bytes).first (start.size ()),
                               [] (char letter, std::byte byte) { return static_cast<std::byte> (letter) == byte; });
}

Bytes ReadWhole (const fs::path& file)
{
    if (fs::is_directory (file))
        throw HostError (Quoted (file) + " is a folder, not a file to read");
    std::ifstream in (file, std::ios::binary);
    Bytes bytes;
    std::byte part[4096];
    while (in.read (reinterpret_cast<char*> (part), sizeof (part)) || in.gcount () > 0)
    {
        bytes.insert (bytes.end (), part, part + in.gcount ());
        if (bytes.size () > kLargestFile)
            throw HostError (Quoted (file) + " is far too large for a state");
    }
    if (!in.eof ())
        throw HostError ("cannot read " + Quoted (file));
    return bytes;
}

Bytes ComponentChunk (const fs::path& file, Bytes& bytes, const std::optional<VST3::UID>& component)
{
    const auto size = static_cast<TSize> (bytes.size ());
    const auto stream = owned (new MemoryStream (bytes.data (), size));
    Vst::PresetFile preset (stream);
    if (!preset.readChunkList ())
        throw DamagedPreset (Quoted (file) + " is a damaged preset");
    if (component && preset.getClassID () != FUID::fromTUID (component->data ()))
        throw HostError (Quoted (file) + " is a preset of another plug-in");
    const auto* entry = preset.getEntry (Vst::kComponentState);
    if (entry == nullptr)
        throw HostError (Quoted (file) + " is a preset without a state");
    if (entry->offset < 0 || entry->size < 0 || entry->offset > size || entry->size > size - entry->offset)
        throw DamagedPreset (Quoted (file) + " is a damaged preset");
    return { bytes.begin () + entry->offset, bytes.begin () + entry->offset + entry->size };
}

Bytes AsPreset (const VST3::UID& component, std::span<const std::byte> chunk)
{
    MemoryStream stream;
    Vst::PresetFile preset (&stream);
    preset.setClassID (FUID::fromTUID (component.data ()));
    if (!preset.writeHeader () || !preset.writeChunk (chunk.data (), static_cast<int32> (chunk.size ())) ||
        !preset.writeChunkList ())
        throw HostError ("the preset could not be put together");
    const auto* data = reinterpret_cast<const std::byte*> (stream.getData ());
    return { data, data + stream.getSize () };
}

} // namespace

Bytes ReadStateFile (const fs::path& file, const std::optional<VST3::UID>& component)
{
    auto bytes = ReadWhole (file);
    auto chunk = StartsWith (bytes, kPresetStart) ? ComponentChunk (file, bytes, component) : std::move (bytes);
    if (!StartsWith (chunk, kChunkStart))
        throw HostError (Quoted (file) + " holds no state of the strip");
    return chunk;
}

Bytes SalvagePreset (const fs::path& file, const VST3::UID& component)
{
    // Four letters, a version, the class as text, and where the list of chunks begins, lowest byte first; then, as all
    // hosts write it, the component's state
    constexpr std::size_t kClassAt = 8;
    constexpr std::size_t kListAt = 40;
    constexpr std::size_t kHeader = 48;
    const auto bytes = ReadWhole (file);
    if (bytes.size () < kHeader)
        throw HostError (Quoted (file) + " ends within its header");
    char8 id[kListAt - kClassAt + 1]{};
    FUID::fromTUID (component.data ()).toString (id);
    if (std::memcmp (&bytes[kClassAt], id, kListAt - kClassAt) != 0)
        throw HostError (Quoted (file) + " is a preset of another plug-in");
    std::size_t list = 0;
    for (std::size_t i = kHeader; i-- > kListAt;)
        list = list << 8 | std::to_integer<std::size_t> (bytes[i]);
    const auto end = list > kHeader ? std::min (list, bytes.size ()) : bytes.size ();
    Bytes chunk (bytes.begin () + kHeader, bytes.begin () + static_cast<std::ptrdiff_t> (end));
    if (!StartsWith (chunk, kChunkStart))
        throw HostError (Quoted (file) + " holds no state of the strip");
    return chunk;
}

std::unique_ptr<PendingFile> PrepareStateFile (const fs::path& file, const VST3::UID& component,
                                               std::span<const std::byte> chunk, Existing existing)
{
    auto pending = std::make_unique<PendingFile> (file, existing);
    const auto bytes =
        file.extension () == ".vstpreset" ? AsPreset (component, chunk) : Bytes (chunk.begin (), chunk.end ());
    std::ofstream out (pending->WorkingPath (), std::ios::binary);
    out.write (reinterpret_cast<const char*> (bytes.data ()), static_cast<std::streamsize> (bytes.size ()));
    out.close ();
    if (!out)
        throw HostError ("cannot write " + Quoted (file));
    return pending;
}

void WriteStateFile (const fs::path& file, const VST3::UID& component, std::span<const std::byte> chunk,
                     Existing existing)
{
    PrepareStateFile (file, component, chunk, existing)->Commit ();
}

} // namespace tessaly::host
