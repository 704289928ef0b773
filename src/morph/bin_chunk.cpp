#include "bin_chunk.h"

#include "ch_strip_file_exception.h"
#include "chunk_values.h"
#include <limits>

namespace tessaly
{

namespace
{

constexpr auto kSizeBytes = static_cast<std::int32_t> (sizeof (std::int32_t));

void ThrowReading (ChStripFileFault fault, ZStream* stream)
{
    throw ChStripFileBinException (true, static_cast<std::int32_t> (fault), stream);
}

} // namespace

ZWriteBinChunk::ZWriteBinChunk (ZStream* chunkStream, std::int32_t byteOrder, std::uint32_t id)
    : ZBinChunk (chunkStream, byteOrder)
{
    WriteId (*stream, order, id);
    WriteNumber (*stream, order, std::int32_t{ 0 });
    start = stream->Tell ();
}

ZWriteBinChunk::~ZWriteBinChunk ()
{
    const auto size = stream->Tell () - start;
    stream->Seek (-(size + kSizeBytes), kSeekFromHere);
    WriteNumber (*stream, order, size);
    stream->Seek (size, kSeekFromHere);
}

ZReadBinChunk::ZReadBinChunk (ZStream* chunkStream, std::int32_t byteOrder, ChunkForm form)
    : ZBinChunk (chunkStream, byteOrder)
{
    if (form == ChunkForm::narrow)
        ReadHeader<std::uint32_t, std::int32_t> ();
    else
        ReadHeader<std::uint64_t, std::int64_t> ();
}

template <typename IdWord, typename SizeWord>
void ZReadBinChunk::ReadHeader ()
{
    IdWord storedId{};
    SizeWord storedSize{};
    if (!ReadId (*stream, order, storedId))
        ThrowReading (ChStripFileFault::abnormalId, stream);
    if (!ReadNumber (*stream, order, storedSize) || storedSize < 0)
        ThrowReading (ChStripFileFault::abnormalSize, stream);
    id = storedId;
    start = stream->Tell ();
    size = std::min<std::int64_t> (storedSize,
                                   std::numeric_limits<std::int64_t>::max () - std::max<std::int64_t> (start, 0));
}

bool ZReadBinChunk::GoToEnd () const
{
    constexpr std::int64_t kFarthest = std::numeric_limits<std::int32_t>::max ();
    return stream->Seek (static_cast<std::int32_t> (std::min (End (), kFarthest)), kSeekFromStart) == End ();
}

} // namespace tessaly
