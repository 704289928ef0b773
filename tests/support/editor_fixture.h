#pragma once

#include "canvas.h"
#include "canvas_menu_imp.h"
#include "canvas_text_edit_imp.h"
#include "editor_wrapper.h"
#include "effect_wrapper.h"
#include "fake_event.h"
#include "gui_editor.h"
#include "parameter_storage_base.h"
#include "recording_canvas.h"
#include "vu_buffer.h"
#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace tessaly
{

using Words_t = std::vector<std::string>;

/// The window's and the effect's place around an editor: a storage, meters, and lists of what the editor asked for.
class FakeEditorWrapper final : public ZEditorWrapper
{
public:
    FakeEditorWrapper () { storage.Allocate (1, 4); }

    ZParameterStorageBase storage;
    ZVuBuffer meters{ 2, 0.0f };
    bool hasEffect = true;
    std::vector<std::pair<std::int32_t, float>> written;
    Words_t loaded;     // names of images
    Words_t tooltipLog; // what the tooltip of the window showed
    ZPoint size;        // as last asked for
    int cursorsShown = 0;

    bool QueryEffect (std::int32_t, void*) override { return false; }
    bool GetInfo (std::int32_t kind, void* out) override
    {
        if (!hasEffect)
            return false;
        if (kind == kCodeStorage)
            *static_cast<ZParameterStorageBase**> (out) = &storage;
        else if (kind == kCodeVuBuffer)
            *static_cast<ZVuBuffer**> (out) = &meters;
        else if (kind == kCodeSampleRate)
            *static_cast<double*> (out) = 96000.0;
        else
            return false;
        return true;
    }
    void SetParameter (std::int32_t id, float value) override
    {
        written.emplace_back (id, value);
        storage.SetNormalized (id, value);
    }
    void EndEdit (std::int32_t) override {}
    void ShowCursor () override { ++cursorsShown; }
    void ResizeTo (std::int32_t width, std::int32_t height) override { size = { width, height }; }
    std::unique_ptr<ZBitmapImp> CreateBitmap (std::string_view name) override
    {
        loaded.emplace_back (name);
        return name == "missing" ? nullptr : std::make_unique<NamedBitmapImp> (name);
    }
    std::unique_ptr<ZMatrixMenuImp> CreateMenuImp () override { return std::make_unique<ZCanvasMenuImp> (measure); }
    std::unique_ptr<ZTextEditImp> CreateTextEditImp () override
    {
        return std::make_unique<ZCanvasTextEditImp> (measure, nullptr);
    }
    std::unique_ptr<ZTooltipImp> CreateTooltipImp () override { return std::make_unique<Tooltip> (tooltipLog); }

private:
    RecordingCanvasImp ruler;
    ZOnscreenCanvas measure{ ruler };

    struct Tooltip final : ZTooltipImp
    {
        explicit Tooltip (Words_t& words)
            : log (words)
        {
        }
        void Show (const ZRect& area, std::string_view text) override
        {
            log.push_back ((std::ostringstream () << text << " at " << area).str ());
        }
        void Hide () override { log.emplace_back ("hidden"); }
        Words_t& log; // not owned: the wrapper's
    };
};

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
class EditorFixture : public EditorSurroundings, public Base, public InputDriver
{
public:
    EditorFixture ()
        : Base (EditorSurroundings::wrapper)
    {
    }
    ~EditorFixture () override { this->Close (); }

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

    ProbeControl* AddProbe (ZView& view, const ZRect& frame, std::int32_t id)
    {
        return this->AddControl (view, std::make_unique<ProbeControl> (this, frame, id, log));
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
    bool Press (ZPoint point) { return InputDriver::Press (*this, point); }
    bool Drag (ZPoint point) { return InputDriver::Drag (*this, point); }
    void Release (ZPoint point) { InputDriver::Release (*this, point); }
    void Click (ZPoint point)
    {
        Press (point);
        Release (point);
    }
    bool Wheel (std::int32_t delta) { return InputDriver::Wheel (*this, delta); }
    bool Key (std::int32_t key, char character = 0) { return InputDriver::Key (*this, key, 0, character); }
    Calls Paint () ///< the calls of one pass on the window's surface
    {
        surface.Take ();
        ZOnscreenCanvas canvas (surface);
        this->Draw (canvas, {}, window.time);
        return surface.Take ();
    }
};

} // namespace tessaly
