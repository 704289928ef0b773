#include "generic_converter_sets.h"

#include "number_text.h"
#include "text_buffer.h"
#include "truncate.h"
#include "value_conversions.h"
#include <cmath>

namespace tessaly
{

namespace
{

constexpr float kLowestShown = -54.0f; // set 18

// The powers of sets 19 and 20, and their reciprocals, fixed at ten digits
constexpr double kLowSkew = 0.65;
constexpr double kLowSkewReciprocal = 1.538461538;
constexpr double kHighSkew = 1.164;
constexpr double kHighSkewReciprocal = 0.8591065292;

template <int width, int precision>
void FixedToText (float plain, char* buffer)
{
    PutText (buffer, FixedText (plain, width, precision));
}

template <int width = 0, char pad = ' '>
void ShortToText (float plain, char* buffer)
{
    PutText (buffer, IntegerText (TruncateToInt16 (plain), width, pad));
}

void LongToText (float plain, char* buffer)
{
    PutText (buffer, IntegerText (Truncate (plain)));
}

void TenfoldToText (float plain, char* buffer)
{
    PutText (buffer, FixedText (plain * 10.0, 5, 2));
}

void OneToTenToText (float plain, char* buffer)
{
    PutText (buffer, FixedText (plain * 9.0 + 1.0, 5, 2));
}

void FloorToText (float plain, char* buffer)
{
    PutText (buffer, plain > kLowestShown ? FixedText (plain, 10, 3) : "[]");
}

double LogRange (double minimum, double maximum)
{
    return std::log (maximum / minimum);
}

float LogToPlain (float normalized, float minimum, float maximum)
{
    return static_cast<float> (minimum * std::exp (normalized * LogRange (minimum, maximum)));
}

float LogToNormalized (float plain, float minimum, float maximum)
{
    if (plain <= 0.0f)
        return 0.0f;
    return static_cast<float> (LogRange (minimum, plain) / LogRange (minimum, maximum));
}

float DecadeToPlain (float normalized, float /*minimum*/, float /*maximum*/)
{
    return static_cast<float> (std::pow (10.0, 2.0 * (normalized - 0.5)));
}

float DecadeToNormalized (float plain, float /*minimum*/, float /*maximum*/)
{
    return static_cast<float> (0.5 * std::log (static_cast<double> (plain)) / std::log (10.0) + 0.5);
}

template <const double& skew>
float SkewToPlain (float normalized, float minimum, float maximum)
{
    return static_cast<float> (minimum * std::exp (std::pow (normalized, skew) * LogRange (minimum, maximum)));
}

template <const double& reciprocal>
float SkewToNormalized (float plain, float minimum, float maximum)
{
    return static_cast<float> (std::pow (LogRange (minimum, plain) / LogRange (minimum, maximum), reciprocal));
}

} // namespace

constinit const std::array<ZConverterSet, 20> genericConverterSets{ {
    { FixedToText<10, 3>, linearToPlain, linearToNormalized },
    { FixedToText<10, 2>, linearToPlain, linearToNormalized },
    { FixedToText<6, 2>, linearToPlain, linearToNormalized },
    { FixedToText<5, 3>, linearToPlain, linearToNormalized },
    { FixedToText<5, 2>, linearToPlain, linearToNormalized },
    { FixedToText<5, 1>, linearToPlain, linearToNormalized },
    { ShortToText<>, steppedToPlain, linearToNormalized },
    { ShortToText<3, '0'>, steppedToPlain, linearToNormalized },
    { ShortToText<2>, steppedToPlain, linearToNormalized },
    { LongToText, roundedToPlain, linearToNormalized },
    { FixedToText<10, 3>, LogToPlain, LogToNormalized },
    { FixedToText<5, 2>, LogToPlain, LogToNormalized },
    { FixedToText<6, 2>, LogToPlain, LogToNormalized },
    { FixedToText<10, 2>, LogToPlain, LogToNormalized },
    { TenfoldToText, linearToPlain, linearToNormalized },
    { OneToTenToText, linearToPlain, linearToNormalized },
    { FixedToText<5, 2>, DecadeToPlain, DecadeToNormalized },
    { FloorToText, linearToPlain, linearToNormalized },
    { FixedToText<5, 2>, SkewToPlain<kLowSkew>, SkewToNormalized<kLowSkewReciprocal> },
    { FixedToText<5, 2>, SkewToPlain<kHighSkew>, SkewToNormalized<kHighSkewReciprocal> },
} };

} // namespace tessaly
