#include "gallery_window.h"

#include "exhibits.h"
#include "palette.h"
#include "parameters.h"
#include "script_error.h"
#include <algorithm>
#include <array>

namespace tessaly::gallery
{

GalleryWindow::GalleryWindow (double scale)
    : window (kPanelWidth, kPanelHeight, scale)
    , surroundings (window.Surface ())
    , editor (surroundings)
{
    window.Open (editor);
}

std::optional<ZRect> GalleryWindow::PlaceOf (std::string_view name) const
{
    for (const auto& place : Places ())
        if (name == place.name)
            return place.rect;
    return std::nullopt;
}

void GalleryWindow::SetLevel (std::int32_t meter, float level)
{
    surroundings.Meters ().SetDirect (meter, level);
}

void GalleryWindow::SetParameter (std::string_view name, double plain)
{
    auto& storage = surroundings.Storage ();
    const auto index = FindParameter (storage, name);
    if (index < 0)
        throw stage::ScriptError ("there is no parameter \"" + std::string (name) + "\"");
    if (plain < storage.GetMinimum (index) || plain > storage.GetMaximum (index))
        throw stage::ScriptError ("that value is beyond the range of \"" + std::string (name) + "\"");
    storage.SetPlain (index, static_cast<float> (plain));
}

stage::Png GalleryWindow::Picture ()
{
    PictureSurface whole (kPanelWidth, kPanelHeight, window.Surface ().GetScale ());
    whole.CopyCanvasPlain (window.Surface (), { 0, 0, kPanelWidth, kPanelHeight }, {});
    ZOnscreenCanvas canvas (whole);
    DrawSign (canvas);
    DrawPointer (canvas);
    return PngOf (whole);
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
    if (!window.IsPointerShown ())
        return;
    constexpr std::array<ZPoint, 7> kArrow{
        { { 0, 0 }, { 0, 15 }, { 4, 12 }, { 6, 17 }, { 9, 16 }, { 6, 11 }, { 11, 11 } }
    };
    auto arrow = kArrow;
    for (auto& corner : arrow)
        corner = corner + window.Pointer ();
    canvas.SetColor ({ 255, 255, 255 }, 255);
    canvas.FillPolygon (arrow);
    canvas.SetColor ({ 0, 0, 0 }, 255);
    canvas.SetLineWidth (1);
    canvas.FramePolygon (arrow);
}

} // namespace tessaly::gallery
