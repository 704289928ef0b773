#pragma once

#include "parameter_records.h"
#include "relaxed_cells.h"
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace tessaly
{

/// What parameters there are, their values, and every conversion between the forms of a value: normalized (0 to 1, what
/// host and editor exchange), plain (what the engine works with) and text.
///
/// A list of n entries divides 0 to 1 into n equal parts when read and places entry i at i / (n - 1) when written.
///
/// A bad index makes a setter do nothing and a getter return the value stated; nothing is clamped on writing. "size" of
/// a text is without its terminator: the buffer has size + 1 bytes, and a null buffer or a size below 1 does nothing.
///
/// Threads: filled once, during set-up. Then values and defaults may be read and written from every thread, as relaxed
/// atomics; the rest only read.
class ZParameterStorageBase
{
public:
    ZParameterStorageBase () = default;
    virtual ~ZParameterStorageBase () = default;
    ZParameterStorageBase (const ZParameterStorageBase&) = delete;
    ZParameterStorageBase& operator= (const ZParameterStorageBase&) = delete;

    // Filling, during set-up
    void Initialize (const ZParameterRecord* parameters, const ZProgramRecord* programs, std::int32_t numPrograms,
                     std::int32_t numParameters);
    void Allocate (std::int32_t numPrograms, std::int32_t numParameters); ///< blank tables of these sizes
    void Clear ();
    void SetProgramRecord (const ZProgramRecord& record); ///< into the current program, values and defaults alike
    void SetParameterRecord (std::int32_t index, const ZParameterRecord& record);
    void AddUnits (const ZUnitRecord* table); ///< rows up to one with id 0; null does nothing
    void SetCurrentProgram (std::int32_t index);

    // Tables
    void CopyParameters (std::vector<ZParameterSpec>& out) const { out = parameters; }
    void CopyPrograms (std::vector<ZProgram>& out) const;
    const std::vector<ZParameterSpec>& GetParameterTable () const { return parameters; }
    const std::vector<ZProgram>& GetProgramTable () const { return programs; }
    std::int32_t GetProgramCount () const { return static_cast<std::int32_t> (programs.size ()); }
    std::int32_t GetParameterCount () const { return static_cast<std::int32_t> (parameters.size ()); }
    std::int32_t GetUnitCount () const { return static_cast<std::int32_t> (units.size ()); }
    void GetUnit (std::int32_t index, ZUnitRecord* out) const;
    std::int32_t GetCurrentProgram () const { return currentProgram; }

    // The current program's values as a whole; empty when there is no program
    void GetValues (std::vector<float>& out) const;
    void GetDefaults (std::vector<float>& out) const;
    bool ValuesEqual (const std::vector<float>& other) const; ///< other length: unequal
    bool DefaultsEqual (const std::vector<float>& other) const;
    const std::vector<float>& GetValuesRef () const; ///< access them by relaxed_cells.h
    const std::vector<float>& GetDefaultsRef () const;

    // One value of the current program. Bad index: 0.0 normalized, then as converted
    void SetNormalized (std::int32_t index, float normalized)
    {
        if (auto* value = program != nullptr ? ElementOf (program->values, index) : nullptr)
            StoreRelaxed (*value, normalized);
    }
    void SetDefaultNormalized (std::int32_t index, float normalized)
    {
        if (auto* value = program != nullptr ? ElementOf (program->defaults, index) : nullptr)
            StoreRelaxed (*value, normalized);
    }
    float GetNormalized (std::int32_t index) const
    {
        const auto* value = program != nullptr ? ElementOf (program->values, index) : nullptr;
        return value != nullptr ? LoadRelaxed (*value) : 0.0f;
    }
    float GetDefaultNormalized (std::int32_t index) const;
    void SetPlain (std::int32_t index, float plain);
    float PutNormalized (std::int32_t index, float normalized); ///< SetNormalized. @return GetPlain
    void SetPlainAndDefault (std::int32_t index, float plain);  ///< SetPlain and SetDefaultPlain
    void SetDefaultPlain (std::int32_t index, float plain);
    float GetPlain (std::int32_t index) const;
    float GetDefaultPlain (std::int32_t index) const;
    void SetBool (std::int32_t index, bool on);
    void SetDefaultBool (std::int32_t index, bool on);
    bool GetBool (std::int32_t index) const;
    bool GetDefaultBool (std::int32_t index) const;
    void SetInt (std::int32_t index, std::int32_t number);
    void SetDefaultInt (std::int32_t index, std::int32_t number);
    std::int32_t GetInt (std::int32_t index) const;
    std::int32_t GetDefaultInt (std::int32_t index) const;

    // Description
    void SetType (std::int32_t index, std::int32_t type);
    std::int32_t GetType (std::int32_t index) const; ///< bad index: -1
    void SetMinimum (std::int32_t index, float plain);
    float GetMinimum (std::int32_t index) const; ///< bad index: 0.0
    void SetMaximum (std::int32_t index, float plain);
    float GetMaximum (std::int32_t index) const; ///< bad index: 1.0
    void SetStep (std::int32_t index, float normalized);
    float GetStep (std::int32_t index) const; ///< 0.01 for a stored 0 or less; bad index: 0.0
    void SetFlags (std::int32_t index, std::int32_t flags);
    std::int32_t GetFlags (std::int32_t index) const ///< bad index: 0
    {
        const auto* spec = Spec (index);
        return spec != nullptr ? spec->flags : 0;
    }
    void SetUnitId (std::int32_t index, std::int32_t id);
    std::int32_t GetUnitId (std::int32_t index) const;                 ///< bad index: 0
    void SetConverters (std::int32_t index, const ZConverterSet* set); ///< null does nothing
    void GetConverters (std::int32_t index, ZConverterSet* out) const;

    // Names and texts; longer ones than 255 characters are cut
    void SetProgramName (const char* name); ///< of the current program; null does nothing
    void GetProgramName (char* buffer, std::int32_t size) const;
    void SetName (std::int32_t index, const char* name);
    void GetName (std::int32_t index, char* buffer, std::int32_t size) const;
    void SetUnits (std::int32_t index, const char* text);
    void GetUnits (std::int32_t index, char* buffer, std::int32_t size) const;
    void SetListTexts (std::int32_t index, const char* const* list); ///< also sets minimum, maximum and step
    void GetListText (std::int32_t index, std::int32_t entry, char* buffer, std::int32_t size) const;
    std::int32_t GetListCount (std::int32_t index) const; ///< bad index: 0

    // Conversions
    float NormalizedToPlain (std::int32_t index, float normalized) const; ///< bad index: the argument
    float PlainToNormalized (std::int32_t index, float plain) const;      ///< bad index: the argument
    void GetValueText (std::int32_t index, char* buffer, std::int32_t size) const;
    void NormalizedToText (std::int32_t index, float normalized, char* buffer, std::int32_t size) const;
    void PlainToText (std::int32_t index, float plain, char* buffer, std::int32_t size) const;

    /// Reads a text as a decimal number; `out` gets what the beginning of the text says.
    /// @return false if something is left over after the number, or, with nothing written, for a null text
    bool TextToPlain (std::int32_t index, const char* text, float* out) const;
    bool TextToNormalized (std::int32_t index, const char* text, float* out) const; ///< likewise, then converted

    /// A value some steps of a mouse wheel or an arrow key away. @param factor  of fine or coarse steps
    float StepNormalized (std::int32_t index, float normalized, std::int32_t steps, float factor) const;

private:
    // What a block under automation comes through a hundred times is in the header
    template <typename T>
    static const T* ElementOf (const std::vector<T>& list, std::int32_t index) // null for a bad index
    {
        const auto place = static_cast<std::size_t> (index); // below 0: beyond the end, too
        return place < list.size () ? &list[place] : nullptr;
    }
    template <typename T>
    static T* ElementOf (std::vector<T>& list, std::int32_t index)
    {
        return const_cast<T*> (ElementOf (std::as_const (list), index));
    }
    const ZParameterSpec* Spec (std::int32_t index) const { return ElementOf (parameters, index); }
    ZParameterSpec* Spec (std::int32_t index) { return ElementOf (parameters, index); }

    std::int32_t currentProgram = 0;
    std::vector<ZParameterSpec> parameters;
    std::vector<ZProgram> programs;
    ZProgram* program = nullptr; // not owned: the current one of `programs`; null when there is none
    std::vector<ZUnitRecord> units;
};

} // namespace tessaly
