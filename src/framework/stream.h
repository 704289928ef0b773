#pragma once

#include <cstdint>

namespace tessaly
{

enum SeekMode : std::int32_t
{
    kSeekFromStart = 0,
    kSeekFromHere = 1,
    kSeekFromEnd = 2
};

/// A stream of bytes: memory, a host's stream, or one that only counts. What is read and written in chunks and lines
/// goes through it. A count below 1 moves nothing. One thread at a time.
class ZStream
{
public:
    using LineReader = std::int32_t (*) (ZStream& stream, char* buffer, std::int32_t size, const char* delimiters);
    using LineWriter = std::int32_t (*) (ZStream& stream, const char* text, std::int32_t length);

    virtual ~ZStream () = default;
    ZStream (const ZStream&) = delete;
    ZStream& operator= (const ZStream&) = delete;

    virtual std::int32_t Read (void* data, std::int32_t count) = 0;         ///< @return bytes read
    virtual std::int32_t Write (const void* data, std::int32_t count) = 0;  ///< @return bytes written
    virtual std::int32_t Seek (std::int32_t offset, std::int32_t mode) = 0; ///< of SeekMode. @return the position then
    virtual std::int32_t Tell () = 0;
    virtual std::int32_t GetSize () = 0;

    /// Reads what comes before the earliest of CR LF, CR, LF and `delimiters` (may be null), and leaves the stream
    /// after that. A line that does not fit is cut, its rest is the next line.
    /// @param buffer  of size + 1 bytes; gets the line, zero-terminated  @return the line's length
    virtual std::int32_t ReadLine (char* buffer, std::int32_t size, const char* delimiters);

    /// Writes a text and CR LF. @param length  0: up to the terminator  @return bytes of the text written
    virtual std::int32_t WriteLine (const char* text, std::int32_t length);

    virtual void SetLineReader (LineReader reader) { lineReader = reader; }
    virtual void SetLineWriter (LineWriter writer) { lineWriter = writer; }

protected:
    ZStream ();

private:
    LineReader lineReader;
    LineWriter lineWriter;
};

} // namespace tessaly
