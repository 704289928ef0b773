#include "picture_surface.h"

#include <cstring>

namespace tessaly
{

namespace
{

using Gdiplus::BitmapData;

constexpr CLSID kPngEncoder{ 0x557CF406, 0x1A04, 0x11D3, { 0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E } };

std::vector<std::byte> BytesOf (IStream* stream)
{
    std::vector<std::byte> bytes;
    HGLOBAL memory = nullptr;
    STATSTG status{};
    if (FAILED (GetHGlobalFromStream (stream, &memory)) || FAILED (stream->Stat (&status, STATFLAG_NONAME)))
        return bytes;
    bytes.resize (static_cast<std::size_t> (status.cbSize.QuadPart));
    std::memcpy (bytes.data (), GlobalLock (memory), bytes.size ());
    GlobalUnlock (memory);
    return bytes;
}

} // namespace

std::vector<std::uint32_t> PixelsOf (const PictureSurface& surface)
{
    const auto width = static_cast<std::size_t> (surface.PixelSize ().right);
    const auto height = static_cast<std::size_t> (surface.PixelSize ().bottom);
    std::vector<std::uint32_t> pixels (width * height);
    auto* const bitmap = static_cast<Gdiplus::GpBitmap*> (surface.GetImage ());
    const Gdiplus::GpRect all (0, 0, static_cast<INT> (width), static_cast<INT> (height));
    BitmapData locked{};
    if (gdip::GdipBitmapLockBits (bitmap, &all, Gdiplus::ImageLockModeRead, PixelFormat32bppPARGB, &locked) !=
        Gdiplus::Ok)
        return pixels;
    for (std::size_t y = 0; y < height; ++y)
        std::memcpy (pixels.data () + y * width,
                     static_cast<const std::byte*> (locked.Scan0) + static_cast<std::ptrdiff_t> (y) * locked.Stride,
                     width * 4);
    gdip::GdipBitmapUnlockBits (bitmap, &locked);
    return pixels;
}

std::vector<std::byte> PngOf (const PictureSurface& surface)
{
    std::vector<std::byte> file;
    IStream* stream = nullptr;
    if (FAILED (CreateStreamOnHGlobal (nullptr, TRUE, &stream)))
        return file;
    if (gdip::GdipSaveImageToStream (surface.GetImage (), stream, &kPngEncoder, nullptr) == Gdiplus::Ok)
        file = BytesOf (stream);
    stream->Release ();
    return file;
}

} // namespace tessaly
