#include "vst3_effect_wrapper_accessor.h"

#include "effect.h"
#include "vst3_effect_wrapper.h"
#include "vst3_stream.h"

namespace tessaly
{

using namespace Steinberg;

namespace
{

/// A stream that moves fewer bytes than asked for has failed, whatever it says.
tresult Complete (tresult result, int32 done, std::int32_t size)
{
    return result == kResultOk && done != size ? kResultFalse : result;
}

} // namespace

tresult ZVst3EffectWrapperAccessorImp::Read (IBStream* stream, void* data, std::int32_t size)
{
    int32 done = 0;
    const tresult result = stream->read (data, size, &done);
    return Complete (result, done, size);
}

tresult ZVst3EffectWrapperAccessorImp::Write (IBStream* stream, const void* data, std::int32_t size)
{
    int32 done = 0;
    const tresult result = stream->write (const_cast<void*> (data), size, &done);
    return Complete (result, done, size);
}

std::int32_t ZVst3EffectWrapperAccessorImp::GetParameterCount ()
{
    return wrapper.storage->GetParameterCount ();
}

void ZVst3EffectWrapperAccessorImp::SetParameter (std::int32_t index, float normalized)
{
    wrapper.effect->SetParameter (index, normalized);
}

float ZVst3EffectWrapperAccessorImp::GetParameter (std::int32_t index)
{
    return wrapper.storage->GetNormalized (index);
}

void ZVst3EffectWrapperAccessorImp::UpdateBypass (std::int32_t index)
{
    wrapper.UpdateBypass (static_cast<Vst::ParamID> (index));
}

void ZVst3EffectWrapperAccessorImp::ReadExtra (IBStream* stream)
{
    ZVst3Stream wrapped (stream);
    wrapper.effect->ReadState (&wrapped);
}

void ZVst3EffectWrapperAccessorImp::WriteExtra (IBStream* stream)
{
    ZVst3Stream wrapped (stream);
    wrapper.effect->WriteState (&wrapped);
}

void ZVst3EffectWrapperAccessorImp::SetStateLoaded (bool loaded)
{
    wrapper.stateLoaded = loaded;
}

} // namespace tessaly
