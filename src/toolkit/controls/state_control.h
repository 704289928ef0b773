#pragma once

#include "anim_control.h"
#include <array>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <type_traits>

namespace tessaly
{

/// A control whose strip has a frame for each of a few states, by one table for each look. A new one shows frame i for
/// state i. The concrete class only says which state.
/// @tparam kPresets  an array of arrays: the frames of each preset by state
template <typename Behaviour, const auto& kPresets>
class ZStateControl : public ZAnimControl<Behaviour>
{
public:
    using Frames = typename std::decay_t<decltype (kPresets)>::value_type;
    static constexpr std::size_t kStates = std::tuple_size_v<Frames>;

    using ZAnimControl<Behaviour>::ZAnimControl;

    void SetActiveFramePreset (std::int32_t preset) { Choose (activeFrames, preset); } ///< ignored when there is none
    void SetInactiveFramePreset (std::int32_t preset) { Choose (inactiveFrames, preset); }

    /// A frame for each state.
    template <typename... Frame>
    requires (sizeof...(Frame) == kStates) void SetActiveFrames (Frame... frames) { activeFrames = { frames... }; }
    template <typename... Frame>
    requires (sizeof...(Frame) == kStates) void SetInactiveFrames (Frame... frames) { inactiveFrames = { frames... }; }

protected:
    virtual std::size_t StateOf (const Frames& frames) const = 0; ///< @return below kStates

    /// Stores what the state follows from; a change has it drawn.
    template <typename T>
    void Follow (T& field, std::type_identity_t<T> now)
    {
        if (field == now)
            return;
        field = now;
        this->SetDirty (true);
    }

    std::int32_t FrameOf (const ZAnimRecord& /*record*/, bool activeLook) const override
    {
        const auto& frames = activeLook ? activeFrames : inactiveFrames;
        return frames[StateOf (frames)];
    }

private:
    static void Choose (Frames& frames, std::int32_t preset)
    {
        if (preset >= 0 && static_cast<std::size_t> (preset) < kPresets.size ())
            frames = kPresets[static_cast<std::size_t> (preset)];
    }
    static constexpr Frames InOrder ()
    {
        Frames frames{};
        std::iota (frames.begin (), frames.end (), 0);
        return frames;
    }

    Frames activeFrames = InOrder ();
    Frames inactiveFrames = InOrder ();
};

} // namespace tessaly
