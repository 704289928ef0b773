#pragma once

#include "geometry.h"
#include "look_records.h"
#include <cstdint>

namespace tessaly
{

class ZBitmap;
class ZCanvas;

enum KnobKind : std::int32_t
{
    kKnobNone = 0,
    kKnobBitmap = 1
};

struct ZKnobRecord
{
    static constexpr std::int32_t kLastKind = kKnobBitmap;

    std::int32_t kind = kKnobNone;
    ZBitmap* bitmap = nullptr; // not owned: the editor's cache
    ZPoint source;             // top left of the knob in the bitmap
};

/// Mix-in: a knob, as a slider's thumb, cut out of an image in the size of the rectangle that it is drawn in.
class ZDrawKnob : public ZLookRecords<ZKnobRecord>
{
public:
    void SetBitmapActive (ZBitmap* bitmap, ZPoint source) { active = { kKnobBitmap, bitmap, source }; } ///< borrowed
    void SetBitmapInactive (ZBitmap* bitmap, ZPoint source) { inactive = { kKnobBitmap, bitmap, source }; }

    void DrawActive (ZCanvas& canvas, std::uint32_t time, const ZRect& rect) const;
    void DrawInactive (ZCanvas& canvas, std::uint32_t time, const ZRect& rect) const;
};

} // namespace tessaly
