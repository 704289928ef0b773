#pragma once

#include "canvas.h"
#include "event.h"
#include "fake_editor_wrapper.h"
#include "fake_event.h"
#include "gui_editor.h"
#include <functional>
#include <string>
#include <vector>

namespace tessaly
{

/// A control that writes down what reaches it, and does as it is told.
class ProbeControl : public ZControl
{
public:
    using ZControl::ZControl;

    std::vector<std::string>* log = nullptr; // not owned: the test's
    std::function<void ()> onPress;
    bool takesPress = true;
    bool takesMove = true;
    bool takesKeys = false;
    bool opensModal = false;
    ZRect openRect; // while modal: in the parent's coordinates, zero for the frame

    ZRect GetDrawRect () const override { return openRect.IsZero () ? ZControl::GetDrawRect () : openRect; }
    void DrawActive (ZCanvas& canvas, std::uint32_t) override { canvas.FillRect (GetDrawRect ()); }
    bool OnMouseDown (ZEvent&, const ZMouseInput&) override
    {
        Write ("down");
        if (onPress)
            onPress ();
        return takesPress;
    }
    bool OnMouseMove (ZEvent&, const ZMouseInput&) override
    {
        Write ("move");
        return takesMove;
    }
    bool OnMouseUp (ZEvent&, const ZMouseInput&) override
    {
        Write ("up");
        return false;
    }
    bool OnKeyDown (ZEvent&, const ZKeyInput&) override
    {
        Write ("key");
        return takesKeys;
    }
    bool OnOpenModal (ZEvent&, const ZMouseInput&) override
    {
        if (opensModal)
            Write ("open");
        return opensModal;
    }
    bool OnCloseModal (bool commit) override
    {
        Write (commit ? "commit" : "close");
        return false;
    }
    void OnMouseEnter (ZEvent&, const ZMouseInput&) override { Write ("enter"); }
    void OnMouseExit (ZEvent&, const ZMouseInput&) override { Write ("exit"); }
    void OnIdle (ZEvent&, const ZMouseInput&) override { ++ticks; }
    int ticks = 0;

private:
    void Write (const char* word)
    {
        if (log != nullptr)
            log->push_back (std::to_string (GetId ()) + " " + word);
    }
};

/// Drives an editor as a window does: a pointer, a clock, a canvas that keeps what is drawn.
class EditorDesk
{
public:
    FakeEditorWrapper wrapper;
    FakeEvent window;
    RecordingCanvasImp surface;

    ZMouseInput Mouse () const { return { window.pointer, window.buttons, window.modifiers, window.time }; }
    void Tick (ZGuiEditor& editor, std::uint32_t milliseconds = 30)
    {
        window.time += milliseconds;
        ZEvent event (window);
        editor.Idle (event, Mouse ());
    }
    bool Press (ZGuiEditor& editor, ZPoint point, std::int32_t modifiers = 0)
    {
        Point (point, kLeftButton, modifiers);
        ZEvent event (window);
        return editor.MouseDown (event, Mouse ());
    }
    void Click (ZGuiEditor& editor, ZPoint point)
    {
        Press (editor, point);
        Release (editor, point);
    }
    bool Drag (ZGuiEditor& editor, ZPoint point)
    {
        Point (point, kLeftButton);
        ZEvent event (window);
        return editor.MouseMove (event, Mouse ());
    }
    bool Release (ZGuiEditor& editor, ZPoint point)
    {
        Point (point, 0);
        ZEvent event (window);
        return editor.MouseUp (event, Mouse ());
    }
    bool Wheel (ZGuiEditor& editor, std::int32_t delta)
    {
        ZEvent event (window);
        return editor.MouseWheel (event, { window.pointer, delta, window.time });
    }
    bool Key (ZGuiEditor& editor, std::int32_t key, char character = 0)
    {
        ZEvent event (window);
        return editor.KeyDown (event, { character, 0, key, window.time });
    }
    RecordingCanvasImp::Log Paint (ZGuiEditor& editor) ///< the calls of one pass on the window's surface
    {
        surface.Take ();
        ZOnscreenCanvas canvas (surface);
        editor.Draw (canvas, {}, window.time);
        return surface.Take ();
    }

private:
    void Point (ZPoint point, std::int32_t buttons, std::int32_t modifiers = 0)
    {
        window.pointer = point;
        window.buttons = buttons;
        window.modifiers = modifiers;
    }
};

} // namespace tessaly
