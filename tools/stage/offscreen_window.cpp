#include "offscreen_window.h"

#include "canvas.h"
#include <algorithm>

namespace tessaly::stage
{

namespace
{

constexpr std::uint32_t kTick = 30; // milliseconds

} // namespace

OffscreenWindow::OffscreenWindow (std::int32_t width, std::int32_t height, double scale)
    : surface (width, height, scale)
{
}

void OffscreenWindow::Open (ZGuiEditor& shown)
{
    editor = &shown;
    editor->Open ({});
    Settle ();
}

void OffscreenWindow::Settle ()
{
    Wait (kTick);
}

void OffscreenWindow::Point (ZPoint point)
{
    pointer = point;
    ZEvent event (*this);
    editor->MouseMove (event, Mouse ());
    Settle ();
}

void OffscreenWindow::Press (std::int32_t pressed, std::int32_t held)
{
    buttons = pressed;
    modifiers = held;
    ZEvent event (*this);
    editor->MouseDown (event, Mouse ());
    Settle ();
}

void OffscreenWindow::Release ()
{
    buttons = 0;
    ZEvent event (*this);
    editor->MouseUp (event, Mouse ());
    modifiers = 0;
    Settle ();
}

void OffscreenWindow::Wheel (std::int32_t delta)
{
    ZEvent event (*this);
    editor->MouseWheel (event, { pointer, delta, time });
    Settle ();
}

void OffscreenWindow::KeyDown (const ZKeyInput& key)
{
    auto stamped = key;
    stamped.time = time;
    ZEvent event (*this);
    editor->KeyDown (event, stamped);
    Settle ();
}

void OffscreenWindow::Key (const ZKeyInput& key)
{
    KeyDown (key);
    auto stamped = key;
    stamped.time = time;
    ZEvent event (*this);
    editor->KeyUp (event, stamped);
    Settle ();
}

void OffscreenWindow::Wait (std::uint32_t milliseconds)
{
    for (std::uint32_t passed = 0; passed < milliseconds;)
    {
        const auto step = std::min (kTick, milliseconds - passed);
        passed += step;
        time += step;
        ZEvent event (*this);
        if (buttons != 0)
            editor->MouseMove (event, Mouse ()); // a held button repeats, a slider pages
        editor->Idle (event, Mouse ());
        Paint ();
    }
}

bool OffscreenWindow::Paint ()
{
    if (!editor->NeedsRedraw ())
        return false;
    ZOnscreenCanvas canvas (surface);
    editor->Draw (canvas, {}, time);
    return canvas.IsModified ();
}

std::int32_t OffscreenWindow::PaneIdAt (ZPoint point)
{
    ZEvent event (*this);
    const auto* const pane = editor->PaneAt (event, { point, 0, 0, time });
    return pane != nullptr ? pane->GetId () : kNewPaneId;
}

} // namespace tessaly::stage
