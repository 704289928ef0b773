// The descriptions of the parameters, names and list texts included.

#include "parameter_storage_base.h"

#include <algorithm>

namespace tessaly
{

namespace
{

constexpr float kDefaultStep = 0.01f; // of a parameter that has none of its own

/// One entry of a parameter's list, null for a bad place.
const ZText* Entry (const ZParameterSpec& spec, std::int32_t entry)
{
    const bool good = entry >= 0 && static_cast<std::size_t> (entry) < spec.listTexts.size ();
    return good ? &spec.listTexts[static_cast<std::size_t> (entry)] : nullptr;
}

} // namespace

void ZParameterStorageBase::SetType (std::int32_t index, std::int32_t type)
{
    if (auto* spec = Spec (index))
        spec->type = type;
}

std::int32_t ZParameterStorageBase::GetType (std::int32_t index) const
{
    const auto* spec = Spec (index);
    return spec != nullptr ? spec->type : -1;
}

void ZParameterStorageBase::SetMinimum (std::int32_t index, float plain)
{
    if (auto* spec = Spec (index))
        spec->minimum = plain;
}

float ZParameterStorageBase::GetMinimum (std::int32_t index) const
{
    const auto* spec = Spec (index);
    return spec != nullptr ? spec->minimum : 0.0f;
}

void ZParameterStorageBase::SetMaximum (std::int32_t index, float plain)
{
    if (auto* spec = Spec (index))
        spec->maximum = plain;
}

float ZParameterStorageBase::GetMaximum (std::int32_t index) const
{
    const auto* spec = Spec (index);
    return spec != nullptr ? spec->maximum : 1.0f;
}

void ZParameterStorageBase::SetStep (std::int32_t index, float normalized)
{
    if (auto* spec = Spec (index))
        spec->step = normalized;
}

float ZParameterStorageBase::GetStep (std::int32_t index) const
{
    const auto* spec = Spec (index);
    if (spec == nullptr)
        return 0.0f;
    return spec->step > 0.0f ? spec->step : kDefaultStep;
}

void ZParameterStorageBase::SetFlags (std::int32_t index, std::int32_t flags)
{
    if (auto* spec = Spec (index))
        spec->flags = flags;
}

void ZParameterStorageBase::SetUnitId (std::int32_t index, std::int32_t id)
{
    if (auto* spec = Spec (index))
        spec->unitId = id;
}

std::int32_t ZParameterStorageBase::GetUnitId (std::int32_t index) const
{
    const auto* spec = Spec (index);
    return spec != nullptr ? spec->unitId : 0;
}

void ZParameterStorageBase::SetConverters (std::int32_t index, const ZConverterSet* set)
{
    auto* spec = Spec (index);
    if (spec != nullptr && set != nullptr)
        spec->converters = *set;
}

void ZParameterStorageBase::GetConverters (std::int32_t index, ZConverterSet* out) const
{
    const auto* spec = Spec (index);
    if (spec != nullptr && out != nullptr)
        *out = spec->converters;
}

void ZParameterStorageBase::SetProgramName (const char* name)
{
    if (program != nullptr && name != nullptr)
        PutText (program->name.data (), name);
}

void ZParameterStorageBase::GetProgramName (char* buffer, std::int32_t size) const
{
    if (program != nullptr)
        CopyText (program->name.data (), buffer, size);
}

void ZParameterStorageBase::SetName (std::int32_t index, const char* name)
{
    auto* spec = Spec (index);
    if (spec != nullptr && name != nullptr)
        PutText (spec->name.data (), name);
}

void ZParameterStorageBase::GetName (std::int32_t index, char* buffer, std::int32_t size) const
{
    if (const auto* spec = Spec (index))
        CopyText (spec->name.data (), buffer, size);
}

void ZParameterStorageBase::SetUnits (std::int32_t index, const char* text)
{
    auto* spec = Spec (index);
    if (spec != nullptr && text != nullptr)
        PutText (spec->units.data (), text);
}

void ZParameterStorageBase::GetUnits (std::int32_t index, char* buffer, std::int32_t size) const
{
    if (const auto* spec = Spec (index))
        CopyText (spec->units.data (), buffer, size);
}

void ZParameterStorageBase::SetListTexts (std::int32_t index, const char* const* list)
{
    auto* spec = Spec (index);
    if (spec == nullptr || list == nullptr)
        return;
    spec->listTexts.clear ();
    for (; *list != nullptr; ++list)
        PutText (spec->listTexts.emplace_back ().data (), *list);

    const auto count = static_cast<float> (spec->listTexts.size ());
    SetMinimum (index, 0.0f);
    SetMaximum (index, count - 1.0f);
    SetStep (index, 1.0f / count); // infinite for an empty list, which then reads as entry 0
}

void ZParameterStorageBase::GetListText (std::int32_t index, std::int32_t entry, char* buffer, std::int32_t size) const
{
    const auto* spec = Spec (index);
    const auto* text = spec != nullptr ? Entry (*spec, entry) : nullptr;
    if (text != nullptr)
        CopyText (text->data (), buffer, size);
}

std::int32_t ZParameterStorageBase::GetListCount (std::int32_t index) const
{
    const auto* spec = Spec (index);
    return spec != nullptr ? static_cast<std::int32_t> (spec->listTexts.size ()) : 0;
}

} // namespace tessaly
