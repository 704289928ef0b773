#include "meters.h"

#include "meter_scales.h"
#include <algorithm>

namespace tessaly::skin
{

namespace
{

constexpr double kWidth = 5.0;
constexpr double kPitch = 2.0;
constexpr Ink kUnlit = Hex (0x18242C);
constexpr Ink kLitOff = Hex (0x4A5963);
constexpr Ink kUnlitOff = Hex (0x121A20);
constexpr Ink kLampUnlit = Hex (0x2A2218);
constexpr double kLampHeight = 5.0;

// A lamp for each entry of the meter's own table but the end that is always there; full scale has a lamp of its own.
constexpr int kReductionLamps = static_cast<int> (kGainReductionScale.size ()) - 1;
constexpr int kOutputLamps = static_cast<int> (kOutputScale.size ()) - 1;
constexpr int kFullScaleRow = kOutputLamps + 1;
constexpr int kOverloadRow = kOutputLamps + 2;

void DrawLamp (Picture& picture, double top, std::int32_t column, bool lit, Ink light)
{
    const Ink unlit = column == 0 ? kUnlit : kUnlitOff;
    picture.FillBox ({ 0, top, kWidth, 1 }, !lit ? unlit : column == 0 ? light : kLitOff);
}

Ink OverloadInk (std::int32_t column, std::int32_t row)
{
    if (column != 0)
        return kUnlitOff;
    return row == kOverloadRow ? kAmber : row == kFullScaleRow ? Mix (kAmber, kGlass, 0.4) : kLampUnlit;
}

} // namespace

void DrawReductionMeter (Picture& picture, std::int32_t column, std::int32_t row)
{
    picture.Fill (kGlass);
    for (int lamp = 0; lamp < kReductionLamps; ++lamp)
        DrawLamp (picture, kPitch * lamp, column, lamp < row, Mix (kFigure, kLightRest, std::min (1.0, lamp / 26.0)));
}

void DrawOutputMeter (Picture& picture, std::int32_t column, std::int32_t row)
{
    picture.Fill (kGlass);
    const double bottom = picture.Frame ().Height () - 1.0;
    for (int lamp = 0; lamp < kOutputLamps; ++lamp)
        DrawLamp (picture, bottom - kPitch * lamp, column, lamp < row,
                  Mix (kCurve, kLightTouched, std::clamp ((lamp - 10) / 16.0, 0.0, 1.0)));
    picture.FillBox ({ 0, 0, kWidth, kLampHeight }, OverloadInk (column, row));
}

} // namespace tessaly::skin
