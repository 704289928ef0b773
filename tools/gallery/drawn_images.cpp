#include "drawn_images.h"

#include "canvas_imp.h"
#include "exhibits.h"
#include "palette.h"
#include "panel_image.h"
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <string_view>

namespace tessaly::gallery
{

namespace
{

/// One frame of a strip.
struct Frame
{
    std::int32_t index;
    std::int32_t count;
    std::int32_t width;
    std::int32_t height;

    double Part () const { return count > 1 ? static_cast<double> (index) / (count - 1) : 0.0; }
    ZRect Rect () const { return { 0, 0, width, height }; }
};

// Dials

void DrawKnobFace (Sketch& sketch, ZPoint center, double degree)
{
    sketch.Disc (center.x, center.y + 1, 20, kGroove);
    sketch.Disc (center.x, center.y, 19.5, kFaceDark);
    sketch.Disc (center.x, center.y - 0.5, 18, kFace);
    sketch.Ray (center, 8, 16, degree, 3, kInk);
}

void DrawDialFrom (Sketch& sketch, const Frame& frame, double zero, double degree)
{
    const ZPoint center{ frame.width / 2, frame.height / 2 };
    sketch.Arc (center, 24.5, 30, 330, 4, kGroove);
    sketch.Arc (center, 24.5, zero, degree, 4, kAccent);
    DrawKnobFace (sketch, center, degree);
}

void DrawDial (Sketch& sketch, const Frame& frame)
{
    DrawDialFrom (sketch, frame, 30, 30 + 300 * frame.Part ());
}

void DrawPanDial (Sketch& sketch, const Frame& frame) // from the right to the left, shown from the middle
{
    DrawDialFrom (sketch, frame, 180, 330 - 300 * frame.Part ());
}

void DrawRotary (Sketch& sketch, const Frame& frame)
{
    DrawKnobFace (sketch, { frame.width / 2, frame.height / 2 }, 60 + 240 * frame.Part ());
}

// Switches and sliders

void DrawToggle (Sketch& sketch, const Frame& frame) // frames from below to above
{
    const auto room = frame.height - 28.0;
    const auto top = 2 + room * (1 - frame.Part ());
    sketch.RoundRect (0, 0, frame.width, frame.height, 6, kGroove);
    sketch.RoundRect (2, top, frame.width - 4.0, 24, 4, kFace);
    sketch.RoundRect (6, top + 11, frame.width - 12.0, 2, 1, frame.index == frame.count - 1 ? kAccent : kInk);
}

void DrawSlope (Sketch& sketch, const Frame& frame)
{
    const auto part = frame.width / 4.0;
    sketch.RoundRect (0, 0, frame.width, frame.height, 4, kGroove);
    sketch.RoundRect (frame.index * part + 1, 1, part - 2, frame.height - 2.0, 3, kAccent);
    constexpr std::array kWords{ "6", "12", "18", "24" };
    for (std::int32_t i = 0; i < 4; ++i)
        sketch.Text (kWords[static_cast<std::size_t> (i)],
                     { frame.width * i / 4, 0, frame.width * (i + 1) / 4, frame.height }, 11,
                     i == frame.index ? kBold : 0, i == frame.index ? kGroove : kQuietInk, kAlignCenter | kAlignMiddle);
}

void DrawBlend (Sketch& sketch, const Frame& frame)
{
    sketch.RoundRect (0, 0, frame.width, frame.height, 4, kGroove);
    sketch.RoundRect (2, 2, 6 + (frame.width - 10) * frame.Part (), frame.height - 4.0, 3, kAccent);
}

void DrawSliderThumb (Sketch& sketch, const Frame& frame)
{
    const bool upright = frame.height > frame.width;
    sketch.RoundRect (0.5, 0.5, frame.width - 1.0, frame.height - 1.0, 3, kGroove);
    sketch.RoundRect (1.5, 1, frame.width - 3.0, frame.height - 3.0, 2, kFaceLight);
    if (upright)
        sketch.Line (frame.width / 2.0, 5, frame.width / 2.0, frame.height - 6, 2, kGroove);
    else
        sketch.Line (5, frame.height / 2.0 - 0.5, frame.width - 5, frame.height / 2.0 - 0.5, 2, kGroove);
}

// Buttons

/// @param lamp  null: there is none
void DrawButton (Sketch& sketch, const ZRect& rect, std::string_view word, bool down, const ZColor* lamp)
{
    const auto push = down ? 1 : 0;
    sketch.RoundRect (rect.left, rect.top, rect.Width (), rect.Height (), 4, kGroove);
    sketch.RoundRect (rect.left + 1, rect.top + push, rect.Width () - 2, rect.Height () - 2, 3,
                      down ? kFaceDark : kFace);
    if (lamp != nullptr)
        sketch.Disc (rect.left + 11, rect.top + rect.Height () / 2.0 - 1 + push, 3.5, *lamp);
    const auto left = rect.left + (lamp != nullptr ? 16 : 0);
    sketch.Text (word, { left, rect.top + push, rect.right, rect.bottom - 2 + push }, 11, 0, kInk,
                 kAlignCenter | kAlignMiddle);
}

void DrawTap (Sketch& sketch, const Frame& frame)
{
    DrawButton (sketch, frame.Rect (), frame.index == 0 ? "Tap" : "Down", frame.index == 1, nullptr);
}

/// The whole look of its control, which has no background besides: opaque in the corners, too.
void DrawStamp (Sketch& sketch, const Frame& frame)
{
    sketch.RoundRect (0, 0, frame.width, frame.height, 0, kCellColor);
    DrawButton (sketch, frame.Rect (), "One look", false, nullptr);
}

void DrawPad (Sketch& sketch, const Frame& frame)
{
    sketch.RoundFrame (0, 0, frame.width, frame.height, 4, kFaceLight);
    sketch.Text ("Over a picture", frame.Rect (), 11, 0, kQuietInk, kAlignCenter | kAlignMiddle);
}

/// Off, and then on or, with more frames, what lies between.
void DrawLatch (Sketch& sketch, const Frame& frame)
{
    const bool on = frame.index == (frame.count == 2 ? 1 : 2);
    const bool between = frame.count > 2 && frame.index % 2 == 1;
    const ZColor lamp = between ? kWarm : on ? kGreen : kGroove;
    const std::string word = std::to_string (frame.count) + " frames";
    DrawButton (sketch, frame.Rect (), word, between, &lamp);
}

void DrawPower (Sketch& sketch, const Frame& frame)
{
    const ZColor lamp = frame.index == 1 ? kRed : kGroove;
    DrawButton (sketch, frame.Rect (), frame.index == 1 ? "On" : "Off", frame.index == 1, &lamp);
}

void DrawRadio (Sketch& sketch, const Frame& frame) // the three buttons side by side
{
    constexpr std::array kWords{ "Low", "Mid", "High" };
    const auto width = frame.width / 3;
    const ZColor lamp = frame.index == 0 ? kGroove : frame.index == 2 ? kAccent : kWarm;
    for (std::int32_t i = 0; i < 3; ++i)
        DrawButton (sketch, { i * width, 0, (i + 1) * width, frame.height }, kWords[static_cast<std::size_t> (i)],
                    frame.index != 0, &lamp);
}

// Pictures

double WaveAt (std::int32_t shape, double phase) // phase: periods. @return -1 to 1
{
    const auto part = phase - std::floor (phase);
    switch (shape)
    {
    case 1:
        return std::sin (2.0 * std::numbers::pi * phase);
    case 2:
        return 4.0 * std::abs (part - std::floor (part + 0.5)) - 1.0;
    case 3:
        return part < 0.5 ? 1.0 : -1.0;
    case 4:
        return 1.0 - 2.0 * part;
    default:
        return 0.0;
    }
}

void DrawWave (Sketch& sketch, const Frame& frame)
{
    sketch.RoundRect (0, 0, frame.width, frame.height, 4, kGroove);
    const auto y = [&frame] (double x)
    { return frame.height / 2.0 - WaveAt (frame.index, (x - 8) / 38.0) * (frame.height / 2.0 - 10); };
    for (double x = 8; x < frame.width - 8; x += 0.5)
        sketch.Line (x, y (x), x + 0.5, y (x + 0.5), 2, kGreen);
}

void DrawSymbols (Sketch& sketch, const Frame& frame)
{
    const ZPoint middle{ 16, 16 };
    sketch.Disc (middle.x, middle.y, 14, kWarm);
    sketch.Disc (middle.x, middle.y, 9, kCellColor);
    sketch.RoundRect (frame.width / 3.0 + 3, 3, 26, 26, 6, kAccent);
    sketch.RoundRect (frame.width / 3.0 + 9, 9, 14, 14, 3, kCellColor);
    const ZPoint last{ frame.width - 16, 16 };
    for (std::int32_t i = 0; i < 6; ++i)
        sketch.Ray (last, 4, 13, i * 60.0, 3, kGreen);
}

// Meters and the views' contents

void DrawBar (Sketch& sketch, const Frame& frame)
{
    sketch.RoundRect (0, 0, frame.width, frame.height, 3, kGroove);
    for (std::int32_t i = 0; i < frame.index; ++i)
        sketch.RoundRect (2 + i * (frame.width - 3.0) / (frame.count - 1), 2, 2, frame.height - 4.0, 0,
                          i > 16   ? kRed
                          : i > 12 ? kWarm
                                   : kGreen);
}

void DrawMeter (Sketch& sketch, const Frame& frame)
{
    sketch.RoundRect (0, 0, frame.width, frame.height, 3, kGroove);
    const auto lamps = frame.count - 1;
    for (std::int32_t i = 0; i < lamps; ++i)
    {
        const ZColor lit = i > lamps * 9 / 10 ? kRed : i > lamps * 7 / 10 ? kWarm : kGreen;
        sketch.RoundRect (2, frame.height - 4 - i * 4, frame.width - 4.0, 3, 1, i < frame.index ? lit : kFaceDark);
    }
}

void DrawGround (Sketch& sketch, const Frame& frame) // what stays still below something that moves
{
    sketch.RoundRect (0, 0, frame.width, frame.height, 0, kGroove);
    for (std::int32_t x = 10; x < frame.width; x += 20)
        sketch.Line (x + 0.5, 4, x + 0.5, frame.height - 4, 1, kFaceDark);
    for (std::int32_t y = 10; y < frame.height; y += 20)
        sketch.Line (4, y + 0.5, frame.width - 4, y + 0.5, 1, kFaceDark);
}

void DrawMark (Sketch& sketch, const Frame& frame)
{
    sketch.Disc (frame.width / 2.0, frame.height / 2.0, frame.width / 2.0, kWarm);
    sketch.Disc (frame.width / 2.0, frame.height / 2.0, frame.width / 4.0, kGroove);
}

// Fonts

void DrawCodes (Sketch& sketch, const Frame& frame) // 16 columns of 16 glyphs
{
    const auto width = frame.width / 16;
    const auto height = frame.height / 16;
    for (std::int32_t code = ' ' + 1; code < 127; ++code)
    {
        const char letter = static_cast<char> (code);
        const ZPoint at{ code / 16 * width, code % 16 * height };
        sketch.Text ({ &letter, 1 }, { at.x, at.y, at.x + width, at.y + height }, 12, kBold, kWarm,
                     kAlignCenter | kAlignMiddle);
    }
}

/// A digit of seven bars.
void DrawListed (Sketch& sketch, const Frame& frame)
{
    // A bit for each bar: above, upper right, lower right, below, lower left, upper left, middle
    constexpr std::array<std::int32_t, 12> kBars{ 0, 0x3F, 0x06, 0x5B, 0x4F, 0x66, 0x6D, 0x7D, 0x07, 0x7F, 0x6F, 0x40 };
    struct Bar
    {
        double x1, y1, x2, y2;
    };
    constexpr std::array<Bar, 7> kPlaces{ { { 4, 3, 10, 3 },
                                            { 11, 4, 11, 10 },
                                            { 11, 12, 11, 18 },
                                            { 4, 19, 10, 19 },
                                            { 3, 12, 3, 18 },
                                            { 3, 4, 3, 10 },
                                            { 4, 11, 10, 11 } } };
    if (frame.index == frame.count - 1)
        sketch.Disc (7, 18.5, 1.8, kRed);
    else
        for (std::size_t bar = 0; bar < kPlaces.size (); ++bar)
            if ((kBars[static_cast<std::size_t> (frame.index)] >> bar & 1) != 0)
                sketch.Line (kPlaces[bar].x1, kPlaces[bar].y1, kPlaces[bar].x2, kPlaces[bar].y2, 2, kRed);
}

struct Drawing
{
    std::string_view name;
    std::int32_t width; // of a frame
    std::int32_t height;
    std::int32_t frames; // one below the other
    void (*draw) (Sketch& sketch, const Frame& frame);
    bool dim = false; // for a control that is switched off
};

void DrawPanelFrame (Sketch& sketch, const Frame& /*frame*/)
{
    DrawPanel (sketch);
}

const std::array kDrawings{
    Drawing{ kPanelImage, kPanelWidth, kPanelHeight, 1, DrawPanelFrame },
    Drawing{ "DIAL.PNG", 56, 56, 51, DrawDial },
    Drawing{ "DIAL_OFF.PNG", 56, 56, 51, DrawDial, true },
    Drawing{ "DIAL_PAN.PNG", 56, 56, 51, DrawPanDial },
    Drawing{ "ROTARY.PNG", 56, 56, 5, DrawRotary },
    Drawing{ "TOGGLE.PNG", 28, 60, 3, DrawToggle },
    Drawing{ "TOGGLE_OFF.PNG", 28, 60, 3, DrawToggle, true },
    Drawing{ "SLOPE.PNG", 100, 20, 4, DrawSlope },
    Drawing{ "BLEND.PNG", 100, 20, 51, DrawBlend },
    Drawing{ "THUMB.PNG", 14, 24, 1, DrawSliderThumb },
    Drawing{ "THUMB_UP.PNG", 24, 12, 1, DrawSliderThumb },
    Drawing{ "TAP.PNG", 100, 20, 2, DrawTap },
    Drawing{ "STAMP.PNG", 100, 20, 1, DrawStamp },
    Drawing{ "PAD.PNG", 100, 20, 1, DrawPad },
    Drawing{ "LATCH2.PNG", 100, 20, 2, DrawLatch },
    Drawing{ "LATCH3.PNG", 100, 20, 3, DrawLatch },
    Drawing{ "LATCH3_OFF.PNG", 100, 20, 3, DrawLatch, true },
    Drawing{ "LATCH4.PNG", 100, 20, 4, DrawLatch },
    Drawing{ "POWER.PNG", 46, 20, 2, DrawPower },
    Drawing{ "RADIO.PNG", 300, 20, 4, DrawRadio },
    Drawing{ "WAVES.PNG", 92, 50, 5, DrawWave },
    Drawing{ "SYMBOLS.PNG", 96, 32, 1, DrawSymbols },
    Drawing{ "BAR.PNG", 60, 12, 21, DrawBar },
    Drawing{ "METER.PNG", 16, 68, 17, DrawMeter },
    Drawing{ "GROUND.PNG", kHoverPlace.rect.Width (), kHoverPlace.rect.Height (), 1, DrawGround },
    Drawing{ "MARK.PNG", 16, 16, 1, DrawMark },
    Drawing{ "CODES.PNG", 144, 256, 1, DrawCodes },
    Drawing{ "DIGITS.PNG", kListedCell.x, kListedCell.y, 13, DrawListed },
};

Png Draw (const Drawing& drawing, std::int32_t density)
{
    Sketch sketch (drawing.width, drawing.height * drawing.frames, density);
    sketch.SetDim (drawing.dim);
    for (std::int32_t i = 0; i < drawing.frames; ++i)
    {
        sketch.BeginFrame ({ 0, i * drawing.height, drawing.width, (i + 1) * drawing.height });
        drawing.draw (sketch, { i, drawing.frames, drawing.width, drawing.height });
    }
    return sketch.ToPng ();
}

} // namespace

std::span<const std::byte> DrawnImages::Find (std::string_view name, std::int32_t density) const
{
    const auto drawing =
        std::find_if (kDrawings.begin (), kDrawings.end (), [name] (const auto& known) { return known.name == name; });
    if (drawing == kDrawings.end ())
        return {};
    const auto [place, isNew] = drawn.try_emplace ({ std::string (name), density });
    if (isNew)
        place->second = Draw (*drawing, density);
    return place->second;
}

} // namespace tessaly::gallery
