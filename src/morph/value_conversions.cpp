#include "value_conversions.h"

#include "truncate.h"

namespace tessaly
{

namespace
{

double Plain (double normalized, double minimum, double maximum)
{
    return minimum + normalized * (maximum - minimum);
}

double WithHalf (double value)
{
    return value < 0.0 ? value - 0.5 : value + 0.5;
}

} // namespace

float linearToNormalized (float plain, float minimum, float maximum)
{
    const double low = minimum;
    return static_cast<float> ((plain - low) / (maximum - low));
}

float linearToPlain (float normalized, float minimum, float maximum)
{
    return static_cast<float> (Plain (normalized, minimum, maximum));
}

float steppedToPlain (float normalized, float minimum, float maximum)
{
    const auto value = Plain (normalized, minimum, maximum);
    return static_cast<float> (TruncateToInt16 (normalized == 0.0f ? value : WithHalf (value)));
}

float roundedToPlain (float normalized, float minimum, float maximum)
{
    return static_cast<float> (Truncate (WithHalf (Plain (normalized, minimum, maximum))));
}

} // namespace tessaly
