#include "stream.h"

#include <algorithm>
#include <cstring>

namespace tessaly
{

namespace
{

struct Line
{
    std::ptrdiff_t length; // up to the terminator
    std::ptrdiff_t next;   // where the next line begins
};

/// Ends the line at the terminator if it comes before the end found so far.
void EndAt (char* text, const char* terminator, Line& line)
{
    const char* found = std::strstr (text, terminator);
    if (found == nullptr)
        return;
    line.length = found - text;
    line.next = line.length + static_cast<std::ptrdiff_t> (std::strlen (terminator));
    text[line.length] = '\0';
}

std::int32_t ReadTextLine (ZStream& stream, char* buffer, std::int32_t size, const char* delimiters)
{
    const auto start = stream.Tell ();
    const auto count = std::clamp (stream.Read (buffer, size), 0, std::max (size, 0));
    buffer[count] = '\0';

    Line line{ count, count };
    for (const char* terminator : { "\r\n", "\r", "\n" })
        EndAt (buffer, terminator, line);
    for (const char* p = delimiters; p != nullptr && *p != '\0'; ++p)
    {
        const char delimiter[]{ *p, '\0' };
        EndAt (buffer, delimiter, line);
    }
    stream.Seek (start + static_cast<std::int32_t> (line.next), kSeekFromStart);
    return static_cast<std::int32_t> (line.length);
}

std::int32_t WriteTextLine (ZStream& stream, const char* text, std::int32_t length)
{
    const auto written = stream.Write (text, length);
    stream.Write ("\r\n", 2);
    return written;
}

} // namespace

ZStream::ZStream ()
    : lineReader (ReadTextLine)
    , lineWriter (WriteTextLine)
{
}

std::int32_t ZStream::ReadLine (char* buffer, std::int32_t size, const char* delimiters)
{
    return lineReader (*this, buffer, size, delimiters);
}

std::int32_t ZStream::WriteLine (const char* text, std::int32_t length)
{
    return lineWriter (*this, text, length == 0 ? static_cast<std::int32_t> (std::strlen (text)) : length);
}

} // namespace tessaly
