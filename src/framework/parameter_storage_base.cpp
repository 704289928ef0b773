#include "parameter_storage_base.h"

#include "list_steps.h"
#include "relaxed_cells.h"
#include <algorithm>

namespace tessaly
{

namespace
{

constexpr float kBoolThreshold = 0.5f;

bool Equal (const std::vector<float>& ours, const std::vector<float>& other)
{
    return std::equal (ours.begin (), ours.end (), other.begin (), other.end (),
                       [] (const float& our, float their) { return LoadRelaxed (our) == their; });
}

const std::vector<float> kNoValues;

} // namespace

void ZParameterStorageBase::Initialize (const ZParameterRecord* parameterTable, const ZProgramRecord* programTable,
                                        std::int32_t numPrograms, std::int32_t numParameters)
{
    Clear ();
    Allocate (numPrograms, numParameters);
    for (std::int32_t i = 0; i < numParameters; ++i)
        SetParameterRecord (i, parameterTable[i]);
    for (std::int32_t i = 0; i < numPrograms; ++i) // after the parameters, since plain values need their converters
    {
        SetCurrentProgram (i);
        SetProgramRecord (programTable[i]);
    }
    SetCurrentProgram (0);
}

void ZParameterStorageBase::Allocate (std::int32_t numPrograms, std::int32_t numParameters)
{
    const auto count = static_cast<std::size_t> (std::max (numParameters, 0));
    ZProgram blank;
    blank.values.resize (count);
    blank.defaults.resize (count);
    parameters.assign (count, {});
    programs.assign (static_cast<std::size_t> (std::max (numPrograms, 0)), blank);
    program = ElementOf (programs, currentProgram);
}

void ZParameterStorageBase::Clear ()
{
    parameters.clear ();
    programs.clear ();
    program = nullptr;
    currentProgram = 0;
}

void ZParameterStorageBase::SetProgramRecord (const ZProgramRecord& record)
{
    SetProgramName (record.name);
    for (std::int32_t i = 0; i < GetParameterCount (); ++i)
    {
        SetPlain (i, record.values[i]);
        SetDefaultPlain (i, record.values[i]);
    }
}

void ZParameterStorageBase::SetParameterRecord (std::int32_t index, const ZParameterRecord& record)
{
    SetType (index, record.type);
    SetMinimum (index, record.minimum);
    SetMaximum (index, record.maximum);
    SetStep (index, record.step);
    SetName (index, record.name);
    SetUnits (index, record.units);
    SetConverters (index, record.converters);
    SetListTexts (index, record.listTexts); // after the range, which a list replaces by its own
    SetFlags (index, record.flags);
    SetUnitId (index, record.unitId);
}

void ZParameterStorageBase::AddUnits (const ZUnitRecord* table)
{
    for (; table != nullptr && table->id != 0; ++table)
        units.push_back (*table);
}

void ZParameterStorageBase::SetCurrentProgram (std::int32_t index)
{
    auto* const chosen = ElementOf (programs, index);
    if (chosen == nullptr)
        return;
    currentProgram = index;
    program = chosen;
}

void ZParameterStorageBase::CopyPrograms (std::vector<ZProgram>& out) const
{
    out.resize (programs.size ());
    for (std::size_t i = 0; i < programs.size (); ++i)
    {
        out[i].name = programs[i].name;
        CopyRelaxed (programs[i].values, out[i].values);
        CopyRelaxed (programs[i].defaults, out[i].defaults);
    }
}

void ZParameterStorageBase::GetUnit (std::int32_t index, ZUnitRecord* out) const
{
    if (const auto* unit = ElementOf (units, index))
        *out = *unit;
}

const std::vector<float>& ZParameterStorageBase::GetValuesRef () const
{
    return program != nullptr ? program->values : kNoValues;
}

const std::vector<float>& ZParameterStorageBase::GetDefaultsRef () const
{
    return program != nullptr ? program->defaults : kNoValues;
}

void ZParameterStorageBase::GetValues (std::vector<float>& out) const
{
    CopyRelaxed (GetValuesRef (), out);
}

void ZParameterStorageBase::GetDefaults (std::vector<float>& out) const
{
    CopyRelaxed (GetDefaultsRef (), out);
}

bool ZParameterStorageBase::ValuesEqual (const std::vector<float>& other) const
{
    return Equal (GetValuesRef (), other);
}

bool ZParameterStorageBase::DefaultsEqual (const std::vector<float>& other) const
{
    return Equal (GetDefaultsRef (), other);
}

float ZParameterStorageBase::GetDefaultNormalized (std::int32_t index) const
{
    const auto* value = ElementOf (GetDefaultsRef (), index);
    return value != nullptr ? LoadRelaxed (*value) : 0.0f;
}

void ZParameterStorageBase::SetPlain (std::int32_t index, float plain)
{
    SetNormalized (index, PlainToNormalized (index, plain));
}

void ZParameterStorageBase::SetDefaultPlain (std::int32_t index, float plain)
{
    SetDefaultNormalized (index, PlainToNormalized (index, plain));
}

float ZParameterStorageBase::GetDefaultPlain (std::int32_t index) const
{
    return NormalizedToPlain (index, GetDefaultNormalized (index));
}

void ZParameterStorageBase::SetBool (std::int32_t index, bool on)
{
    SetNormalized (index, on ? 1.0f : 0.0f);
}

void ZParameterStorageBase::SetDefaultBool (std::int32_t index, bool on)
{
    SetDefaultNormalized (index, on ? 1.0f : 0.0f);
}

bool ZParameterStorageBase::GetBool (std::int32_t index) const
{
    return GetNormalized (index) >= kBoolThreshold;
}

bool ZParameterStorageBase::GetDefaultBool (std::int32_t index) const
{
    return GetDefaultNormalized (index) >= kBoolThreshold;
}

void ZParameterStorageBase::SetInt (std::int32_t index, std::int32_t number)
{
    SetNormalized (index, IntToNormalized (number, GetStep (index)));
}

void ZParameterStorageBase::SetDefaultInt (std::int32_t index, std::int32_t number)
{
    SetDefaultNormalized (index, IntToNormalized (number, GetStep (index)));
}

std::int32_t ZParameterStorageBase::GetInt (std::int32_t index) const
{
    return NormalizedToInt (GetNormalized (index), GetStep (index));
}

std::int32_t ZParameterStorageBase::GetDefaultInt (std::int32_t index) const
{
    return NormalizedToInt (GetDefaultNormalized (index), GetStep (index));
}

} // namespace tessaly
