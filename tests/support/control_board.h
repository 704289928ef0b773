#pragma once

#include "pane_desk.h"
#include "recording_canvas.h"
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

} // namespace tessaly
