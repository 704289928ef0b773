#include "vst3_state_block.h"

#include "stored_value.h"
#include "strip_state.h"
#include <algorithm>
#include <array>
#include <bit>

namespace tessaly
{

using namespace Steinberg;

namespace
{

using FourBytes = std::array<std::uint8_t, 4>;

constexpr FourBytes kHeader{ '2', '6', '2', '0' };
constexpr std::int32_t kWidth = 4;

FourBytes HighestFirst (float value)
{
    const auto bits = std::bit_cast<std::uint32_t> (value);
    return { static_cast<std::uint8_t> (bits >> 24), static_cast<std::uint8_t> (bits >> 16),
             static_cast<std::uint8_t> (bits >> 8), static_cast<std::uint8_t> (bits) };
}

std::int32_t ValueCount (ZVst3EffectWrapperAccessor& accessor)
{
    return std::min (accessor.GetParameterCount (), kStateHeadValues);
}

float FromHighestFirst (const FourBytes& bytes)
{
    std::uint32_t bits = 0;
    for (const auto byte : bytes)
        bits = bits << 8 | byte;
    return std::bit_cast<float> (bits);
}

} // namespace

tresult ZVst3StateBlock::ReadBlock (ZVst3EffectWrapperAccessor& accessor, IBStream* stream)
{
    if (stream == nullptr)
        return kResultFalse;
    FourBytes bytes{};
    if (const tresult result = accessor.Read (stream, bytes.data (), kWidth); result != kResultOk)
        return result;
    const std::int32_t count = ValueCount (accessor);
    for (std::int32_t i = 0; i < count; ++i)
    {
        if (accessor.Read (stream, bytes.data (), kWidth) != kResultOk)
            continue;
        const auto value = StoredValue (FromHighestFirst (bytes));
        if (!value)
            continue;
        accessor.SetParameter (i, *value);
        accessor.UpdateBypass (i);
    }
    accessor.ReadExtra (stream);
    accessor.SetStateLoaded (true);
    return kResultOk;
}

tresult ZVst3StateBlock::WriteBlock (ZVst3EffectWrapperAccessor& accessor, IBStream* stream)
{
    if (stream == nullptr)
        return kResultFalse;
    if (const tresult result = accessor.Write (stream, kHeader.data (), kWidth); result != kResultOk)
        return result;
    const std::int32_t count = ValueCount (accessor);
    for (std::int32_t i = 0; i < count; ++i)
    {
        const auto bytes = HighestFirst (accessor.GetParameter (i));
        if (const tresult result = accessor.Write (stream, bytes.data (), kWidth); result != kResultOk)
            return result;
    }
    accessor.WriteExtra (stream);
    return kResultOk;
}

} // namespace tessaly
