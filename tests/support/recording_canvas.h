#pragma once

#include "bitmap.h"
#include "bitmap_imp.h"
#include "canvas.h"
#include <concepts>
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

/// One drawing call: what it was given, as far as it has such, and all of it in words, by which calls compare.
struct RecordedCall
{
    template <std::convertible_to<std::string_view> Text>
    RecordedCall (const Text& inWords) // as a test expects it
        : words (std::string_view (inWords))
    {
    }

    std::string words;     // "DrawBitmap strip 0,0,40,30 from 3,4"; "> " stands before an offscreen one
    std::string operation; // "DrawBitmap"
    std::string text;      // that is drawn, or the name of the image
    ZRect rect;
    ZPoint from;   // top left in the source
    ZPointF point; // of a curve
    ZColor color;

    friend bool operator== (const RecordedCall& a, const RecordedCall& b) { return a.words == b.words; }
    friend std::ostream& operator<< (std::ostream& out, const RecordedCall& call) { return out << call.words; }
};

using Calls = std::vector<RecordedCall>;

/// A back end that records drawing calls, those of offscreen ones made from it into the same log. The present clip is
/// kept, not logged. A character of a text is 6 pixels a byte wide.
class RecordingCanvasImp final : public ZCanvasImp
{
public:
    using Log = Calls;

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
        Write ("SetColor", ZRect{ c.red, c.green, c.blue, alpha }).color = c;
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
            Write ("DrawPolyline", point.x + offset.x, point.y + offset.y).point = { point.x + offset.x,
                                                                                     point.y + offset.y };
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
        auto& call = Write ("DrawText", "'" + std::string (text) + "'", rect, alignment);
        call.text = text;
        call.rect = rect;
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
        auto& call = Write ("DrawBitmap", bitmap.GetName (), rect, "from", from);
        call.text = bitmap.GetName ();
        call.rect = rect;
        call.from = from;
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
    RecordedCall& Write (const char* operation, const auto&... rest)
    {
        std::ostringstream words;
        words << before << operation;
        ((words << ' ' << rest), ...);
        log->emplace_back (words.str ());
        log->back ().operation = operation;
        return log->back ();
    }

    std::shared_ptr<Log> log = std::make_shared<Log> (); // shared with the offscreen ones made from this
    std::string before;
    std::vector<ZRect> clips;
};

} // namespace tessaly
