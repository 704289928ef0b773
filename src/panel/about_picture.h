#pragma once

#include "pictures.h"
#include <cstdint>
#include <string>
#include <string_view>

namespace tessaly
{

/// A picture with two lines of text over it, left-aligned and centred in their heights. Without a first line there is
/// no second one. A line's rectangle is given from the frame's top left.
class AMX_AboutPicture final : public ZBitmapPicture
{
public:
    AMX_AboutPicture (ZPaneOwner* paneOwner, const ZRect& rect, std::int32_t controlId);

    void SetLine1 (std::string_view text) { line1.text = text; } ///< UTF-8
    void SetLine1Rect (const ZRect& rect) { line1.rect = rect + GetPosition (); }
    void SetLine2 (std::string_view text) { line2.text = text; }
    void SetLine2Rect (const ZRect& rect) { line2.rect = rect + GetPosition (); }
    void SetFontSize (std::int32_t pixels) { fontSize = pixels; }
    void SetTextColor (ZColor color) { textColor = color; }

    void DrawActive (ZCanvas& canvas, std::uint32_t time) override;
    void DrawInactive (ZCanvas& canvas, std::uint32_t time) override { DrawActive (canvas, time); }

private:
    struct Line
    {
        std::string text;
        ZRect rect; // in the parent's coordinates; at first the frame
    };

    Line line1;
    Line line2;
    std::int32_t fontSize = 8; // pixels
    ZColor textColor{ 255, 255, 255 };
};

} // namespace tessaly
