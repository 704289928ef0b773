#pragma once

#include "demand.h"
#include "public.sdk/source/common/memorystream.h"
#include "vst3_effect_wrapper.h"
#include <string>

namespace tessaly::fuzz
{

/// The processor half by itself, with states as strings of bytes.
class Processor
{
public:
    Processor () { Demand (wrapper->initialize (nullptr) == Steinberg::kResultOk); }
    ~Processor () { wrapper->terminate (); }

    void Load (std::string state)
    {
        Steinberg::MemoryStream stream (state.data (), static_cast<Steinberg::TSize> (state.size ()));
        wrapper->setState (&stream);
    }

    std::string Save ()
    {
        Steinberg::MemoryStream stream;
        Demand (wrapper->getState (&stream) == Steinberg::kResultOk);
        return { stream.getData (), static_cast<std::size_t> (stream.getSize ()) };
    }

private:
    Steinberg::IPtr<ZVst3EffectWrapper> wrapper = Steinberg::owned (new ZVst3EffectWrapper);
};

} // namespace tessaly::fuzz
