#include "panel_image.h"

#include "canvas_imp.h"
#include "control_description.h"
#include "exhibits.h"
#include "palette.h"
#include "sketch.h"

namespace tessaly::gallery
{

namespace
{

/// A groove in the middle of a slider's frame, as long as its thumb's centre can go.
void DrawGroove (Sketch& sketch, const ZControlDescription& slider)
{
    const bool level = slider.width > slider.height;
    const auto thickness = 4;
    if (level)
        sketch.RoundRect (slider.x + slider.knobWidth / 2, slider.y + slider.height / 2 - 2,
                          slider.width - slider.knobWidth, thickness, 2, kGroove);
    else
        sketch.RoundRect (slider.x + slider.width / 2 - 2, slider.y + slider.knobHeight / 2, thickness,
                          slider.height - slider.knobHeight, 2, kGroove);
}

/// Ticks around a rotary switch of five positions.
void DrawTicks (Sketch& sketch, const ZControlDescription& rotary)
{
    const ZPoint center{ rotary.x + rotary.centerX, rotary.y + rotary.centerY };
    for (std::int32_t i = 0; i < 5; ++i)
        sketch.Ray (center, 24, 28, rotary.beginDegree + i * (rotary.endDegree - rotary.beginDegree) / 4.0, 1.5,
                    kQuietInk);
}

void DrawAround (Sketch& sketch, const ZControlDescription& record)
{
    if (record.kind == kKindKnobSlider)
        DrawGroove (sketch, record);
    else if (record.kind == kKindRotarySwitch)
        DrawTicks (sketch, record);
}

} // namespace

void DrawPanel (Sketch& sketch)
{
    const ZRect whole{ 0, 0, kPanelWidth, kPanelHeight };
    sketch.RoundRect (0, 0, kPanelWidth, kPanelHeight, 0, kPanelColor);
    sketch.Text ("Controls", { 18, 10, 400, 40 }, 20, kBold, kInk, kAlignLeft | kAlignMiddle);
    sketch.Text ("Tessaly Bench", { 400, 10, whole.right - 18, 40 }, 12, 0, kQuietInk, kAlignRight | kAlignMiddle);
    for (const auto& cell : kCells)
    {
        const auto rect = cell.Rect ();
        sketch.RoundRect (rect.left, rect.top, rect.Width (), rect.Height (), 5, kCellColor);
        sketch.RoundFrame (rect.left, rect.top, rect.Width (), rect.Height (), 5, kCellEdge);
        const ZRect line{ rect.left, rect.top + 5, rect.right, rect.top + 21 };
        sketch.Text (cell.title, line, 11, 0, kQuietInk, kAlignCenter | kAlignMiddle);
        sketch.Text (cell.hint, line + ZPoint{ 0, 90 }, 10, 0, kQuietInk, kAlignCenter | kAlignMiddle);
    }
    for (const auto& exhibit : Exhibits ())
        DrawAround (sketch, exhibit.record);
}

} // namespace tessaly::gallery
