#pragma once

#include "channel_strip.h"
#include "channel_strip_effect.h"
#include "channel_strip_storage.h"
#include "memory_stream.h"
#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <string>

namespace tessaly::fuzz
{

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
        std::string tree (1024, '\0');
        ZMemoryStream stream (tree.data (), static_cast<std::int32_t> (tree.size ()));
        effect.WriteState (&stream);
        tree.resize (static_cast<std::size_t> (stream.GetSize ()));
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

} // namespace tessaly::fuzz
