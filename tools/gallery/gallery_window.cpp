#include "gallery_window.h"

#include "event.h"
#include "exhibits.h"
#include "palette.h"
#include <algorithm>
#include <array>

namespace tessaly::gallery
{

namespace
{

constexpr std::uint32_t kTick = 30; // milliseconds

} // namespace

GalleryWindow::GalleryWindow (double scale)
    : surface (kPanelWidth, kPanelHeight, scale)
    , surroundings (surface)
    , editor (surroundings)
{
    editor.Open ({});
    Settle ();
}

void GalleryWindow::Settle ()
{
    Wait (kTick);
}

void GalleryWindow::Point (ZPoint point)
{
    pointer = point;
    ZEvent event (*this);
    editor.MouseMove (event, Mouse ());
    Settle ();
}

void GalleryWindow::Press (std::int32_t pressed, std::int32_t held)
{
    buttons = pressed;
    modifiers = held;
    ZEvent event (*this);
    editor.MouseDown (event, Mouse ());
    Settle ();
}

void GalleryWindow::Release ()
{
    buttons = 0;
    ZEvent event (*this);
    editor.MouseUp (event, Mouse ());
    modifiers = 0;
    Settle ();
}

void GalleryWindow::Wheel (std::int32_t delta)
{
    ZEvent event (*this);
    editor.MouseWheel (event, { pointer, delta, time });
    Settle ();
}

void GalleryWindow::Key (const ZKeyInput& key)
{
    auto stamped = key;
    stamped.time = time;
    ZEvent event (*this);
    editor.KeyDown (event, stamped);
    editor.KeyUp (event, stamped);
    Settle ();
}

void GalleryWindow::Wait (std::uint32_t milliseconds)
{
    for (std::uint32_t passed = 0; passed < milliseconds;)
    {
        const auto step = std::min (kTick, milliseconds - passed);
        passed += step;
        time += step;
        ZEvent event (*this);
        if (buttons != 0)
            editor.MouseMove (event, Mouse ()); // a held button repeats, a slider pages
        editor.Idle (event, Mouse ());
        Paint ();
    }
}

bool GalleryWindow::Paint ()
{
    if (!editor.NeedsRedraw ())
        return false;
    ZOnscreenCanvas canvas (surface);
    editor.Draw (canvas, {}, time);
    return canvas.IsModified ();
}

Png GalleryWindow::Picture ()
{
    ZCairoCanvasImp whole (kPanelWidth, kPanelHeight, surface.GetScale ());
    whole.CopyCanvasPlain (surface, { 0, 0, kPanelWidth, kPanelHeight }, {});
    ZOnscreenCanvas canvas (whole);
    DrawSign (canvas);
    DrawPointer (canvas);
    return PngOf (whole.Surface ());
}

void GalleryWindow::DrawSign (ZCanvas& canvas) const
{
    const auto& sign = surroundings.Sign ();
    if (sign.text.empty ())
        return;
    canvas.SetFont ("Arial", 11, 0);
    const auto width = canvas.GetTextWidth (sign.text) + 12;
    const auto left = std::clamp (sign.area.left + 8, 0, std::max (kPanelWidth - width, 0));
    const ZRect rect{ left, sign.area.bottom + 2, left + width, sign.area.bottom + 22 };
    canvas.SetColor (kInk, 255);
    canvas.FillRect (rect);
    canvas.SetColor (kGroove, 255);
    canvas.SetLineWidth (1);
    canvas.FrameRect (rect);
    canvas.DrawText (sign.text, rect, kAlignCenter | kAlignMiddle);
}

void GalleryWindow::DrawPointer (ZCanvas& canvas) const
{
    if (hidden > 0)
        return;
    constexpr std::array<ZPoint, 7> kArrow{
        { { 0, 0 }, { 0, 15 }, { 4, 12 }, { 6, 17 }, { 9, 16 }, { 6, 11 }, { 11, 11 } }
    };
    auto arrow = kArrow;
    for (auto& corner : arrow)
        corner = corner + pointer;
    canvas.SetColor ({ 255, 255, 255 }, 255);
    canvas.FillPolygon (arrow);
    canvas.SetColor ({ 0, 0, 0 }, 255);
    canvas.SetLineWidth (1);
    canvas.FramePolygon (arrow);
}

} // namespace tessaly::gallery
