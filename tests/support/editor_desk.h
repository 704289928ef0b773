#pragma once

#include "fake_editor_wrapper.h"
#include "fake_event.h"
#include "gui_editor.h"
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tessaly
{

using Words_t = std::vector<std::string>;

/// A control that writes down what reaches it, and does as it is told.
class ProbeControl final : public ZControl
{
public:
    ProbeControl (ZPaneOwner* paneOwner, const ZRect& rect, std::int32_t controlId, Words_t& words)
        : ZControl (paneOwner, rect, controlId)
        , log (words)
    {
    }

    std::function<void ()> onPress = [] {};
    bool takesMove = true;
    bool takesKeys = false;
    bool opensModal = false;
    ZRect openRect; // while modal: in the parent's coordinates, zero for the frame
    int ticks = 0;

    ZRect GetDrawRect () const override { return openRect.IsZero () ? ZControl::GetDrawRect () : openRect; }
    void DrawActive (ZCanvas& canvas, std::uint32_t) override { canvas.FillRect (GetDrawRect ()); }
    bool OnMouseDown (ZEvent&, const ZMouseInput&) override
    {
        Write ("down");
        onPress ();
        return true;
    }
    bool OnMouseMove (ZEvent&, const ZMouseInput&) override { return Write ("move", takesMove); }
    bool OnMouseUp (ZEvent&, const ZMouseInput&) override { return Write ("up"); }
    bool OnKeyDown (ZEvent&, const ZKeyInput&) override { return Write ("key", takesKeys); }
    bool OnOpenModal (ZEvent&, const ZMouseInput&) override { return opensModal && Write ("open", true); }
    bool OnCloseModal (bool commit) override { return Write (commit ? "commit" : "close"); }
    void OnMouseEnter (ZEvent&, const ZMouseInput&) override { Write ("enter"); }
    void OnMouseExit (ZEvent&, const ZMouseInput&) override { Write ("exit"); }
    void OnIdle (ZEvent&, const ZMouseInput&) override { ++ticks; }

private:
    bool Write (const char* word, bool answer = false)
    {
        log.push_back (std::to_string (GetId ()) + " " + word);
        return answer;
    }

    Words_t& log; // not owned: the test's
};

struct EditorSurroundings
{
    FakeEditorWrapper wrapper; // which outlives the editor
};

/// An editor of the controls that a test puts in, driven as a window does: a pointer, a clock, a canvas that keeps what
/// is drawn.
template <typename Base = ZGuiEditor>
class EditorDesk : public EditorSurroundings, public Base, public Hands
{
public:
    EditorDesk ()
        : Base (EditorSurroundings::wrapper)
    {
    }
    ~EditorDesk () override { this->Close (); }

    using EditorSurroundings::wrapper;
    RecordingCanvasImp surface;
    Words_t log;                       // of the editor and its probes
    std::vector<std::int32_t> changed; // ids of ParameterChanged in order
    double rate = 0.0;

    void ParameterChanged (std::int32_t id, float value) override
    {
        Base::ParameterChanged (id, value);
        changed.push_back (id);
    }
    void DestroyControls () override {}
    bool OnKeyDown (ZEvent&, const ZKeyInput&) override
    {
        log.emplace_back ("editor key");
        return true;
    }
    void OnFocusGained () override { log.emplace_back ("gained"); }
    void OnFocusLost () override { log.emplace_back ("lost"); }
    void OnSampleRate (double rateHz) override { rate = rateHz; }

    ProbeControl* AddProbe (ZView& view, const ZRect& frame, std::int32_t tag)
    {
        return this->AddControl (view, std::make_unique<ProbeControl> (this, frame, tag, log));
    }

    void Tick (std::uint32_t milliseconds = 30)
    {
        window.time += milliseconds;
        this->Idle (event, At (window.pointer, window.buttons));
    }
    void Hover (ZPoint point, std::uint32_t milliseconds = 30) ///< moves the pointer and ticks
    {
        window.pointer = point;
        Tick (milliseconds);
    }
    bool Press (ZPoint point) { return Hands::Press (*this, point); }
    bool Drag (ZPoint point) { return Hands::Drag (*this, point); }
    void Release (ZPoint point) { Hands::Release (*this, point); }
    void Click (ZPoint point)
    {
        Press (point);
        Release (point);
    }
    bool Wheel (std::int32_t delta) { return Hands::Wheel (*this, delta); }
    bool Key (std::int32_t key, char character = 0) { return Hands::Key (*this, key, 0, character); }
    Words_t Paint () ///< the calls of one pass on the window's surface
    {
        surface.Take ();
        ZOnscreenCanvas canvas (surface);
        this->Draw (canvas, {}, window.time);
        return surface.Take ();
    }
};

} // namespace tessaly
