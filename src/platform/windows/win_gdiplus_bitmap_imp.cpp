#include "win_gdiplus_bitmap_imp.h"

#include "wide_text.h"
#include <cstring>
#include <utility>

namespace tessaly
{

namespace
{

constexpr std::size_t kLongestName = 255;

/// A copy of the bytes as a stream that owns them. Null when there are none.
IStream* StreamOf (const void* bytes, std::size_t size)
{
    if (bytes == nullptr)
        return nullptr;
    HGLOBAL memory = GlobalAlloc (GHND, size);
    if (memory == nullptr)
        return nullptr;
    std::memcpy (GlobalLock (memory), bytes, size);
    GlobalUnlock (memory);
    IStream* stream = nullptr;
    if (FAILED (CreateStreamOnHGlobal (memory, TRUE, &stream)))
        GlobalFree (memory);
    return stream;
}

} // namespace

ResourceImage::ResourceImage (HMODULE module, std::string_view name)
{
    HRSRC found = FindResourceW (module, WideText (name).c_str (), L"PNG");
    if (found == nullptr)
        return;
    HGLOBAL resource = LoadResource (module, found);
    if (resource == nullptr)
        return;
    stream = StreamOf (LockResource (resource), SizeofResource (module, found));
    if (stream != nullptr)
        gdip::GdipLoadImageFromStream (stream, &image);
}

ResourceImage::~ResourceImage ()
{
    if (image != nullptr)
        gdip::GdipDisposeImage (image);
    if (stream != nullptr)
        stream->Release ();
}

ZWinGDIPlusBitmapImp::ZWinGDIPlusBitmapImp (HMODULE module, std::string_view resourceName)
    : ZWinGDIPlusBitmapImp (resourceName, std::make_shared<ResourceImage> (module, resourceName), 1)
{
}

ZWinGDIPlusBitmapImp::ZWinGDIPlusBitmapImp (std::string_view givenName, std::shared_ptr<const ResourceImage> pixels,
                                            std::int32_t pixelsACoordinate)
    : name (givenName.substr (0, kLongestName))
    , image (std::move (pixels))
    , density (pixelsACoordinate)
{
}

std::uint32_t ZWinGDIPlusBitmapImp::GetWidth () const
{
    UINT pixels = 0;
    if (GetImage () != nullptr)
        gdip::GdipGetImageWidth (GetImage (), &pixels);
    return pixels / static_cast<std::uint32_t> (density);
}

std::uint32_t ZWinGDIPlusBitmapImp::GetHeight () const
{
    UINT pixels = 0;
    if (GetImage () != nullptr)
        gdip::GdipGetImageHeight (GetImage (), &pixels);
    return pixels / static_cast<std::uint32_t> (density);
}

} // namespace tessaly
