#include "images.h"
#include "pack.h"
#include "png_file.h"

#include "meter_scales.h"
#include <algorithm>
#include <cairo.h>
#include <cmath>
#include <doctest/doctest.h>
#include <map>
#include <sstream>
#include <string>

using namespace tessaly;
using skin::Draw;
using skin::Image;
using skin::Images;

namespace
{

/// The pixels of an image at this density; drawn once for all tests.
class Drawn
{
public:
    Drawn (std::string_view name, std::int32_t pixels)
        : image (Named (name))
        , density (pixels)
        , picture (Draw (image, pixels))
        , data (reinterpret_cast<const std::uint32_t*> (cairo_image_surface_get_data (picture.Surface ())))
    {
    }

    std::int32_t Width () const { return image.width * image.columns * density; }
    std::int32_t Height () const { return image.height * image.rows * density; }
    std::uint32_t At (std::int32_t x, std::int32_t y) const { return data[std::ptrdiff_t{ y } * Width () + x]; }
    const Image& Of () const { return image; }

private:
    static const Image& Named (std::string_view name)
    {
        for (const Image& candidate : Images ())
            if (candidate.name == name)
                return candidate;
        FAIL (std::string (name));
        return Images ()[0];
    }

    const Image& image;
    std::int32_t density;
    skin::Picture picture;
    const std::uint32_t* data;
};

const Drawn& The (std::string_view name, std::int32_t density)
{
    static std::map<std::pair<std::string_view, std::int32_t>, Drawn> drawn;
    return drawn.try_emplace ({ name, density }, name, density).first->second;
}

int Alpha (std::uint32_t pixel)
{
    return static_cast<int> (pixel >> 24U);
}

/// How many pixels of a part differ from the panel below it, inside and outside of `labels`, in units of the panel.
struct Difference
{
    int inside = 0;
    int outside = 0;
};

Difference FromPanel (std::string_view name, const ZRect& part, ZPoint place, const std::vector<ZRect>& labels,
                      std::int32_t density)
{
    Difference found;
    const Drawn& dimmed = The (name, density);
    const Drawn& panel = The ("MONO_tsly_bak", density);
    for (std::int32_t y = part.top * density; y < part.bottom * density; ++y)
        for (std::int32_t x = part.left * density; x < part.right * density; ++x)
        {
            const ZPoint onPanel{ place.x * density + x - part.left * density,
                                  place.y * density + y - part.top * density };
            if (dimmed.At (x, y) == panel.At (onPanel.x, onPanel.y))
                continue;
            const ZPoint unit{ onPanel.x / density, onPanel.y / density };
            const bool inLabel = std::any_of (labels.begin (), labels.end (),
                                              [unit] (const ZRect& label) { return label.Contains (unit); });
            ++(inLabel ? found.inside : found.outside);
        }
    return found;
}

/// The rows, in units, of a meter's frame in which this colour stands.
std::vector<std::int32_t> RowsOf (const Drawn& meter, std::int32_t frame, std::uint32_t pixel)
{
    std::vector<std::int32_t> rows;
    for (std::int32_t row = 0; row < meter.Of ().height; ++row)
        if (meter.At (2, frame * meter.Of ().height + row) == pixel)
            rows.push_back (row);
    return rows;
}

} // namespace

TEST_CASE ("skin: every image has the size that the panel's controls expect")
{
    // From the panel's table of images: pixels of the whole strip at density 1
    std::istringstream table (R"(
        MONO_tsly_bak 560 315  tsly_bak_cmp 209 176  tsly_bak_eq 250 101  tsly_bak_glp_cmp 80 75
        tsly_bak_glp_eq 211 75  tsly_bak_met_eq 9 74  tsly_bak_abt 560 315  tsly_bak_on 560 315
        tsly_bak_dlg 232 269  tsly_knb 39 1313  tsly_knb_cet 39 1313  tsly_knb_gid 107 10807
        tsly_knb_gid_cet 107 10807  tsly_knb_drv 168 5656  tsly_knb_mrp 492 9292  tsly_tsw 117 117
        tsly_nsw_cmp 71 74  tsly_nsw_eq 71 74  tsly_led_low 26 26  tsly_led_mid 23 26  tsly_led_hig 27 26
        tsly_lmt_cmp 10 2627  tsly_lmt_eq 10 2520  tsly_mkr_low 11 33  tsly_mkr_mid 11 33  tsly_mkr_hig 11 33
        tsly_fon 15 231  tsly_pdm 217 21  tsly_nsw_ok 62 57  tsly_nsw_ccl 60 34  tsly_nsw_top 15 28
        tsly_nsw_btm 15 28  tsly_nsw_up 15 28  tsly_nsw_dwn 15 28  tsly_nsw_fld 9 16)");
    std::map<std::string, ZPoint> sizes;
    ZPoint size;
    for (std::string name; table >> name >> size.x >> size.y;)
        sizes[name] = size;
    CHECK (Images ().size () == sizes.size ());
    for (const Image& image : Images ())
    {
        CAPTURE (image.name);
        CHECK (sizes.at (std::string (image.name)) == ZPoint{ image.width * image.columns, image.height * image.rows });
    }
}

TEST_CASE ("skin: the same machine draws the same bytes twice")
{
    CHECK (skin::MakeSkinPack (1) == skin::MakeSkinPack (1));
    const Image& overlay = Images ()[7];
    CHECK (drawing::PngOf (Draw (overlay, 2).Surface ()) == drawing::PngOf (Draw (overlay, 2).Surface ()));
}

