#include "key_point_file.h"

#include "key_point_stream.h"
#include <bit>

namespace tessaly
{

namespace
{

constexpr std::uint32_t kMagic = 0x4B505244; // "KPRD"
constexpr std::int32_t kHeaderWords = 7;
constexpr std::int32_t kRecords = 9;
constexpr std::int32_t kRecordEnd = 6; // bytes after a record's steps

static_assert (std::endian::native == std::endian::little, "KPDStream reverses for such machines");

/// @return the number, or 0 where the stream has ended
template <typename Number>
Number Next (KPDStream& stream)
{
    Number number = 0;
    stream.Read (&number, sizeof (number));
    return number;
}

} // namespace

const char* KeyPointFileFault (const void* data, std::int32_t size)
{
    if (data == nullptr || size != kKeyPointFileSize)
        return "it is not 512 bytes long";
    KPDStream stream (data, size);
    return Next<std::uint32_t> (stream) == kMagic ? nullptr : "it does not begin with \"KPRD\"";
}

bool ReadKeyPointFile (const void* data, std::int32_t size, KeyPointSet& set)
{
    if (KeyPointFileFault (data, size) != nullptr)
        return false;
    KPDStream stream (data, size);
    for (std::int32_t i = 0; i <= kHeaderWords; ++i) // the magic goes by with them
        Next<std::uint32_t> (stream);
    for (std::size_t row = 0; row < kRecords; ++row)
    {
        for (auto& step : set.rows[row])
            step = Next<std::int16_t> (stream);
        stream.Seek (kRecordEnd, kSeekFromHere);
    }
    return true;
}

} // namespace tessaly
