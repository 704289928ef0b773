#include "canvas_menu_imp.h"

#include "ascii_case.h"
#include "canvas.h"
#include "matrix_menu.h"
#include "pane_owner.h"
#include "view.h"
#include <algorithm>
#include <cstdlib>
#include <utility>
#include <vector>

namespace tessaly
{

namespace
{

constexpr std::int32_t kBorder = 4;     // pixels around the items, the line included
constexpr std::int32_t kRowSpace = 6;   // pixels of a row above and below the font's size
constexpr std::int32_t kTextSpace = 12; // pixels right of the widest text
constexpr std::int32_t kTremble = 4;    // pixels that a click may move and still be a click
constexpr std::int32_t kEitherButton = kLeftButton | kMiddleButton | kRightButton;

/// A tick in the left square of a row.
void DrawCheck (ZCanvas& canvas, const ZRect& row)
{
    const auto side = row.Height ();
    canvas.SetLineWidth (2);
    canvas.SetLineStyle (kSolidLine);
    canvas.MoveTo (row.left + side * 3 / 10, row.top + side / 2);
    canvas.LineTo (row.left + side * 9 / 20, row.top + side * 7 / 10);
    canvas.LineTo (row.left + side * 15 / 20, row.top + side * 3 / 10);
}

} // namespace

ZCanvasMenuImp::ZCanvasMenuImp (ZCanvas& measuringCanvas, ZOverlayStyle menuStyle)
    : measure (measuringCanvas)
    , style (std::move (menuStyle))
{
}

bool ZCanvasMenuImp::Open (ZEvent& /*event*/, const ZMouseInput& mouse)
{
    if (IsOpen () || control == nullptr || GetItemCount () == 0)
        return false;
    Lay (mouse.point);
    highlighted = IsItemEnabled (GetSelected ()) ? GetSelected () : -1;
    armed = false;
    pressPoint = lastPoint = mouse.point;
    return true;
}

void ZCanvasMenuImp::Lay (ZPoint point)
{
    UseFont (measure);
    const auto rowHeight = std::max (style.menuFontPixels, 1) + kRowSpace;
    std::vector<std::int32_t> widths;
    for (std::int32_t i = 0; i < GetItemCount (); ++i)
        widths.push_back (rowHeight + measure.GetTextWidth (GetItemText (i)) + kTextSpace);
    const auto* root = control->GetOwner () != nullptr ? control->GetOwner ()->GetRootView () : nullptr;
    grid.Lay (widths, { GetRows (), rowHeight, kBorder }, root != nullptr ? root->GetFrame () : ZRect{},
              GetOpenPoint (point), IsCentered ());
}

bool ZCanvasMenuImp::Close (bool /*commit*/)
{
    grid.Clear ();
    return false;
}

// Drawing

void ZCanvasMenuImp::UseFont (ZCanvas& canvas) const
{
    canvas.SetFont (style.fontName, std::max (style.menuFontPixels, 1), style.fontStyle);
}

void ZCanvasMenuImp::DrawActive (ZCanvas& canvas, std::uint32_t /*time*/)
{
    const auto origin = control->GetOrigin ();
    const auto frame = grid.GetRect () - origin;
    canvas.SetColor (style.background, 255);
    canvas.FillRect (frame);
    canvas.SetColor (style.border, 255);
    canvas.SetLineWidth (1);
    canvas.SetLineStyle (kSolidLine);
    canvas.FrameRect (frame);
    for (auto first = grid.GetRows (); first < grid.GetCount (); first += grid.GetRows ()) // between columns
    {
        const auto left = grid.GetItem (first).left - origin.x;
        canvas.FillRect ({ left, frame.top + kBorder, left + 1, frame.bottom - kBorder });
    }
    UseFont (canvas);
    for (std::int32_t i = 0; i < std::min (grid.GetCount (), GetItemCount ()); ++i)
        DrawItem (canvas, i, origin);
}

void ZCanvasMenuImp::DrawItem (ZCanvas& canvas, std::int32_t index, ZPoint origin) const
{
    const auto row = grid.GetItem (index) - origin;
    const auto& item = Item (index);
    auto color = item.enabled ? style.text : style.disabledText;
    if (index == highlighted && item.enabled)
    {
        canvas.SetColor (style.highlight, 255);
        canvas.FillRect (row);
        color = style.highlightText;
    }
    canvas.SetColor (color, 255);
    if (item.checked)
        DrawCheck (canvas, row);
    auto place = row;
    place.left += row.Height ();
    canvas.DrawText (item.text, place, kAlignLeft | kAlignMiddle);
}

// Mouse

std::int32_t ZCanvasMenuImp::EnabledAt (ZPoint point) const
{
    const auto index = grid.ItemAt (point + control->GetOrigin ());
    return IsItemEnabled (index) ? index : -1;
}

void ZCanvasMenuImp::Highlight (std::int32_t index)
{
    if (index == highlighted)
        return;
    highlighted = index;
    control->SetDirty (true);
}

void ZCanvasMenuImp::Follow (ZPoint point)
{
    if (std::exchange (lastPoint, point) != point)
        Highlight (EnabledAt (point));
}

void ZCanvasMenuImp::Choose (std::int32_t index)
{
    if (!IsItemEnabled (index))
        return;
    SetSelected (index);
    control->CloseModal (true);
}

bool ZCanvasMenuImp::OnMouseDown (ZEvent& /*event*/, const ZMouseInput& mouse)
{
    if (!IsOpen ())
        return false;
    armed = true;
    lastPoint = mouse.point;
    Highlight (EnabledAt (mouse.point));
    return true;
}

bool ZCanvasMenuImp::OnMouseMove (ZEvent& event, const ZMouseInput& mouse)
{
    if ((mouse.buttons & kEitherButton) == 0)
        return OnMouseUp (event, mouse);
    const auto moved = mouse.point - pressPoint;
    armed = armed || std::max (std::abs (moved.x), std::abs (moved.y)) >= kTremble;
    Follow (mouse.point);
    return IsOpen ();
}

bool ZCanvasMenuImp::OnMouseUp (ZEvent& /*event*/, const ZMouseInput& mouse)
{
    // The drag of a control that is hidden or disabled meanwhile ends like this, too.
    const bool usable = control->IsVisible () && control->IsMouseEnabled ();
    if (std::exchange (armed, false) && usable && IsOpen ())
        Choose (EnabledAt (mouse.point));
    return false;
}

bool ZCanvasMenuImp::OnMouseWheel (ZEvent& /*event*/, const ZWheelInput& wheel)
{
    if (wheel.delta != 0)
        HighlightNext (wheel.delta > 0 ? -1 : 1);
    return true;
}

void ZCanvasMenuImp::OnIdle (ZEvent& /*event*/, const ZMouseInput& mouse)
{
    if (IsOpen ())
        Follow (mouse.point);
}

// Keys

bool ZCanvasMenuImp::OnKeyDown (ZEvent& /*event*/, const ZKeyInput& key)
{
    if (!IsOpen ())
        return false;
    switch (key.key)
    {
    case kKeyUp:
        HighlightNext (-1);
        break;
    case kKeyDown:
        HighlightNext (1);
        break;
    case kKeyLeft:
        HighlightBeside (-grid.GetRows ());
        break;
    case kKeyRight:
        HighlightBeside (grid.GetRows ());
        break;
    case kKeyHome:
        highlighted = -1;
        HighlightNext (1);
        break;
    case kKeyEnd:
        highlighted = -1;
        HighlightNext (-1);
        break;
    case kKeyReturn:
    case kKeyEnter:
    case kKeySpace:
        Choose (highlighted);
        break;
    case kKeyEscape:
        control->CloseModal (false);
        break;
    default:
        if (key.character != 0 && (key.modifiers & (kControl | kAlt | kCommand)) == 0)
            HighlightFirst (key.character);
    }
    return true;
}

void ZCanvasMenuImp::HighlightNext (std::int32_t step)
{
    const auto count = GetItemCount ();
    auto index = highlighted >= 0 || step > 0 ? highlighted : 0;
    for (std::int32_t tried = 0; tried < count; ++tried)
    {
        index = (index + step + count) % count;
        if (IsItemEnabled (index))
            return Highlight (index);
    }
}

void ZCanvasMenuImp::HighlightBeside (std::int32_t step)
{
    if (highlighted < 0)
        return HighlightNext (step > 0 ? 1 : -1);
    const auto last = grid.GetCount () - 1;
    const auto lastColumn = last / grid.GetRows ();
    for (auto index = highlighted + step; index >= 0 && index / grid.GetRows () <= lastColumn; index += step)
        if (const auto there = std::min (index, last); IsItemEnabled (there)) // the last column may be short
            return Highlight (there);
}

void ZCanvasMenuImp::HighlightFirst (char letter)
{
    const auto count = GetItemCount ();
    for (std::int32_t tried = 1; tried <= count; ++tried)
    {
        const auto index = (highlighted + tried) % count;
        const auto text = GetItemText (index);
        if (IsItemEnabled (index) && !text.empty () && AsciiLower (text[0]) == AsciiLower (letter))
            return Highlight (index);
    }
}

} // namespace tessaly