TEST_CASE ("skin: a dimmed section differs from the panel only where its labels are")
{
    const std::vector<ZRect> compressor{ { 28, 65, 76, 79 },   { 28, 83, 76, 97 },    { 28, 101, 76, 115 },
                                         { 28, 122, 80, 133 }, { 28, 162, 100, 173 }, { 28, 180, 76, 193 },
                                         { 28, 198, 76, 211 }, { 28, 216, 76, 229 } };
    const std::vector<ZRect> equalizer{ { 283, 138, 310, 151 }, { 370, 138, 393, 151 }, { 457, 138, 485, 151 },
                                        { 335, 140, 349, 150 }, { 422, 140, 436, 150 }, { 509, 140, 523, 150 },
                                        { 284, 170, 299, 203 }, { 371, 152, 386, 203 }, { 458, 170, 473, 203 } };
    for (const std::int32_t density : { 1, 2 })
    {
        CAPTURE (density);
        const auto off = FromPanel ("tsly_bak_cmp", { 0, 0, 209, 176 }, { 27, 57 }, compressor, density);
        CHECK (off.outside == 0);
        CHECK (off.inside > 200);
        const auto bands = FromPanel ("tsly_bak_eq", { 0, 0, 250, 79 }, { 283, 138 }, equalizer, density);
        CHECK (bands.outside == 0);
        CHECK (bands.inside > 200);
        const auto total =
            FromPanel ("tsly_bak_eq", { 0, 80, 250, 101 }, { 283, 218 }, { { 420, 224, 468, 237 } }, density);
        CHECK (total.outside == 0);
        CHECK (total.inside > 50);
        CHECK (FromPanel ("tsly_bak_met_eq", { 0, 0, 9, 74 }, { 501, 58 }, {}, density).outside == 0);
    }
}

TEST_CASE ("skin: between dial and bar of a morph frame nothing is drawn, and nothing outside the circle")
{
    const Drawn& strip = The ("tsly_knb_mrp", 2);
    int outside = 0;
    for (std::int32_t y = 0; y < strip.Height (); ++y)
        for (std::int32_t x = 0; x < strip.Width (); ++x)
        {
            const double dx = (x % 328 + 0.5) / 2.0 - 82.0;
            const double dy = (y % 184 + 0.5) / 2.0 - 40.0;
            if (y % 184 < 180 && std::hypot (dx, dy) > 40.5 && Alpha (strip.At (x, y)) != 0)
                ++outside;
        }
    CHECK (outside == 0);
}

TEST_CASE ("skin: meters light as many lamps as their scale has entries, and marks stand beside them")
{
    // 3 dB of reduction is 27 entries above the lowest, 9 below none
    const Drawn& reduction = The ("tsly_lmt_cmp", 1);
    const auto lamps = static_cast<std::int32_t> (std::lround (36 * (1 - gainReductionPosition (0.7079457844))));
    CHECK (lamps == 9);
    const std::uint32_t unlit = reduction.At (2, 0);
    CHECK (RowsOf (reduction, 0, unlit).size () == 36);
    const auto left = RowsOf (reduction, lamps, unlit);
    CHECK (left.size () == 27);
    CHECK (59 + left.front () - 2 == 75); // the last that is lit, on the panel; the middle of the figure 3

    const Drawn& output = The ("tsly_lmt_eq", 1);
    const auto frame = static_cast<std::int32_t> (std::lround (34 * outputPosition (0.2511886432)));
    const std::uint32_t dark = output.At (2, 71);
    CHECK (RowsOf (output, 0, dark).size () == 32);
    const auto above = RowsOf (output, frame, dark);
    CHECK (59 + above.back () + 2 == 86); // -12 dB
    CHECK (output.At (2, 34 * 72 + 2) == 0xFFFFB454);
    CHECK (RowsOf (output, 34, 0xFFFFB454).size () == 5);
    CHECK (RowsOf (output, 33, 0xFFFFB454).empty ());
}

TEST_CASE ("skin: the overlay leaves the controls and the sides of the window alone")
{
    const Drawn& overlay = The ("tsly_bak_on", 2);
    for (std::int32_t y = 0; y < overlay.Height (); ++y)
    {
        CHECK (Alpha (overlay.At (0, y)) <= 2);
        CHECK (Alpha (overlay.At (overlay.Width () - 1, y)) <= 2);
    }
    // Inside the lens's circle, over the bar, and all of the upper half
    for (std::int32_t y = 0; y < overlay.Height (); ++y)
        for (std::int32_t x = 0; x < overlay.Width (); ++x)
        {
            const bool inLens = std::hypot (x * 0.5 - 280.0, y * 0.5 - 254.0) < 39.0;
            const bool onBar = y >= 608 && y < 612;
            if ((inLens || onBar || y < 390) && Alpha (overlay.At (x, y)) != 0)
                FAIL_CHECK (x << ", " << y);
        }
}

TEST_CASE ("skin: the overlay's labels leave nothing of the panel's own below them")
{
    constexpr std::uint32_t kBench = 0xFF131B22;
    for (const std::int32_t density : { 1, 2 })
    {
        const Drawn& panel = The ("MONO_tsly_bak", density);
        const Drawn& overlay = The ("tsly_bak_on", density);
        for (std::int32_t y = 0; y < 304 * density; ++y)
            for (std::int32_t x = 0; x < panel.Width (); ++x)
            {
                const ZPoint unit{ x / density, y / density };
                const double radius = std::hypot (unit.x - 279.5, unit.y - 253.5);
                const bool isNumber = radius > 40.5 && radius < 49.5 && unit.y < 280;
                const bool isWord = unit.y >= 295 && unit.x >= 250 && unit.x < 310;
                if ((isNumber || isWord) && panel.At (x, y) != kBench && Alpha (overlay.At (x, y)) != 255)
                    FAIL_CHECK (density << ": " << x << ", " << y);
            }
    }
}
