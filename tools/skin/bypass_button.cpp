#include "bypass_button.h"

#include "light.h"
#include "type.h"

namespace tessaly::skin
{

namespace
{

constexpr double kCorner = 3.0;
constexpr double kBaseline = 21.0;

// The image ends 31 units after the key. "COMP" as large as a heading would lose its last letter there, so both are set a
// size smaller, and a unit nearer to their keys.
constexpr double kAfterKey = 44.0;
constexpr double kBeforeKey = 27.0;

void DrawKey (Picture& picture, const Box& key, bool works)
{
    const Box seat = key.Inset (-1.0);
    BoxLip (picture, seat, kCorner + 1.0, kEdgeLight.At (0.8));
    picture.FillRoundBox (seat, kCorner + 1.0, kEdgeDark);
    picture.FillRoundBox (key, kCorner, works ? Hex (0x2F414C) : Hex (0x18222A));
    const Box slot{ key.x + 7.0, key.y + 7.0, 13.0, 2.0 };
    if (works)
    {
        KeyLight (picture, key, kCorner, kRimLight.At (0.7));
        picture.FillRoundBox (slot.Inset (-3.0), 3.0, kLightTouched.At (0.10));
        picture.FillRoundBox (slot.Inset (-1.0), 1.5, kLightTouched.At (0.16));
        picture.FillBox (slot, kLightTouched);
        return;
    }
    picture.FillBox (slot, kEdgeDark);
    picture.FillBox ({ slot.x, slot.y + slot.height, slot.width, picture.Pixel () }, kEdgeLight.At (0.5));
}

} // namespace

void DrawCompressorBypass (Picture& picture, std::int32_t, std::int32_t row)
{
    const bool works = row == 0;
    picture.Fill (kBench);
    DrawKey (picture, { 12, 10, 27, 16 }, works);
    Write (picture, "COMP", kSubheadingStyle, kAfterKey, kBaseline, Anchor::kLeft, works ? kHeading : kScale);
}

void DrawEqualizerBypass (Picture& picture, std::int32_t, std::int32_t row)
{
    const bool works = row == 0;
    picture.Fill (kBench);
    DrawKey (picture, { 32, 10, 27, 16 }, works);
    Write (picture, "EQ", kSubheadingStyle, kBeforeKey, kBaseline, Anchor::kRight, works ? kHeading : kScale);
}

} // namespace tessaly::skin
