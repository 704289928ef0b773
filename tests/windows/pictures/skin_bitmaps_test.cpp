#include "gdiplus_objects.h"
#include "skin_bitmaps.h"
#include <doctest/doctest.h>

using namespace tessaly;

TEST_CASE ("Skin: images of one name share their pixels, which go with the last one")
{
    const GdiplusSession gdiplus;
    for (const std::size_t density : { 1U, 2U })
    {
        CHECK (SkinBytesHeld () == 0);
        const auto scale = static_cast<double> (density);
        const auto first = CreateSkinBitmap ("tsly_knb.png", scale);
        const auto pixels = std::size_t{ first->GetWidth () } * first->GetHeight () * density * density;
        REQUIRE (pixels > 0);
        const auto second = CreateSkinBitmap ("TSLY_KNB.png", scale);
        CHECK (SkinBytesHeld () == pixels * 4);
    }
    CHECK (SkinBytesHeld () == 0);
}
