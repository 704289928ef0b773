// The conversions between the forms of a value.

#include "parameter_storage_base.h"

#include "list_steps.h"
#include "number_text.h"
#include "truncate.h"
#include <algorithm>

namespace tessaly
{

float ZParameterStorageBase::NormalizedToPlain (std::int32_t index, float normalized) const
{
    const auto* spec = Spec (index);
    if (spec == nullptr)
        return normalized;
    switch (spec->type)
    {
    case kList:
        return static_cast<float> (NormalizedToInt (normalized, GetStep (index)));
    case kBool:
        return normalized >= 0.5f ? 1.0f : 0.0f;
    default:
        break;
    }
    const auto convert = spec->converters.toPlain;
    return convert != nullptr ? convert (normalized, spec->minimum, spec->maximum) : normalized;
}

float ZParameterStorageBase::PlainToNormalized (std::int32_t index, float plain) const
{
    const auto* spec = Spec (index);
    if (spec == nullptr)
        return plain;
    switch (spec->type)
    {
    case kList:
        return IntToNormalized (Truncate (plain), GetStep (index));
    case kBool:
        return Truncate (plain) != 0 ? 1.0f : 0.0f;
    default:
        break;
    }
    const auto convert = spec->converters.toNormalized;
    return convert != nullptr ? convert (plain, spec->minimum, spec->maximum) : plain;
}

float ZParameterStorageBase::GetPlain (std::int32_t index) const
{
    return NormalizedToPlain (index, GetNormalized (index));
}

float ZParameterStorageBase::PutNormalized (std::int32_t index, float normalized)
{
    auto* value = program != nullptr ? ElementOf (program->values, index) : nullptr;
    if (value == nullptr)
        return GetPlain (index);
    StoreRelaxed (*value, normalized);
    return NormalizedToPlain (index, LoadRelaxed (*value)); // another thread may have set it meanwhile
}

void ZParameterStorageBase::SetPlainAndDefault (std::int32_t index, float plain)
{
    const auto normalized = PlainToNormalized (index, plain);
    SetNormalized (index, normalized);
    SetDefaultNormalized (index, normalized);
}

void ZParameterStorageBase::GetValueText (std::int32_t index, char* buffer, std::int32_t size) const
{
    PlainToText (index, GetPlain (index), buffer, size);
}

void ZParameterStorageBase::NormalizedToText (std::int32_t index, float normalized, char* buffer,
                                              std::int32_t size) const
{
    PlainToText (index, NormalizedToPlain (index, normalized), buffer, size);
}

void ZParameterStorageBase::PlainToText (std::int32_t index, float plain, char* buffer, std::int32_t size) const
{
    const auto* spec = Spec (index);
    if (spec == nullptr)
        return;
    if (spec->type == kList)
        return GetListText (index, Truncate (plain), buffer, size);
    if (spec->type == kBool)
        return GetListText (index, Truncate (plain) != 0 ? 1 : 0, buffer, size);
    if (spec->converters.toText == nullptr)
        return;
    ZText text{};
    spec->converters.toText (plain, text.data ());
    CopyText (text.data (), buffer, size);
}

bool ZParameterStorageBase::TextToPlain (std::int32_t /*index*/, const char* text, float* out) const
{
    if (text == nullptr || out == nullptr)
        return false;
    const auto number = ParseNumber (text);
    *out = static_cast<float> (number.value);
    return text[number.length] == '\0';
}

bool ZParameterStorageBase::TextToNormalized (std::int32_t index, const char* text, float* out) const
{
    if (text == nullptr || out == nullptr)
        return false;
    const bool whole = TextToPlain (index, text, out);
    *out = PlainToNormalized (index, *out);
    return whole;
}

float ZParameterStorageBase::StepNormalized (std::int32_t index, float normalized, std::int32_t steps,
                                             float factor) const
{
    const auto step = GetStep (index);
    const auto way = static_cast<double> (steps) * static_cast<double> (factor);
    auto moved = static_cast<double> (normalized);
    switch (GetType (index))
    {
    case -1:
        break;
    case kList:
        return IntToNormalized (Truncate (static_cast<double> (NormalizedToInt (normalized, step)) + Truncate (way)),
                                step);
    case kBool:
        if (steps != 0)
            moved = steps > 0 ? 1.0 : 0.0;
        break;
    default:
        moved += way * static_cast<double> (step);
        break;
    }
    return static_cast<float> (std::clamp (moved, 0.0, 1.0));
}

} // namespace tessaly
