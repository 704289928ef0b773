#include "exhibits.h"

#include "palette.h"
#include "parameters.h"

namespace tessaly::gallery
{

namespace
{

constexpr std::int32_t kRadioWidth = 100;
constexpr std::int32_t kSymbolWidth = 32;
constexpr std::int32_t kCentered = 1;

/// A record in a cell, over its part of the panel. @param rect  from the cell's top left
ZControlDescription Record (std::int32_t column, std::int32_t row, std::int32_t kind, std::int32_t id,
                            const ZRect& rect)
{
    const auto placed = rect + Cell{ column, row, "" }.Rect ().TopLeft ();
    ZControlDescription record;
    record.kind = kind;
    record.id = id;
    record.x = placed.left;
    record.y = placed.top;
    record.width = placed.Width ();
    record.height = placed.Height ();
    record.backName = kPanelImage;
    record.backX = placed.left;
    record.backY = placed.top;
    return record;
}

ZControlDescription WithImage (ZControlDescription record, const char* name, std::int32_t frames, std::int32_t x = 0)
{
    record.imageName = name;
    record.frameCount = frames;
    record.imageX = x;
    return record;
}

ZControlDescription WithText (ZControlDescription record, ZColor color, std::int32_t height)
{
    record.textColor = { color, 1 };
    record.charHeight = height;
    record.alignment = kCentered;
    return record;
}

/// A line below a control that says its value.
Exhibit ValueLine (std::int32_t column, std::int32_t row, std::int32_t id)
{
    return { nullptr, WithText (Record (column, row, kKindText, id, { 9, 95, 129, 111 }), kQuietInk, 11) };
}

ZControlDescription Dial (std::int32_t column, std::int32_t kind, std::int32_t id, const char* image,
                          std::int32_t frames, std::int32_t margin)
{
    auto record = WithImage (Record (column, 0, kind, id, { 41, 32, 97, 88 }), image, frames);
    record.beginDegree = margin;
    record.endDegree = 360 - margin;
    record.centerX = 28;
    record.centerY = 28;
    return record;
}

ZControlDescription Slider (std::int32_t column, std::int32_t kind, std::int32_t id, const ZRect& rect, ZPoint thumb,
                            std::int32_t orientation)
{
    auto record = Record (column, 1, kind, id, rect);
    record.knobWidth = thumb.x;
    record.knobHeight = thumb.y;
    record.sliderOrientation = orientation;
    return record;
}

/// One of three buttons, one below the other.
ZControlDescription Button (std::int32_t column, std::int32_t row, std::int32_t place, std::int32_t kind,
                            std::int32_t id)
{
    const auto top = 30 + place * 28;
    return Record (column, row, kind, id, { 19, top, 119, top + 20 });
}

ZControlDescription Radio (std::int32_t index)
{
    auto record = WithImage (Button (0, 2, index, kKindRadioButton, kBand), "RADIO.PNG", 4, index * kRadioWidth);
    record.buttonIndex = index;
    return record;
}

ZControlDescription Symbol (std::int32_t index, std::int32_t kind)
{
    const auto left = 13 + index * (kSymbolWidth + 8);
    auto record = Record (5, 0, kind, kParameterCount, { left, 44, left + kSymbolWidth, 76 });
    record.imageName = "SYMBOLS.PNG";
    record.imageX = index * kSymbolWidth;
    return record;
}

ZControlDescription Filled (ZControlDescription record, ZColor color)
{
    record.backColor = { color, 1 };
    return record;
}

ZControlDescription TypedText ()
{
    auto record = WithText (Filled (Record (1, 2, kKindText, kTime, { 19, 51, 119, 69 }), kGroove), kInk, 12);
    record.editMode = 3;
    return record;
}

ZControlDescription CodeFontText ()
{
    auto record = Filled (Record (2, 2, kKindFontText, kPitch, { 19, 51, 119, 69 }), kGroove);
    record.imageName = "CODES.PNG";
    record.charWidth = 9;
    record.charHeight = 16;
    record.alignment = kCentered;
    record.editMode = 3;
    return record;
}

ZControlDescription DescribedMeter ()
{
    auto record = WithImage (Record (0, 3, kKindAnimSlider, 0, { 16, 60, 76, 72 }), "BAR.PNG", 21);
    record.target = kTargetMeter;
    return record;
}

std::vector<Exhibit> FirstRow ()
{
    auto pan = Dial (1, kKindDial, kPan, "DIAL_PAN.PNG", 51, 30);
    std::swap (pan.beginDegree, pan.endDegree);
    pan.counterClockwise = 1;
    auto polarity = WithImage (Record (3, 0, kKindToggleSwitch, kPolarity, { 55, 30, 83, 90 }), "TOGGLE.PNG", 3);
    polarity.zoneStart = 20;
    polarity.zoneEnd = 40;
    polarity.toggleOrientation = 3;
    return { { "gain", Dial (0, kKindDial, kGain, "DIAL.PNG", 51, 30) },
             ValueLine (0, 0, kGain),
             { "pan", pan },
             ValueLine (1, 0, kPan),
             { "shape", Dial (2, kKindRotarySwitch, kShape, "ROTARY.PNG", 5, 60) },
             ValueLine (2, 0, kShape),
             { "polarity", polarity },
             ValueLine (3, 0, kPolarity),
             { "shape-picture",
               WithImage (Record (4, 0, kKindAnimPicture, kShape, { 23, 34, 115, 84 }), "WAVES.PNG", 5) },
             ValueLine (4, 0, kShape),
             { "picture", Symbol (0, kKindPicture) },
             { "picture1", Symbol (1, kKindPicture1) },
             { "picture17", Symbol (2, kKindPicture17) } };
}

std::vector<Exhibit> SecondRow ()
{
    auto level = Slider (0, kKindKnobSlider, kLevel, { 16, 48, 122, 72 }, { 14, 24 }, 0);
    level.imageName = "THUMB.PNG";
    auto depth = Slider (1, kKindKnobSlider, kDepth, { 57, 28, 81, 92 }, { 24, 12 }, 3);
    depth.imageName = "THUMB_UP.PNG";
    const ZRect strip{ 19, 50, 119, 70 };
    // The button without a look lies over its picture, which lets the mouse through.
    return { { "level", level },
             ValueLine (0, 1, kLevel),
             { "depth", depth },
             ValueLine (1, 1, kDepth),
             { "blend", WithImage (Slider (2, kKindAnimSlider, kBlend, strip, { 4, 20 }, 0), "BLEND.PNG", 51) },
             ValueLine (2, 1, kBlend),
             { "slope", WithImage (Slider (3, kKindSlideSwitch, kSlope, strip, { 25, 20 }, 0), "SLOPE.PNG", 4) },
             ValueLine (3, 1, kSlope),
             { "tap", WithImage (Button (4, 1, 0, kKindAnimClickButton, kTap), "TAP.PNG", 2) },
             { nullptr, WithImage (Button (4, 1, 2, kKindPicture, kParameterCount), "PAD.PNG", 1) },
             { "pad", Button (4, 1, 2, kKindClickButton, kPad) },
             { "latch2", WithImage (Button (5, 1, 0, kKindOnOffButton, kLatch2), "LATCH2.PNG", 2) },
             { "latch3", WithImage (Button (5, 1, 1, kKindOnOffButton, kLatch3), "LATCH3.PNG", 3) },
             { "latch4", WithImage (Button (5, 1, 2, kKindOnOffButton, kLatch4), "LATCH4.PNG", 4) } };
}

std::vector<Exhibit> LowerRows ()
{
    const auto note = Filled (Record (4, 2, kKindTextMenu, kNote, { 19, 51, 119, 69 }), kFaceDark);
    return { { "band-low", Radio (0) },
             { "band-mid", Radio (1) },
             { "band-high", Radio (2) },
             { "time", TypedText () },
             { "pitch", CodeFontText () },
             { "note", WithText (note, kInk, 12) },
             { "wave", WithImage (Record (5, 2, kKindAnimMenu, kWave, { 23, 36, 115, 86 }), "WAVES.PNG", 5) },
             { "bar", DescribedMeter () },
             { "power", WithImage (Record (4, 3, kKindOnOffButton, kPower, { 12, 52, 58, 72 }), "POWER.PNG", 2) } };
}

} // namespace

std::vector<Exhibit> Exhibits ()
{
    auto all = FirstRow ();
    for (const auto& more : { SecondRow (), LowerRows () })
        all.insert (all.end (), more.begin (), more.end ());
    return all;
}

std::vector<Place> Places ()
{
    std::vector<Place> places{ kStampPlace, kRatioPlace, kMeterPlace, kOffscreenPlace, kHoverPlace, kSectionPlace };
    for (const auto& [name, record] : Exhibits ())
        if (name != nullptr)
            places.push_back ({ name, { record.x, record.y, record.x + record.width, record.y + record.height } });
    return places;
}

} // namespace tessaly::gallery
