#pragma once

#include "geometry.h"
#include "look_records.h"
#include <cstdint>

namespace tessaly
{

class ZBitmap;
class ZCanvas;

enum AnimKind : std::int32_t
{
    kAnimNone = 0,
    kAnimPlain = 1,    // a frame in its own size
    kAnimStretched = 2 // a frame stretched to the rectangle
};

struct ZAnimRecord
{
    static constexpr std::int32_t kLastKind = kAnimStretched;

    std::int32_t kind = kAnimNone;
    ZBitmap* bitmap = nullptr; // not owned: the editor's cache
    std::int32_t frameCount = 0;
    std::int32_t frameWidth = 0;  // of kAnimStretched; 0: that of the rectangle drawn in
    std::int32_t frameHeight = 0; // 0: that of the rectangle drawn in
    ZPoint source;                // top left of the first frame in the bitmap
};

/// Mix-in: one frame out of a strip whose frames run straight down an image. A frame number below the strip shows its
/// first frame, one beyond it its last.
class ZDrawAnim : public ZLookRecords<ZAnimRecord>
{
public:
    void SetAnimActive (ZBitmap* bitmap, std::int32_t frameCount, std::int32_t frameHeight,
                        ZPoint source); ///< borrowed
    void SetAnimInactive (ZBitmap* bitmap, std::int32_t frameCount, std::int32_t frameHeight, ZPoint source);
    void SetStretchActive (ZBitmap* bitmap, std::int32_t frameCount, std::int32_t frameWidth, std::int32_t frameHeight,
                           ZPoint source); ///< borrowed
    void SetStretchInactive (ZBitmap* bitmap, std::int32_t frameCount, std::int32_t frameWidth,
                             std::int32_t frameHeight, ZPoint source);

    void DrawActive (ZCanvas& canvas, std::uint32_t time, const ZRect& rect, std::int32_t frame) const;
    void DrawInactive (ZCanvas& canvas, std::uint32_t time, const ZRect& rect, std::int32_t frame) const;
};

} // namespace tessaly
