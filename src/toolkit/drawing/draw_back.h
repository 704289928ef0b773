#pragma once

#include "geometry.h"
#include "look_records.h"
#include <cstdint>

namespace tessaly
{

class ZBitmap;
class ZCanvas;

enum BackKind : std::int32_t
{
    kBackNone = 0,
    kBackBitmap = 1,
    kBackColor = 2,
    kBackColorAlpha = 3
};

struct ZBackRecord
{
    static constexpr std::int32_t kLastKind = kBackColorAlpha;

    std::int32_t kind = kBackNone;
    ZBitmap* bitmap = nullptr; // not owned: the editor's cache
    ZPoint source;             // top left of the area in the bitmap
    ZColor color;
    std::uint8_t alpha = 0; // of kBackColorAlpha; the other colour is opaque
};

/// Mix-in: a background, cut out of an image or in one colour. A pane paints its own, for nothing below it is drawn
/// when it alone is dirty; mostly one image holds the whole surface and the source is the pane's place in it.
class ZDrawBack : public ZLookRecords<ZBackRecord>
{
public:
    void SetBitmapActive (ZBitmap* bitmap, ZPoint source) { SetBitmap (active, bitmap, source); } ///< borrowed
    void SetBitmapInactive (ZBitmap* bitmap, ZPoint source) { SetBitmap (inactive, bitmap, source); }
    void SetColorActive (ZColor color) { SetColor (active, color); }
    void SetColorInactive (ZColor color) { SetColor (inactive, color); }
    void SetColorAlphaActive (ZColor color, std::uint8_t alpha) { SetColorAlpha (active, color, alpha); }
    void SetColorAlphaInactive (ZColor color, std::uint8_t alpha) { SetColorAlpha (inactive, color, alpha); }

    void DrawActive (ZCanvas& canvas, std::uint32_t time, const ZRect& rect) const;
    void DrawInactive (ZCanvas& canvas, std::uint32_t time, const ZRect& rect) const;

private:
    static void SetBitmap (ZBackRecord& record, ZBitmap* bitmap, ZPoint source);
    static void SetColor (ZBackRecord& record, ZColor color);
    static void SetColorAlpha (ZBackRecord& record, ZColor color, std::uint8_t alpha);
};

} // namespace tessaly
