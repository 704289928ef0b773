#pragma once

#include "pluginterfaces/base/ibstream.h"
#include <cstdint>

namespace tessaly
{

/// What the state block may do with an instance. Host threads only.
class ZVst3EffectWrapperAccessor
{
public:
    virtual ~ZVst3EffectWrapperAccessor () = default;

    /// @return kResultOk only when all of the bytes went through
    virtual Steinberg::tresult Read (Steinberg::IBStream* stream, void* data, std::int32_t size) = 0;
    virtual Steinberg::tresult Write (Steinberg::IBStream* stream, const void* data, std::int32_t size) = 0;
    virtual std::int32_t GetParameterCount () = 0;
    virtual void SetParameter (std::int32_t index, float normalized) = 0;
    virtual float GetParameter (std::int32_t index) = 0;
    virtual void UpdateBypass (std::int32_t index) = 0;
    virtual void ReadExtra (Steinberg::IBStream* stream) = 0; ///< the effect's own state, after the block
    virtual void WriteExtra (Steinberg::IBStream* stream) = 0;
    virtual void SetStateLoaded (bool loaded) = 0;
};

/// The stored state of an instance: "2620", then the normalized values of the first kStateHeadValues parameters as
/// float32 with their highest byte first, then what the effect itself stores, which holds all parameters
/// (strip_state.h, which also says how the list may grow).
class ZVst3StateBlock
{
public:
    virtual ~ZVst3StateBlock () = default;

    /// Sets the parameters in index order, those whose values arrive; the first four bytes may be any.
    /// @return the stream's error when it does not even begin, kResultFalse without a stream
    virtual Steinberg::tresult ReadBlock (ZVst3EffectWrapperAccessor& accessor, Steinberg::IBStream* stream);

    /// @return the stream's first error within the block, kResultFalse without a stream
    virtual Steinberg::tresult WriteBlock (ZVst3EffectWrapperAccessor& accessor, Steinberg::IBStream* stream);
};

} // namespace tessaly
