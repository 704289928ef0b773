#include "strip_state.h"

#include "bin_chunk.h"
#include "ch_strip_file_exception.h"
#include "chunk_values.h"
#include <algorithm>

namespace tessaly
{

namespace
{

constexpr std::uint32_t kTreeId = 0x43485354;      // "CHST"
constexpr std::uint32_t kFormatId = 0x46494E46;    // "FINF"
constexpr std::uint32_t kKeyPointsId = 0x4B504420; // "KPD "
constexpr std::uint32_t kValuesId = 0x50524D20;    // "PRM "
constexpr std::int32_t kFormat = 2;
constexpr std::int64_t kLeastFormatBytes = 4;
constexpr std::int32_t kMostChunks = 4096; // a tree has three; a stream without an end would go on for ever

void Throw (ChStripFileFault fault, ZStream& stream)
{
    throw ChStripFileBinException (true, static_cast<std::int32_t> (fault), &stream);
}

/// The header of the tree tells: its letters come first, or after four zero bytes.
ChunkForm DetectForm (ZStream& stream)
{
    const auto start = stream.Tell ();
    std::array<std::uint8_t, 8> bytes{};
    for (auto& byte : bytes)
        stream.Read (&byte, 1);
    const bool isBack = stream.Seek (start, kSeekFromStart) == start;

    const auto isTreeId = [&bytes] (std::size_t first)
    {
        std::uint32_t id = 0;
        for (std::size_t i = first; i < first + sizeof (id); ++i)
            id = id << 8 | bytes[i];
        return id == kTreeId;
    };
    if (!isBack || (!isTreeId (0) && !isTreeId (4)))
        Throw (ChStripFileFault::abnormalId, stream);
    return isTreeId (0) ? ChunkForm::narrow : ChunkForm::wide;
}

/// Reads one tree. A position beyond what the stream can reach ends the tree, or is a fault inside of it.
class TreeReader
{
public:
    TreeReader (ZStream& treeStream, StripState& target)
        : stream (treeStream)
        , state (target)
        , form (DetectForm (stream))
    {
    }

    void Read ()
    {
        const auto tree = NextChunk ();
        if (tree.Id () != kTreeId)
            Throw (ChStripFileFault::otherFile, stream);

        const auto format = NextChunk ();
        if (format.Id () != kFormatId)
            Throw (ChStripFileFault::noFileInformation, stream);
        if (format.Size () < kLeastFormatBytes) // the number itself tells nothing: there is one format
            Throw (ChStripFileFault::abnormalSize, stream);

        auto position = GoPast (format, tree);
        for (std::int32_t count = 0; position < tree.End (); ++count)
        {
            if (count == kMostChunks)
                Throw (ChStripFileFault::abnormalSize, stream);
            const auto chunk = NextChunk ();
            ReadPayload (chunk);
            position = GoPast (chunk, tree);
        }
    }

private:
    ZReadBinChunk NextChunk () { return ZReadBinChunk (&stream, order, form); }

    /// Some hosts' streams refuse to go to their very end, so that only a place inside the tree has to be reached.
    std::int64_t GoPast (const ZReadBinChunk& chunk, const ZReadBinChunk& tree)
    {
        if (!chunk.GoToEnd () && chunk.End () < tree.End ())
            Throw (ChStripFileFault::abnormalId, stream);
        return chunk.End ();
    }

    void ReadPayload (const ZReadBinChunk& chunk)
    {
        if (chunk.Id () == kValuesId)
            ReadValues (chunk.Size ());
        else if (chunk.Id () == kKeyPointsId)
            ReadKeyPoints ();
    }

    void ReadValues (std::int64_t bytes)
    {
        const auto stored = bytes / static_cast<std::int64_t> (sizeof (float));
        for (std::size_t i = 0; i < state.values.size () && static_cast<std::int64_t> (i) < stored; ++i)
            ReadNumber (stream, order, state.values[i]);
    }

    /// Whole, whatever the size in the header.
    void ReadKeyPoints ()
    {
        stream.Read (state.keyPointName.data (), kTextSize);
        state.keyPointName.back () = '\0';
        for (auto& row : state.keyPoints.rows)
            for (auto& step : row)
                ReadNumber (stream, order, step);
    }

    ZStream& stream;   // not owned: the caller
    StripState& state; // not owned: the caller
    const std::int32_t order = DetectByteOrder ();
    const ChunkForm form;
};

} // namespace

void WriteStripTree (ZStream& stream, const StripState& state)
{
    const auto order = DetectByteOrder ();
    const ZWriteBinChunk tree (&stream, order, kTreeId);
    {
        const ZWriteBinChunk format (&stream, order, kFormatId);
        WriteNumber (stream, order, kFormat);
    }
    {
        const ZWriteBinChunk keyPoints (&stream, order, kKeyPointsId);
        stream.Write (state.keyPointName.data (), kTextSize);
        for (const auto& row : state.keyPoints.rows)
            for (const auto step : row)
                WriteNumber (stream, order, step);
    }
    const ZWriteBinChunk values (&stream, order, kValuesId);
    for (const auto value : state.values)
        WriteNumber (stream, order, value);
}

void ReadStripTree (ZStream& stream, StripState& state)
{
    TreeReader (stream, state).Read ();
}

} // namespace tessaly
