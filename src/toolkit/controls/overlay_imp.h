#pragma once

#include "geometry.h"
#include "input.h"
#include <cstdint>

namespace tessaly
{

class ZCanvas;
class ZEvent;

/// What a text field and a menu have in common while they are open over their control: a platform that shows them in
/// windows of its own overrides nothing here but IsOpen; one that draws them on the canvas gets all that their control
/// gets. Points are in the coordinates that the control's handlers see.
class ZOverlayImp
{
public:
    virtual ~ZOverlayImp () = default;

    virtual bool IsOpen () const { return false; }
    virtual ZRect GetOpenRect () const { return {}; }   ///< in root coordinates; zero while closed
    virtual bool HidesControl () const { return true; } ///< while open; false: it opens beside its control

    virtual void DrawActive (ZCanvas& /*canvas*/, std::uint32_t /*time*/) {}
    virtual void DrawInactive (ZCanvas& /*canvas*/, std::uint32_t /*time*/) {}
    virtual bool OnMouseDown (ZEvent& /*event*/, const ZMouseInput& /*mouse*/) { return false; }
    virtual bool OnMouseMove (ZEvent& /*event*/, const ZMouseInput& /*mouse*/) { return false; }
    virtual bool OnMouseUp (ZEvent& /*event*/, const ZMouseInput& /*mouse*/) { return false; }
    virtual bool OnMouseWheel (ZEvent& /*event*/, const ZWheelInput& /*wheel*/) { return false; }
    virtual bool OnKeyDown (ZEvent& /*event*/, const ZKeyInput& /*key*/) { return false; }
    virtual bool OnKeyRepeat (ZEvent& /*event*/, const ZKeyInput& /*key*/) { return false; }
    virtual bool OnKeyUp (ZEvent& /*event*/, const ZKeyInput& /*key*/) { return false; }
    virtual void OnIdle (ZEvent& /*event*/, const ZMouseInput& /*mouse*/) {}
};

} // namespace tessaly
