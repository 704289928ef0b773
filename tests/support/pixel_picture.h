#pragma once

#include "geometry.h"
#include "picture_surface.h"
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace tessaly::test
{

/// Pixels with premultiplied alpha, 0xAARRGGBB. Outside they are transparent.
///
/// As text, a row a line: '.' transparent, '1' to '9' black of that many tenths, '#' black, 'R', 'G' and 'B' opaque.
class Picture
{
public:
    Picture (std::int32_t w, std::int32_t h)
        : width (w)
        , height (h)
        , pixels (static_cast<std::size_t> (w) * static_cast<std::size_t> (h))
    {
    }

    explicit Picture (const PictureSurface& surface)
        : width (surface.PixelSize ().right)
        , height (surface.PixelSize ().bottom)
        , pixels (PixelsOf (surface))
    {
    }

    /// Rows that are parted by line ends; a first line end and blanks before rows don't count.
    explicit Picture (std::string_view text)
        : Picture (0, 0)
    {
        std::istringstream rows{ std::string (text) };
        for (std::string row; rows >> row; ++height)
        {
            width = static_cast<std::int32_t> (row.size ());
            for (const char letter : row)
                pixels.push_back (PixelOf (letter));
        }
    }

    std::int32_t Width () const { return width; }
    std::int32_t Height () const { return height; }
    std::uint32_t At (std::int32_t x, std::int32_t y) const
    {
        return ZRect{ 0, 0, width, height }.Contains ({ x, y }) ? pixels[Index (x, y)] : 0;
    }

    std::vector<std::uint32_t> Row (std::int32_t y) const
    {
        const auto first = pixels.begin () + y * width;
        return { first, first + width };
    }
    Picture Part (const ZRect& rect) const
    {
        Picture part (rect.Width (), rect.Height ());
        for (std::int32_t y = 0; y < part.height; ++y)
            for (std::int32_t x = 0; x < part.width; ++x)
                part.pixels[part.Index (x, y)] = At (rect.left + x, rect.top + y);
        return part;
    }

    /// The smallest rectangle around all pixels that are not nearly transparent; empty when there is none.
    ZRect InkBox () const
    {
        ZRect box;
        for (std::int32_t y = 0; y < height; ++y)
            for (std::int32_t x = 0; x < width; ++x)
                if (At (x, y) >> 24 >= 64)
                    box = box.IsEmpty () ? ZRect{ x, y, x + 1, y + 1 }
                                         : ZRect{ std::min (box.left, x), box.top, std::max (box.right, x + 1), y + 1 };
        return box;
    }

    std::string AsText () const
    {
        std::string text;
        for (std::int32_t y = 0; y < height; ++y)
        {
            text += '\n';
            for (std::int32_t x = 0; x < width; ++x)
                text += LetterOf (At (x, y));
        }
        return text;
    }

    /// Whether each component of each pixel is that of the other to within `tolerance` of 255.
    bool IsLike (const Picture& other, int tolerance) const
    {
        if (width != other.width || height != other.height)
            return false;
        for (std::size_t i = 0; i < pixels.size (); ++i)
            if (Distance (pixels[i], other.pixels[i]) > tolerance)
                return false;
        return true;
    }

private:
    static constexpr std::string_view kLetters = ".123456789#RGB";
    static constexpr std::array<std::uint32_t, 3> kColors{ 0xFFFF0000, 0xFF00FF00, 0xFF0000FF };

    static std::uint32_t PixelOf (char letter)
    {
        const auto index = kLetters.find (letter);
        return index > 10 ? kColors.at (index - 11) : static_cast<std::uint32_t> (index * 255 / 10) << 24;
    }
    static char LetterOf (std::uint32_t pixel)
    {
        for (const char letter : kLetters)
            if (Distance (pixel, PixelOf (letter)) <= 13)
                return letter;
        return '?';
    }
    static int Distance (std::uint32_t a, std::uint32_t b)
    {
        int most = 0;
        for (int shift = 0; shift < 32; shift += 8)
            most =
                std::max (most, std::abs (static_cast<int> (a >> shift & 255) - static_cast<int> (b >> shift & 255)));
        return most;
    }
    std::size_t Index (std::int32_t x, std::int32_t y) const
    {
        return static_cast<std::size_t> (y) * static_cast<std::size_t> (width) + static_cast<std::size_t> (x);
    }

    std::int32_t width;
    std::int32_t height;
    std::vector<std::uint32_t> pixels;
};

/// Tolerance for smoothed edges, of 255: what another version of the library may round otherwise.
inline constexpr int kSmoothTolerance = 32;

/// Also holds a reference to it that it tells the picture from the same one a pixel further.
/// @return nothing when all is well, otherwise what is wrong, for CHECK (Compare (...) == "")
inline std::string Compare (const Picture& picture, std::string_view reference, int tolerance = 1)
{
    const Picture expected (reference);
    if (!picture.IsLike (expected, tolerance))
        return "painted:" + picture.AsText ();
    const ZRect whole{ 0, 0, picture.Width (), picture.Height () };
    for (const ZPoint by : { ZPoint{ 1, 0 }, { -1, 0 }, { 0, 1 }, { 0, -1 } })
        if (picture.Part (whole + by).IsLike (expected, tolerance))
            return "the reference would let a moved picture pass";
    return {};
}

} // namespace tessaly::test
