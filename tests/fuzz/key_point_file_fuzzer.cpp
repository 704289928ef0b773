// A key-point file, and the morph through what it holds.

#include "instances.h"
#include "key_point_file.h"

using namespace tessaly;
using namespace tessaly::fuzz;

extern "C" int LLVMFuzzerTestOneInput (const std::uint8_t* data, std::size_t size)
{
    const auto blockSize = static_cast<std::int32_t> (size);
    KeyPointSet set = builtInKeyPoints;
    const bool taken = ReadKeyPointFile (data, blockSize, set);
    Demand (taken == (KeyPointFileFault (data, blockSize) == nullptr));
    Demand (taken || set.rows == builtInKeyPoints.rows);
    Demand (set.rows[kKeyPointRows - 1] == builtInKeyPoints.rows[kKeyPointRows - 1]);
    if (!taken)
        return 0;

    static Strip strip;
    strip.effect.LoadKeyPointBlock (data, blockSize);
    for (int position = 0; position <= 120; position += 5)
    {
        strip.effect.SetParameter (IndexOf (StripParameter::morph), static_cast<float> (position) / 120.0f);
        Demand (strip.SoundsFinite ());
    }
    return 0;
}
