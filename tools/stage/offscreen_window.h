#pragma once

#include "event.h"
#include "event_imp.h"
#include "gui_editor.h"
#include "input.h"
#include "picture_surface.h"
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tessaly::stage
{

/// A window without a screen: a pointer, a clock that runs only when it is told, and a surface that keeps what an editor
/// draws. Calls the editor as the window of a plug-in does. Points are in coordinates of the panel at scale 1.
class OffscreenWindow : private ZEventImp
{
public:
    OffscreenWindow (std::int32_t width, std::int32_t height, double scale); ///< scale: pixels a coordinate

    void Open (ZGuiEditor& editor); ///< borrowed: outlives the calls below. Opens it; the first tick and pass follow

    void Point (ZPoint point); ///< a drag goes on with it
    void Press (std::int32_t buttons, std::int32_t modifiers);
    void Release ();
    void Wheel (std::int32_t delta);
    void KeyDown (const ZKeyInput& key); ///< its time is this window's
    void Key (const ZKeyInput& key);     ///< pressed and let go
    void Wait (std::uint32_t milliseconds);
    void Settle (); ///< a tick and, if something has changed, a pass

    bool Paint (); ///< what changed. @return whether anything was drawn
    ZPoint Pointer () const { return pointer; }
    void ShowPointer () { hidden = 0; } ///< whatever hid it
    bool IsPointerShown () const { return hidden <= 0; }
    std::int32_t Cursor () const { return cursor; } ///< as the editor chose it: kDefaultCursor or kHandCursor
    std::uint32_t Time () const { return time; }    ///< milliseconds
    PictureSurface& Surface () { return surface; }
    const PictureSurface& Surface () const { return surface; }
    std::vector<std::byte> Picture () const { return PngOf (surface); } ///< a PNG file

    /// The id of the topmost pane that takes the mouse at a point; kNewPaneId for none.
    std::int32_t PaneIdAt (ZPoint point);

private:
    ZMouseInput Mouse () const { return { pointer, buttons, modifiers, time }; }

    ZPoint GetMousePos () override { return pointer; }
    std::int32_t GetButtons () override { return buttons; }
    std::int32_t GetModifiers () override { return modifiers; }
    std::uint32_t GetTime () override { return time; }
    std::uint32_t GetDoubleClickTime () override { return 400; }
    void SetDefaultCursor () override { cursor = kDefaultCursor; }
    void SetCursor (std::int32_t kind) override { cursor = kind; }
    void ShowCursor () override { --hidden; }
    void HideCursor () override { ++hidden; }
    void SetMousePos (ZPoint point) override { pointer = point; }
    ZPoint GetRawMousePos () override { return pointer; }
    void SetOverPane (bool over) override { overPane = over; }
    bool IsOverPane () override { return overPane; }

    ZPoint pointer{ -20, -20 }; // outside
    std::int32_t buttons = 0;
    std::int32_t modifiers = 0;
    std::uint32_t time = 1000; // milliseconds
    std::int32_t hidden = 0;   // calls of HideCursor without ShowCursor
    std::int32_t cursor = kDefaultCursor;
    bool overPane = false;

    PictureSurface surface;
    ZGuiEditor* editor = nullptr; // not owned: the caller of Open
};

} // namespace tessaly::stage
