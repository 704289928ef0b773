#pragma once

#include "cairo_canvas_imp.h"
#include "event_imp.h"
#include "gallery_editor.h"
#include "input.h"
#include "sketch.h"
#include "surroundings.h"

namespace tessaly::gallery
{

/// A window without a screen: a pointer, a clock that runs only when it is told, and a surface that keeps what the
/// editor draws. Calls the editor as a window of a plug-in does.
class GalleryWindow final : private ZEventImp
{
public:
    explicit GalleryWindow (double scale); ///< pixels a coordinate

    void Point (ZPoint point); ///< a drag goes on with it
    void Press (std::int32_t buttons, std::int32_t modifiers);
    void Release ();
    void Wheel (std::int32_t delta);
    void Key (const ZKeyInput& key); ///< its time is this window's
    void Wait (std::uint32_t milliseconds);
    void Settle (); ///< a tick and, if something has changed, a pass

    bool Paint ();  ///< what changed. @return whether anything was drawn
    Png Picture (); ///< of the surface, the tooltip and the pointer
    ZPoint Pointer () const { return pointer; }
    GalleryEditor& Editor () { return editor; }
    Surroundings& Around () { return surroundings; }
    const ZCairoCanvasImp& Surface () const { return surface; }

private:
    ZMouseInput Mouse () const { return { pointer, buttons, modifiers, time }; }
    void DrawSign (ZCanvas& canvas) const;
    void DrawPointer (ZCanvas& canvas) const;

    ZPoint GetMousePos () override { return pointer; }
    std::int32_t GetButtons () override { return buttons; }
    std::int32_t GetModifiers () override { return modifiers; }
    std::uint32_t GetTime () override { return time; }
    std::uint32_t GetDoubleClickTime () override { return 400; }
    void SetDefaultCursor () override {}
    void SetCursor (std::int32_t /*kind*/) override {}
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
    bool overPane = false;

    ZCairoCanvasImp surface;
    Surroundings surroundings;
    GalleryEditor editor; // last: ends before what it draws on
};

} // namespace tessaly::gallery
