#pragma once

#include "text_buffer.h"
#include <cstdint>
#include <vector>

namespace tessaly
{

/// Kinds of parameter. What is no list and no bool is continuous.
enum ParameterType : std::int32_t
{
    kContinuous = 0,
    kList = 1,
    kBool = 2
};

/// Bits of a parameter's flags.
enum ParameterFlag : std::int32_t
{
    kNotAutomatable = 0x08,
    kIsBypass = 0x10
};

using ZToText = void (*) (float plain, char* buffer); // buffer: kTextSize bytes
using ZToPlain = float (*) (float normalized, float minimum, float maximum);
using ZToNormalized = float (*) (float plain, float minimum, float maximum);

/// How a continuous parameter turns one form of its value into another. Each function may be null.
struct ZConverterSet
{
    ZToText toText = nullptr;
    ZToPlain toPlain = nullptr;
    ZToNormalized toNormalized = nullptr;
};

/// What a storage keeps of one parameter.
struct ZParameterSpec
{
    std::int32_t type = kContinuous;
    float minimum = 0.0f; // plain
    float maximum = 1.0f; // plain
    float step = 0.0f;    // normalized; 0 or less reads back as 0.01
    ZText name{};
    ZText units{};
    ZConverterSet converters;
    std::vector<ZText> listTexts; // entries of a list or bool parameter
    std::int32_t flags = 0;       // of ParameterFlag
    std::int32_t unitId = 0;
};

/// What a storage keeps of one program. The floats are shared between threads: access them by relaxed_cells.h.
struct ZProgram
{
    ZText name{};
    std::vector<float> values;   // present normalized values, one a parameter
    std::vector<float> defaults; // default normalized values, one a parameter
};

struct ZUnitRecord
{
    std::int32_t id = 0; // 0 ends a table
    std::int32_t parentId = 0;
    ZText name{};
};

/// One row of the table that a storage is filled from. What it points to is read once, when it is taken over.
struct ZParameterRecord
{
    std::int32_t type = kContinuous;
    float minimum = 0.0f;
    float maximum = 1.0f;
    float step = 0.0f;
    const char* name = "";
    const char* units = "";
    const ZConverterSet* converters = nullptr;
    const char* const* listTexts = nullptr; // ended by a null
    std::int32_t flags = 0;
    std::int32_t unitId = 0;
};

struct ZProgramRecord
{
    const char* name = "";
    const float* values = nullptr; // plain, one a parameter
};

} // namespace tessaly
