#pragma once

#include "channel_strip.h"
#include "channel_strip_effect.h"
#include "channel_strip_storage.h"
#include "memory_stream.h"
#include "public.sdk/source/common/memorystream.h"
#include "vst3_effect_wrapper.h"
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <string>

namespace tessaly::fuzz
{

/// Ends the run, so that the fuzzer keeps the bytes that led here.
inline void Demand (bool holds)
{
    if (!holds)
        std::abort ();
}

/// The effect without a host, with trees of chunks as strings of bytes.
struct Strip
{
    Strip ()
    {
        const auto records = ChannelStripRecords ();
        const auto program = ChannelStripProgram ();
        effect.SetStorage (std::make_unique<ZChannel_StripStorage> (), records.data (), &program, 1,
                           kStripParameterCount);
        effect.SetPluginCore (std::make_unique<Channel_Strip> (&effect));
    }

    void Load (std::string tree)
    {
        const auto size = static_cast<std::int32_t> (tree.size ());
        ZMemoryStream stream (tree.data (), size, size);
        effect.ReadState (&stream);
    }

    std::string Save ()
    {
        const std::int32_t size = effect.GetStateSize ();
        std::string tree (static_cast<std::size_t> (size), '\0');
        ZMemoryStream stream (tree.data (), size);
        effect.WriteState (&stream);
        return tree;
    }

    /// Runs some samples of a constant level through.
    bool SoundsFinite ()
    {
        std::array<float, 16> sound{};
        sound.fill (0.5f);
        float* channel = sound.data ();
        effect.ProcessRaw (&channel, &channel, static_cast<std::int32_t> (sound.size ()));
        return std::ranges::all_of (sound, [] (float sample) { return std::isfinite (sample); });
    }

    ZChannel_StripEffect effect{ nullptr };
};

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
