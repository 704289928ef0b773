#pragma once

#include "bitmap_imp.h"
#include "gdiplus_objects.h"
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace tessaly
{

/// The pixels of a PNG resource, and the stream that they come from. Shared by the bitmaps of one name.
class ResourceImage
{
public:
    /// @param module  with the resource of type "PNG"; without one of that name there is no image
    /// @param name    UTF-8, as the resource is called
    ResourceImage (HMODULE module, std::string_view name);
    ~ResourceImage ();
    ResourceImage (const ResourceImage&) = delete;
    ResourceImage& operator= (const ResourceImage&) = delete;

    Gdiplus::GpImage* Get () const { return image; } ///< null when there is none

private:
    Gdiplus::GpImage* image = nullptr; // owned; goes before the stream that it reads
    IStream* stream = nullptr;         // owned
};

/// An image of the module's resources. Its data may hold `density` pixels a coordinate each way.
class ZWinGDIPlusBitmapImp : public ZBitmapImp
{
public:
    ZWinGDIPlusBitmapImp (HMODULE module, std::string_view name);
    /// @param pixels  of the resource that the name stands for; not null
    /// @param density pixels a coordinate, 1 or 2
    ZWinGDIPlusBitmapImp (std::string_view name, std::shared_ptr<const ResourceImage> pixels, std::int32_t density);

    virtual Gdiplus::GpImage* GetImage () const { return image->Get (); } ///< borrowed; null when there is none
    std::int32_t GetDensity () const { return density; }

    const std::string& GetName () const override { return name; }
    std::uint32_t GetWidth () const override;
    std::uint32_t GetHeight () const override;

private:
    std::string name;
    std::shared_ptr<const ResourceImage> image;
    std::int32_t density;
};

} // namespace tessaly
