#pragma once

#include "vst3_state_block.h"

namespace tessaly
{

class ZVst3EffectWrapper;

/// The accessor of one call of the host.
class ZVst3EffectWrapperAccessorImp final : public ZVst3EffectWrapperAccessor
{
public:
    /// @param of  not owned: the caller, which has its effect and storage
    explicit ZVst3EffectWrapperAccessorImp (ZVst3EffectWrapper& of)
        : wrapper (of)
    {
    }

    Steinberg::tresult Read (Steinberg::IBStream* stream, void* data, std::int32_t size) override;
    Steinberg::tresult Write (Steinberg::IBStream* stream, const void* data, std::int32_t size) override;
    std::int32_t GetParameterCount () override;
    void SetParameter (std::int32_t index, float normalized) override;
    float GetParameter (std::int32_t index) override;
    void UpdateBypass (std::int32_t index) override;
    void ReadExtra (Steinberg::IBStream* stream) override;
    void WriteExtra (Steinberg::IBStream* stream) override;
    void SetStateLoaded (bool loaded) override;

private:
    ZVst3EffectWrapper& wrapper;
};

} // namespace tessaly
