#include "gain_computer.h"

namespace tessaly
{

KneeCurve kneeCurve (double thresholdDb, std::uint16_t knee)
{
    if (thresholdDb == 0.0)
        return { 0.0, 0.0 };
    switch (knee)
    {
    case kSoftKnee:
        return { 1.3, 0.19231 };
    case kMiddleKnee:
        return { 0.5, 0.5 };
    default:
        return { 0.0, 0.0 };
    }
}

} // namespace tessaly
