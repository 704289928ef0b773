#pragma once

#include "bitmap.h"
#include "bitmap_imp.h"
#include "canvas.h"
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tessaly
{

inline std::string Words (ZPoint p)
{
    return std::to_string (p.x) + "," + std::to_string (p.y);
}

inline std::string Words (const ZRect& r)
{
    return Words (r.TopLeft ()) + "," + Words (r.BottomRight ());
}

/// An image that is nothing but a name and a size.
class NamedBitmapImp final : public ZBitmapImp
{
public:
    explicit NamedBitmapImp (std::string imageName, std::uint32_t w = 100, std::uint32_t h = 100)
        : name (std::move (imageName))
        , width (w)
        , height (h)
    {
    }
    const std::string& GetName () const override { return name; }
    std::uint32_t GetWidth () const override { return width; }
    std::uint32_t GetHeight () const override { return height; }

private:
    std::string name;
    std::uint32_t width;
    std::uint32_t height;
};

inline ZBitmap NamedBitmap (const std::string& name)
{
    return ZBitmap (std::make_unique<NamedBitmapImp> (name));
}

/// A back end that writes each drawing call down as words, offscreen ones with "> " before them into the same log.
/// The present clip is kept, not logged.
class RecordingCanvasImp final : public ZCanvasImp
{
public:
    using Log = std::vector<std::string>;

    RecordingCanvasImp ()
        : log (std::make_shared<Log> ())
    {
    }
    Log Take () ///< the calls so far, which are then forgotten
    {
        return std::exchange (*log, {});
    }
    ZRect clip; // the present one; zero for none
    double scale = 1.0;

    std::unique_ptr<ZCanvasImp> CreateOffscreenImp (const ZRect& rect) override
    {
        Write ("CreateOffscreen " + Words (rect));
        return std::unique_ptr<ZCanvasImp> (new RecordingCanvasImp (log));
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
    void Clear (const ZRect& rect) override { Write ("Clear " + Words (rect)); }
    void SetColor (ZColor c, std::uint8_t alpha) override
    {
        Write ("SetColor " + std::to_string (c.red) + "," + std::to_string (c.green) + "," + std::to_string (c.blue) +
               "," + std::to_string (alpha));
    }
    void SetLineWidth (std::int32_t pixels) override { Write ("SetLineWidth " + std::to_string (pixels)); }
    void SetLineStyle (std::int32_t style) override { Write ("SetLineStyle " + std::to_string (style)); }
    void MoveTo (ZPoint point) override { Write ("MoveTo " + Words (point)); }
    void LineTo (ZPoint point) override { Write ("LineTo " + Words (point)); }
    void FrameRect (const ZRect& rect) override { Write ("FrameRect " + Words (rect)); }
    void FillRect (const ZRect& rect) override { Write ("FillRect " + Words (rect)); }
    void FramePolygon (std::span<const ZPoint> points) override { Write ("FramePolygon" + Listed (points)); }
    void FillPolygon (std::span<const ZPoint> points) override { Write ("FillPolygon" + Listed (points)); }
    void SetFont (std::string_view name, std::int32_t pixels, std::int32_t style) override
    {
        Write ("SetFont " + std::string (name) + " " + std::to_string (pixels) + " " + std::to_string (style));
    }
    void SetFontSize (std::int32_t index, std::int32_t style) override
    {
        Write ("SetFontSize " + std::to_string (index) + " " + std::to_string (style));
    }
    std::int32_t GetFontSize () const override { return 12; }
    std::int32_t GetTextWidth (std::string_view text) override { return 6 * static_cast<std::int32_t> (text.size ()); }
    void DrawText (std::string_view text, const ZRect& rect, std::int32_t alignment) override
    {
        Write ("DrawText '" + std::string (text) + "' " + Words (rect) + " " + std::to_string (alignment));
    }
    void CopyCanvasPlain (ZCanvasImp&, const ZRect& rect, ZPoint from) override
    {
        Write ("CopyCanvas " + Words (rect) + " from " + Words (from));
    }
    void CopyCanvasKeyed (ZCanvasImp&, const ZRect& rect, ZPoint from, ZColor) override
    {
        Write ("CopyCanvasKeyed " + Words (rect) + " from " + Words (from));
    }
    void CopyCanvasAlpha (ZCanvasImp&, const ZRect& rect, ZPoint from, std::uint8_t alpha) override
    {
        Write ("CopyCanvasAlpha " + Words (rect) + " from " + Words (from) + " " + std::to_string (alpha));
    }
    void StretchCanvas (ZCanvasImp&, const ZRect& rect, const ZRect& from) override
    {
        Write ("StretchCanvas " + Words (rect) + " from " + Words (from));
    }
    void DrawBitmapPlain (ZBitmapImp& bitmap, const ZRect& rect, ZPoint from) override
    {
        Write ("DrawBitmap " + bitmap.GetName () + " " + Words (rect) + " from " + Words (from));
    }
    void DrawBitmapKeyed (ZBitmapImp& bitmap, const ZRect& rect, ZPoint from, ZColor) override
    {
        Write ("DrawBitmapKeyed " + bitmap.GetName () + " " + Words (rect) + " from " + Words (from));
    }
    void DrawBitmapAlpha (ZBitmapImp& bitmap, const ZRect& rect, ZPoint from, std::uint8_t alpha) override
    {
        Write ("DrawBitmapAlpha " + bitmap.GetName () + " " + Words (rect) + " from " + Words (from) + " " +
               std::to_string (alpha));
    }
    void StretchBitmap (ZBitmapImp& bitmap, const ZRect& rect, const ZRect& from) override
    {
        Write ("StretchBitmap " + bitmap.GetName () + " " + Words (rect) + " from " + Words (from));
    }

private:
    explicit RecordingCanvasImp (std::shared_ptr<Log> shared)
        : log (std::move (shared))
        , offscreen (true)
    {
    }
    static std::string Listed (std::span<const ZPoint> points)
    {
        std::string words;
        for (const auto& point : points)
            words += " " + Words (point);
        return words;
    }
    void Write (const std::string& words) { log->push_back ((offscreen ? "> " : "") + words); }

    std::shared_ptr<Log> log; // shared with the offscreen ones made from this
    bool offscreen = false;
    std::vector<ZRect> clips;
};

} // namespace tessaly
