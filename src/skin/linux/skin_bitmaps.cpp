#include "skin_bitmaps.h"

#include "ascii_case.h"
#include "tiled_bitmap_imp.h"
#include <array>
#include <mutex>
#include <span>
#include <string>

extern "C"
{
    extern const std::byte tessaly_skin_pack_1[];
    extern const std::byte tessaly_skin_pack_1_end[];
    extern const std::byte tessaly_skin_pack_2[];
    extern const std::byte tessaly_skin_pack_2_end[];
}

namespace tessaly
{

namespace
{

struct Pack
{
    const std::byte* begin;
    const std::byte* end;
    std::size_t mostBytes; // unpacked: what a panel draws again and again, and some frames of each dial
};

constexpr std::size_t kMebi = std::size_t{ 1 } << 20U;
const std::array<Pack, 2> kPacks{ { { tessaly_skin_pack_1, tessaly_skin_pack_1_end, 5 * kMebi },
                                    { tessaly_skin_pack_2, tessaly_skin_pack_2_end, 18 * kMebi } } };

std::mutex sharedMutex; // guards `shared`
std::array<std::weak_ptr<TileCache>, 2> shared;

std::shared_ptr<TileCache> SharedCache (std::int32_t density)
{
    const auto index = static_cast<std::size_t> (density - 1);
    const std::lock_guard lock (sharedMutex);
    auto cache = shared[index].lock ();
    if (!cache)
    {
        const Pack& pack = kPacks[index];
        cache = std::make_shared<TileCache> (std::span (pack.begin, pack.end), density, pack.mostBytes);
        shared[index] = cache;
    }
    return cache;
}

} // namespace

std::unique_ptr<ZBitmapImp> CreateSkinBitmap (std::string_view name, double scale)
{
    std::string upperCaseName (name); // as the packs have them
    for (char& letter : upperCaseName)
        letter = AsciiUpper (letter);
    return std::make_unique<ZTiledBitmapImp> (upperCaseName, SharedCache (scale > 1.0 ? 2 : 1));
}

std::size_t SkinBytesHeld ()
{
    const std::lock_guard lock (sharedMutex);
    std::size_t bytes = 0;
    for (const auto& cache : shared)
        if (const auto living = cache.lock ())
            bytes += living->HeldBytes ();
    return bytes;
}

} // namespace tessaly
