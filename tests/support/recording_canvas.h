#pragma once

#include "bitmap.h"
#include "bitmap_imp.h"
#include "canvas.h"
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tessaly
{

inline std::ostream& operator<< (std::ostream& out, ZPoint p)
{
    return out << p.x << "," << p.y;
}

inline std::ostream& operator<< (std::ostream& out, const ZRect& r)
{
    return out << r.TopLeft () << "," << r.BottomRight ();
}

/// An image that is nothing but a name and a size.
struct NamedBitmapImp final : ZBitmapImp
{
    std::string name;

    explicit NamedBitmapImp (std::string_view itsName)
        : name (itsName)
    {
    }
    const std::string& GetName () const override { return name; }
    std::uint32_t GetWidth () const override { return 200; }
    std::uint32_t GetHeight () const override { return 100; }
};

inline ZBitmap NamedBitmap (std::string_view name)
{
    return ZBitmap (std::make_unique<NamedBitmapImp> (name));
}

/// A back end that writes drawing calls down as words, offscreen ones with "> " before them into the same log. The
/// present clip is kept, not logged. A character of a text is 6 pixels a byte wide.
class RecordingCanvasImp final : public ZCanvasImp
{
public:
    using Log = std::vector<std::string>;

    Log Take () { return std::exchange (*log, {}); } ///< the calls so far, which are then forgotten

    ZRect clip; // the present one; zero for none
    double scale = 1.0;

    std::unique_ptr<ZCanvasImp> CreateOffscreenImp (const ZRect& rect) override
    {
        Write ("CreateOffscreen", rect);
        auto offscreen = std::make_unique<RecordingCanvasImp> ();
        offscreen->log = log;
        offscreen->before = "> ";
        return offscreen;
    }
    double GetScale () const override { return scale; }
    void Save () override { clips.push_back (clip); }
    void Restore () override
    {
        clip = clips.back ();
        clips.pop_back ();
    }
    void SetClipRect (const ZRect& rect) override { clip = rect; }
    void SetClipEllipse (const ZRect& rect) override { clip = rect; }
    void ClearClip () override { clip = {}; }
    void Clear (const ZRect& rect) override { Write ("Clear", rect); }
    void SetColor (ZColor c, std::uint8_t alpha) override
    {
        Write ("SetColor", ZRect{ c.red, c.green, c.blue, alpha });
    }
    void SetLineWidth (std::int32_t) override {}
    void SetLineStyle (std::int32_t) override {}
    void MoveTo (ZPoint point) override { Write ("MoveTo", point); }
    void LineTo (ZPoint point) override { Write ("LineTo", point); }
    void FrameRect (const ZRect& rect) override { Write ("FrameRect", rect); }
    void FillRect (const ZRect& rect) override { Write ("FillRect", rect); }
    void FramePolygon (std::span<const ZPoint> points) override
    {
        for (const auto& point : points)
            Write ("FramePolygon", point);
    }
    void FillPolygon (std::span<const ZPoint>) override {}
    void DrawPolyline (std::span<const ZPointF> points, ZPoint offset) override
    {
        for (const auto& point : points)
            Write ("DrawPolyline", point.x + offset.x, point.y + offset.y);
    }
    void FillPolygon (std::span<const ZPointF>, ZPoint) override {}
    void SetFont (std::string_view name, std::int32_t pixels, std::int32_t style) override
    {
        Write ("SetFont", name, pixels, style);
    }
    void SetFontSize (std::int32_t, std::int32_t) override {}
    std::int32_t GetFontSize () const override { return 12; }
    std::int32_t GetTextWidth (std::string_view text) override { return 6 * static_cast<std::int32_t> (text.size ()); }
    void DrawText (std::string_view text, const ZRect& rect, std::int32_t alignment) override
    {
        Write ("DrawText", "'" + std::string (text) + "'", rect, alignment);
    }
    void CopyCanvasPlain (ZCanvasImp&, const ZRect& rect, ZPoint from) override
    {
        Write ("CopyCanvas", rect, "from", from);
    }
    void CopyCanvasKeyed (ZCanvasImp&, const ZRect&, ZPoint, ZColor) override {}
    void CopyCanvasAlpha (ZCanvasImp&, const ZRect&, ZPoint, std::uint8_t) override {}
    void StretchCanvas (ZCanvasImp&, const ZRect&, const ZRect&) override {}
    void DrawBitmapPlain (ZBitmapImp& bitmap, const ZRect& rect, ZPoint from) override
    {
        Write ("DrawBitmap", bitmap.GetName (), rect, "from", from);
    }
    void DrawBitmapKeyed (ZBitmapImp& bitmap, const ZRect& rect, ZPoint from, ZColor) override
    {
        Write ("DrawBitmapKeyed", bitmap.GetName (), rect, "from", from);
    }
    void DrawBitmapAlpha (ZBitmapImp&, const ZRect&, ZPoint, std::uint8_t) override {}
    void StretchBitmap (ZBitmapImp& bitmap, const ZRect& rect, const ZRect& from) override
    {
        Write ("StretchBitmap", bitmap.GetName (), rect, "from", from);
    }

private:
    void Write (const auto& call, const auto&... rest)
    {
        std::ostringstream words;
        words << before << call;
        ((words << ' ' << rest), ...);
        log->push_back (words.str ());
    }

    std::shared_ptr<Log> log = std::make_shared<Log> (); // shared with the offscreen ones made from this
    std::string before;
    std::vector<ZRect> clips;
};

} // namespace tessaly
