#include "vst3_stream.h"

#include <algorithm>
#include <limits>

namespace tessaly
{

using namespace Steinberg;

namespace
{

std::int32_t Narrowed (int64 position)
{
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t> (std::clamp<int64> (position, Limits::min (), Limits::max ()));
}

int32 HostMode (std::int32_t mode)
{
    return mode == kSeekFromHere  ? IBStream::kIBSeekCur
           : mode == kSeekFromEnd ? IBStream::kIBSeekEnd
                                  : IBStream::kIBSeekSet;
}

} // namespace

std::int32_t ZVst3Stream::Read (void* data, std::int32_t count)
{
    int32 done = 0;
    if (count > 0)
        stream->read (data, count, &done);
    return std::clamp (done, 0, std::max (count, 0));
}

std::int32_t ZVst3Stream::Write (const void* data, std::int32_t count)
{
    int32 done = 0;
    if (count > 0)
        stream->write (const_cast<void*> (data), count, &done); // not const in the SDK, though no host writes to it
    return std::clamp (done, 0, std::max (count, 0));
}

std::int32_t ZVst3Stream::Seek (std::int32_t offset, std::int32_t mode)
{
    int64 position = 0;
    return stream->seek (offset, HostMode (mode), &position) == kResultOk ? Narrowed (position) : Tell ();
}

std::int32_t ZVst3Stream::Tell ()
{
    int64 position = 0;
    stream->tell (&position);
    return Narrowed (position);
}

std::int32_t ZVst3Stream::GetSize ()
{
    const auto here = Tell ();
    Seek (0, kSeekFromEnd);
    const auto size = Tell ();
    Seek (here, kSeekFromStart);
    return size;
}

} // namespace tessaly
