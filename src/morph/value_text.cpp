#include "value_text.h"

#include "number_text.h"
#include "text_buffer.h"
#include "truncate.h"
#include "value_conversions.h"
#include "value_scales.h"

namespace tessaly
{

namespace
{

template <const auto& table>
double TableValue (std::int32_t step)
{
    return stepToValue (table, step);
}

/// The range of the offset, -20 to 20 dB, as 0 to 1.
double OffsetShown (std::int32_t step)
{
    return (driveOffset (step) + 20) / 40;
}

template <double (*scale) (std::int32_t), int width, int precision>
void ScaleToText (float plain, char* buffer)
{
    PutText (buffer, FixedText (scale (Truncate (plain)), width, precision));
}

void AttackToText (float plain, char* buffer)
{
    const auto ms = stepToValue (attackMs, Truncate (plain));
    PutText (buffer, FixedText (ms, 5, ms < 10 ? 3 : 2));
}

std::string RatioText (double ratio)
{
    if (ratio < 10)
        return FixedText (ratio, 4, 2);
    if (ratio < 100)
        return FixedText (ratio, 4, 1);
    return ratio < 1000 ? FixedText (ratio, 4, 0) : " INF";
}

void RatioToText (float plain, char* buffer)
{
    PutText (buffer, RatioText (stepToValue (ratioValue, Truncate (plain))));
}

std::string FrequencyText (double hz)
{
    if (hz < 1000)
        return FixedText (hz, 5, 1);
    return FixedText (hz / 1000, 5, hz < 10000 ? 2 : 1) + "k";
}

void FrequencyToText (float plain, char* buffer)
{
    PutText (buffer, FrequencyText (stepToValue (frequencyHz, Truncate (plain))));
}

void StepToText (float plain, char* buffer)
{
    PutText (buffer, IntegerText (TruncateToInt16 (plain)));
}

void WholeDbToText (float plain, char* buffer)
{
    PutText (buffer, IntegerText (TruncateToInt16 (plain)) + "dB");
}

constexpr ZConverterSet Stepped (ZToText toText)
{
    return { toText, steppedToPlain, linearToNormalized };
}

} // namespace

namespace converters
{

constinit const ZConverterSet drive = Stepped (ScaleToText<driveDisplay, 5, 2>);
constinit const ZConverterSet attack = Stepped (AttackToText);
constinit const ZConverterSet release = Stepped (ScaleToText<TableValue<releaseMs>, 5, 1>);
constinit const ZConverterSet ratio = Stepped (RatioToText);
constinit const ZConverterSet driveOffset = Stepped (ScaleToText<OffsetShown, 6, 3>);
constinit const ZConverterSet makeup = Stepped (ScaleToText<makeupAmount, 6, 3>);
constinit const ZConverterSet frequency = Stepped (FrequencyToText);
constinit const ZConverterSet gain = Stepped (ScaleToText<gainDb, 5, 1>);
constinit const ZConverterSet q = Stepped (ScaleToText<TableValue<qValue>, 5, 2>);
constinit const ZConverterSet morph = Stepped (StepToText);
constinit const ZConverterSet hundredths = Stepped (ScaleToText<tessaly::hundredths, 0, 2>);
constinit const ZConverterSet wholeDb = Stepped (WholeDbToText);

} // namespace converters

} // namespace tessaly
