#pragma once

#include <cstdint>

namespace tessaly
{

class ZStream;

/// One chunk of a tree: a header of id and payload size, then the payload, in which other chunks may lie.
class ZBinChunk
{
public:
    virtual ~ZBinChunk () = default;
    ZBinChunk (const ZBinChunk&) = delete;
    ZBinChunk& operator= (const ZBinChunk&) = delete;

protected:
    ZBinChunk (ZStream* chunkStream, std::int32_t byteOrder)
        : stream (chunkStream)
        , order (byteOrder)
    {
    }

    ZStream* stream;    // not owned: the caller, outlives the chunk
    std::int32_t order; // of MachineOrder
};

/// A chunk in the making. What is written while the object lives is its payload; its end puts the size into the header.
class ZWriteBinChunk final : public ZBinChunk
{
public:
    ZWriteBinChunk (ZStream* chunkStream, std::int32_t byteOrder, std::uint32_t id);
    ~ZWriteBinChunk () override;

private:
    std::int32_t start; // of the payload
};

/// The two layouts of headers: id and size of four bytes each, or of eight. The payload is the same but for the format
/// number.
enum class ChunkForm
{
    narrow,
    wide
};

/// A chunk that is read. Its size is what the header says, which may be anything from 0 up.
class ZReadBinChunk final : public ZBinChunk
{
public:
    /// Reads the header.
    /// @throws ChStripFileBinException when the stream ends in it or the size is negative
    ZReadBinChunk (ZStream* chunkStream, std::int32_t byteOrder, ChunkForm form);

    std::uint64_t Id () const { return id; }           ///< the letters in the low four bytes
    std::int64_t Size () const { return size; }        ///< of the payload
    std::int64_t End () const { return start + size; } ///< position after the payload

    /// Moves the stream past the payload. @return false when the stream does not get there
    bool GoToEnd () const;

private:
    template <typename IdWord, typename SizeWord>
    void ReadHeader ();

    std::uint64_t id = 0;
    std::int64_t start = 0;
    std::int64_t size = 0;
};

} // namespace tessaly
