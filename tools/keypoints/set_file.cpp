#include "set_file.h"

#include "set_error.h"
#include "text.h"
#include "utf8.h"

#include <algorithm>
#include <fstream>
#include <string_view>
#include <vector>

namespace tessaly::keypoints
{

namespace fs = std::filesystem;

namespace
{

constexpr std::string_view kMagic = "KPRD";
constexpr std::size_t kFirstRecord = 32;
constexpr std::size_t kRecordSize = 40;

std::string Quoted (const fs::path& file)
{
    return "\"" + file.string () + "\"";
}

/// As much of a file as tells whether it is a key-point file: up to one byte more than such a file has.
std::vector<char> ReadBytes (const fs::path& file)
{
    if (fs::exists (file) && !fs::is_regular_file (file))
        throw SetError (Quoted (file) + " is no ordinary file"); // a pipe would keep us waiting
    std::ifstream in (file, std::ios::binary);
    if (!in)
        throw SetError ("cannot read " + Quoted (file));
    std::vector<char> bytes (kKeyPointFileSize + 1);
    in.read (bytes.data (), static_cast<std::streamsize> (bytes.size ()));
    if (in.bad ())
        throw SetError ("cannot read " + Quoted (file));
    bytes.resize (static_cast<std::size_t> (in.gcount ()));
    return bytes;
}

std::vector<char> ReadSetBytes (const fs::path& file)
{
    auto bytes = ReadBytes (file);
    if (const char* fault = KeyPointFileFault (bytes.data (), static_cast<std::int32_t> (bytes.size ())))
        throw SetError (Quoted (file) + " is no key-point file: " + fault);
    return bytes;
}

void WriteBytes (const fs::path& file, const char* bytes, Existing existing)
{
    host::PendingFile pending (file, existing);
    std::ofstream out (pending.WorkingPath (), std::ios::binary);
    out.write (bytes, kKeyPointFileSize);
    out.close ();
    if (!out)
        throw SetError ("cannot write " + Quoted (file));
    pending.Commit ();
}

} // namespace

SetBytes ToBytes (const KeyPointSet& table)
{
    SetBytes bytes{};
    std::ranges::copy (kMagic, bytes.begin ());
    for (std::uint32_t row = 0; row < kSetRows; ++row)
        for (std::uint32_t column = 0; column < kKeyPointColumns; ++column)
        {
            const auto step = static_cast<std::uint16_t> (table.KeyPointStep (row, column));
            const auto at = kFirstRecord + row * kRecordSize + 2 * column;
            bytes[at] = static_cast<std::uint8_t> (step >> 8);
            bytes[at + 1] = static_cast<std::uint8_t> (step & 0xFF);
        }
    return bytes;
}

KeyPointSet EmptySet ()
{
    KeyPointSet table;
    for (auto& row : table.rows)
        row.fill (kEmptyCell);
    return table;
}

std::string SetFault (const fs::path& file)
{
    std::error_code error;
    const auto status = fs::status (file, error);
    if (!fs::exists (status))
        return "there is no such file";
    if (!fs::is_regular_file (status))
        return "it is no ordinary file";
    if (!HasSetExtension (file))
        return "its extension is not \".kpd\", so that it is not listed";
    if (!IsUtf8 (file.filename ().string ()))
        return "its name is no UTF-8, so that it is not listed";
    try
    {
        const auto bytes = ReadBytes (file);
        const char* fault = KeyPointFileFault (bytes.data (), static_cast<std::int32_t> (bytes.size ()));
        return fault != nullptr ? fault : "";
    }
    catch (const SetError&)
    {
        return "it cannot be read";
    }
}

KeyPointSet ReadSetFile (const fs::path& file)
{
    const auto bytes = ReadSetBytes (file);
    auto table = EmptySet ();
    ReadKeyPointFile (bytes.data (), static_cast<std::int32_t> (bytes.size ()), table);
    return table;
}

void WriteSetFile (const fs::path& file, const KeyPointSet& table, Existing existing)
{
    const auto bytes = ToBytes (table);
    WriteBytes (file, reinterpret_cast<const char*> (bytes.data ()), existing);
}

void CopySetFile (const fs::path& from, const fs::path& to, Existing existing)
{
    WriteBytes (to, ReadSetBytes (from).data (), existing);
}

bool HasSetExtension (const fs::path& file)
{
    // Not extension (), which sees none in a name that begins with its only dot
    const auto name = file.filename ().string ();
    return name.size () > 4 && Lowered (name).ends_with (".kpd");
}

int CountKeyPoints (const KeyPointSet& table)
{
    int count = 0;
    for (std::uint32_t row = 0; row < kSetRows; ++row)
        count += table.HasKeyPoint (row) ? 1 : 0;
    return count;
}

} // namespace tessaly::keypoints
