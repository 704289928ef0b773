#include "anim_vu_meter.h"
#include "bitmap_picture.h"
#include "control_board.h"
#include <doctest/doctest.h>

using namespace tessaly;

TEST_CASE ("Pictures and meters: show their image and their frame, and the mouse reaches what lies below")
{
    ControlBoard board;
    ZView root (&board, { 0, 0, 100, 100 });
    ZPane below (&board);
    below.SetFrame ({ 0, 0, 50, 50 });
    const auto picture = CreateBitmapPicture (&board, { 0, 0, 40, 30 }, 1, &board.strip, { 3, 4 });
    const auto meter = CreateAnim<ZAnimVuMeter> (&board, { 0, 0, 10, 10 }, 2, &board.strip, 20, 1, {});
    for (ZPane* pane : { &below, static_cast<ZPane*> (picture.get ()), static_cast<ZPane*> (meter.get ()) })
        root.AddPane (pane);
    ZEvent event (board.window);
    CHECK (root.FindPane (event, board.At ({ 5, 5 })) == &below);
    CHECK (board.Drawn (*picture) == std::vector<std::string>{ "DrawBitmap strip 0,0,40,30 from 3,4" });
    for (const auto& [value, frame] : { std::pair{ 0.049f, 0 }, { 0.05f, 1 }, { 0.999f, 19 }, { 1.0f, 19 } })
    {
        meter->SetValue (value);
        CHECK (board.FrameShown (*meter) == frame);
    }
    root.SetDirty (false);
    meter->SetValue (1.0f); // rests, so it is not drawn again
    CHECK_FALSE (meter->IsDirty ());
}
