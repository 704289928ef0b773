#include "skin_bitmaps.h"

#include "ascii_case.h"
#include "own_module.h"
#include "win_gdiplus_bitmap_imp.h"
#include <map>
#include <mutex>
#include <string>
#include <utility>

namespace tessaly
{

namespace
{

constexpr std::string_view kEnding = ".PNG";
constexpr std::string_view kDenserEnding = "_2X.PNG";
constexpr std::size_t kPixelBytes = 4;

std::mutex sharedMutex; // guards `shared`
std::map<std::string, std::weak_ptr<const ResourceImage>, std::less<>> shared;

std::shared_ptr<const ResourceImage> SharedImage (const std::string& resource)
{
    const std::lock_guard lock (sharedMutex);
    auto& place = shared[resource];
    auto image = place.lock ();
    if (!image)
    {
        image = std::make_shared<ResourceImage> (OwnModule (), resource);
        place = image;
    }
    return image;
}

std::string ResourceOf (std::string upperCaseName, std::int32_t density)
{
    if (density == 2 && upperCaseName.ends_with (kEnding))
        upperCaseName.replace (upperCaseName.size () - kEnding.size (), kEnding.size (), kDenserEnding);
    return upperCaseName;
}

} // namespace

std::unique_ptr<ZBitmapImp> CreateSkinBitmap (std::string_view name, double scale)
{
    std::string upperCaseName (name); // as the resources have them
    for (char& letter : upperCaseName)
        letter = AsciiUpper (letter);
    const std::int32_t density = scale > 1.0 ? 2 : 1;
    return std::make_unique<ZWinGDIPlusBitmapImp> (upperCaseName, SharedImage (ResourceOf (upperCaseName, density)),
                                                   density);
}

std::size_t SkinBytesHeld ()
{
    const std::lock_guard lock (sharedMutex);
    std::size_t bytes = 0;
    for (const auto& [name, place] : shared)
        if (const auto image = place.lock (); image != nullptr && image->Get () != nullptr)
        {
            UINT width = 0;
            UINT height = 0;
            gdip::GdipGetImageWidth (image->Get (), &width);
            gdip::GdipGetImageHeight (image->Get (), &height);
            bytes += std::size_t{ width } * height * kPixelBytes;
        }
    return bytes;
}

} // namespace tessaly
