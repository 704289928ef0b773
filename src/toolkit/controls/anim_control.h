#pragma once

#include "draw_anim.h"
#include "draw_back.h"
#include "geometry.h"
#include "truncate.h"
#include <cstdint>
#include <memory>

namespace tessaly
{

class ZCanvas;
class ZPaneOwner;

/// A behaviour class with a look: a background and over it a frame of a strip, both in the draw rectangle. The concrete
/// class only says which frame.
template <typename Behaviour>
class ZAnimControl : public Behaviour, public ZDrawBack, public ZDrawAnim
{
public:
    using Behaviour::Behaviour;

    void DrawActive (ZCanvas& canvas, std::uint32_t time) override
    {
        const auto rect = this->GetDrawRect ();
        ZDrawBack::DrawActive (canvas, time, rect);
        ZDrawAnim::DrawActive (canvas, time, rect, FrameOf (ZDrawAnim::GetRecordActive (), true));
    }
    void DrawInactive (ZCanvas& canvas, std::uint32_t time) override
    {
        const auto rect = this->GetDrawRect ();
        ZDrawBack::DrawInactive (canvas, time, rect);
        ZDrawAnim::DrawInactive (canvas, time, rect, FrameOf (ZDrawAnim::GetRecordInactive (), false));
    }

protected:
    /// @param record       of the look that is drawn
    /// @param activeLook   which of the two looks that is
    /// @return the frame to show; one beyond the strip shows the nearest of its ends
    virtual std::int32_t FrameOf (const ZAnimRecord& record, bool activeLook) const = 0;
};

/// A frame for each position of the value, whatever the length of the strip.
template <typename Behaviour>
class ZPositionAnimControl : public ZAnimControl<Behaviour>
{
public:
    using ZAnimControl<Behaviour>::ZAnimControl;

protected:
    std::int32_t FrameOf (const ZAnimRecord& /*record*/, bool /*activeLook*/) const override
    {
        return this->GetIndex ();
    }
};

/// A frame for each equal part of the range, as many as the strip has.
template <typename Behaviour>
class ZRangeAnimControl : public ZAnimControl<Behaviour>
{
public:
    using ZAnimControl<Behaviour>::ZAnimControl;

protected:
    std::int32_t FrameOf (const ZAnimRecord& record, bool /*activeLook*/) const override
    {
        return Truncate (this->GetValue () * static_cast<float> (record.frameCount));
    }
};

/// Makes such a control with its active strip in one step.
template <typename AnimControl>
std::unique_ptr<AnimControl> CreateAnim (ZPaneOwner* owner, const ZRect& frame, std::int32_t id, ZBitmap* bitmap,
                                         std::int32_t frameCount, std::int32_t frameHeight, ZPoint source)
{
    auto control = std::make_unique<AnimControl> (owner, frame, id);
    control->SetAnimActive (bitmap, frameCount, frameHeight, source);
    return control;
}

} // namespace tessaly
