#include "eq_band.h"

#include "panel_ids.h"

namespace tessaly
{

BandParameters ParametersOf (std::int32_t band)
{
    using enum StripParameter;
    switch (band)
    {
    case kLowBand:
        return { IdOf (lowGain), kNoParameter, IdOf (lowFreq) };
    case kMidBand:
        return { IdOf (midGain), IdOf (midQ), IdOf (midFreq) };
    case kHighBand:
        return { IdOf (highGain), kNoParameter, IdOf (highFreq) };
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
