#include "changed_area.h"

#include <algorithm>

namespace tessaly
{

namespace
{

ZRect Union (const ZRect& a, const ZRect& b)
{
    return { std::min (a.left, b.left), std::min (a.top, b.top), std::max (a.right, b.right),
             std::max (a.bottom, b.bottom) };
}

} // namespace

void ChangedArea::Add (ZRect rect)
{
    if (rect.IsEmpty ())
        return;
    for (std::size_t i = 0; i < count;)
    {
        if (!rects[i].Overlaps (rect))
        {
            ++i;
            continue;
        }
        rect = Union (rects[i], rect); // larger by now: it may meet those that it missed before
        rects[i] = rects[--count];
        i = 0;
    }
    if (count == kMost)
    {
        const ZRect last = rects[--count];
        Add (Union (last, rect));
        return;
    }
    rects[count++] = rect;
}

} // namespace tessaly
