#pragma once

#include "anim_control.h"
#include "draw_back.h"
#include "draw_knob.h"
#include "slider.h"

namespace tessaly
{

/// A slider as a strip of frames.
class ZAnimSlider : public ZRangeAnimControl<ZSlider>
{
public:
    using ZRangeAnimControl::ZRangeAnimControl;
};

/// A slider as a thumb over a background.
class ZKnobSlider : public ZSlider, public ZDrawKnob, public ZDrawBack
{
public:
    using ZSlider::ZSlider;

    void DrawActive (ZCanvas& canvas, std::uint32_t time) override
    {
        ZDrawBack::DrawActive (canvas, time, GetDrawRect ());
        ZDrawKnob::DrawActive (canvas, time, GetKnobRect ());
    }
    void DrawInactive (ZCanvas& canvas, std::uint32_t time) override
    {
        ZDrawBack::DrawInactive (canvas, time, GetDrawRect ());
        ZDrawKnob::DrawInactive (canvas, time, GetKnobRect ());
    }
};

} // namespace tessaly
