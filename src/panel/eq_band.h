#pragma once

#include "key_points.h"
#include <cstdint>

namespace tessaly
{

/// Bands of the equalizer as the graph and the band labels count them.
enum EqBand : std::int32_t
{
    kNoBand = -1,
    kAllBands = 0,
    kLowBand = 1,
    kMidBand = 2,
    kHighBand = 3
};

/// The parameters that shape one band; kNoParameter where it has none of the kind.
struct BandParameters
{
    std::int32_t gain = kNoParameter;
    std::int32_t q = kNoParameter;
    std::int32_t frequency = kNoParameter;

    bool Has (std::int32_t id) const { return id != kNoParameter && (id == gain || id == q || id == frequency); }
};

BandParameters ParametersOf (std::int32_t band); ///< of EqBand; none for what is no single band
std::int32_t BandOf (std::int32_t parameterId);  ///< of EqBand; kNoBand for a parameter of no band

} // namespace tessaly
