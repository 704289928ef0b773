#pragma once

#include "pane_desk.h"
#include "recording_canvas.h"
#include <doctest/doctest.h>
#include <initializer_list>
#include <string>
#include <vector>

namespace tessaly
{

/// A desk with a surface to draw controls on, and a strip whose frames are one row high, so that the row that is drawn
/// is the number of the frame.
struct ControlBoard : PaneDesk
{
    RecordingCanvasImp surface;
    ZOnscreenCanvas canvas{ surface };
    ZBitmap strip = NamedBitmap ("strip");

    std::vector<std::string> Drawn (ZPane& pane)
    {
        pane.Draw (canvas, 0);
        return surface.Take ();
    }

    /// The frame of the strip that a control shows; -1 if it shows none.
    int FrameShown (ZPane& pane)
    {
        for (const auto& call : Drawn (pane))
            if (call.starts_with ("DrawBitmap strip"))
                return std::stoi (call.substr (call.rfind (',') + 1));
        return -1;
    }
};

/// A board with a single control.
template <typename Control>
struct BoardOf : ControlBoard
{
    using Values = std::vector<float>;

    Control control;

    explicit BoardOf (const ZRect& frame)
        : control (this, frame, 3)
    {
        Adopt (control);
    }
    BoardOf (const ZRect& frame, std::int32_t dragMode, float value)
        : BoardOf (frame)
    {
        control.SetDragMode (dragMode);
        control.SetValue (value);
    }

    // A gesture over the control, and what that broadcasts
    Values Pressed (ZPoint point, std::int32_t modifiers = 0)
    {
        Press (control, point, modifiers);
        return TakeValues ();
    }
    Values Dragged (ZPoint point)
    {
        Drag (control, point);
        return TakeValues ();
    }
    Values Released (ZPoint point)
    {
        Release (control, point);
        return TakeValues ();
    }

    struct Leg
    {
        ZPoint to;
        double value; // of the control when the pointer is there
        std::int32_t modifiers = 0;
    };
    void CheckDrag (std::initializer_list<Leg> legs)
    {
        for (const auto& leg : legs)
        {
            CAPTURE (Words (leg.to));
            CAPTURE (leg.modifiers);
            Drag (control, leg.to, leg.modifiers);
            CHECK (control.GetValue () == doctest::Approx (leg.value));
        }
        TakeValues ();
    }
};

} // namespace tessaly
