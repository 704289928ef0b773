#include "band_lamp.h"

#include "type.h"

namespace tessaly::skin
{

namespace
{

void DrawLamp (Picture& picture, const char* name, bool lit)
{
    const auto& frame = picture.Frame ();
    picture.Fill (kPlate);
    if (lit)
        picture.FillRoundBox ({ 0, 0, double (frame.Width ()), double (frame.Height ()) }, 2.5,
                              kLightTouched.At (0.16));
    Write (picture, name, kBandStyle, 2, 10, Anchor::kLeft, lit ? kLightTouched : kHeading);
}

} // namespace

void DrawLowLamp (Picture& picture, std::int32_t, std::int32_t row)
{
    DrawLamp (picture, "LOW", row == 1);
}

void DrawMidLamp (Picture& picture, std::int32_t, std::int32_t row)
{
    DrawLamp (picture, "MID", row == 1);
}

void DrawHighLamp (Picture& picture, std::int32_t, std::int32_t row)
{
    DrawLamp (picture, "HIGH", row == 1);
}

} // namespace tessaly::skin
