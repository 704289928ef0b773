#include "eq_band.h"

#include "channel_strip_parameters.h"

namespace tessaly
{

BandParameters ParametersOf (std::int32_t band)
{
    using enum StripParameter;
    switch (band)
    {
    case kLowBand:
        return { IndexOf (lowGain), kNoParameter, IndexOf (lowFreq) };
    case kMidBand:
        return { IndexOf (midGain), IndexOf (midQ), IndexOf (midFreq) };
    case kHighBand:
        return { IndexOf (highGain), kNoParameter, IndexOf (highFreq) };
    default:
        return {};
    }
}

std::int32_t BandOf (std::int32_t parameterId)
{
    for (const std::int32_t band : { kLowBand, kMidBand, kHighBand })
        if (ParametersOf (band).Has (parameterId))
            return band;
    return kNoBand;
}

} // namespace tessaly
