#pragma once

#include "bitmap.h"
#include "control.h"
#include "editor_wrapper.h"
#include "effect_listener.h"
#include "listener.h"
#include "meter_fade.h"
#include "object_collection.h"
#include "pane_owner.h"
#include "parked_events.h"
#include "tooltip.h"
#include "view.h"
#include <atomic>
#include <concepts>
#include <cstdint>
#include <memory>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace tessaly
{

class ZCanvas;
class ZEvent;

/// The generic editor: owns the tree of panes from Open to Close, sends mouse, keys and focus into it, looks at the
/// effect's parameters and meters on every idle tick and hands what changed to the controls, and writes what a control
/// wants to the effect. It belongs to no window system: it is told to draw and gets raw calls. Points and rectangles
/// are in pixels of the surface at scale 1.
///
/// A control broadcasts the value that its user wants; SetParameter writes it to the effect and sets it on every
/// control of that id. What others change is found by the next idle tick, or comes as an event of the effect.
///
/// Threads: the host's user-interface thread. Only the effect's events may come on any thread: those of another one are
/// parked, and the next Idle carries them out.
///
/// A derived editor makes its controls in CreateControls and lets go of its pointers to them in DestroyControls. Its
/// destructor calls Close; the one here can only end the panes.
class ZGuiEditor : public ZPaneOwner, public ZListener, public ZEffectListener
{
public:
    explicit ZGuiEditor (ZEditorWrapper& surroundings); ///< borrowed: lives longer than the editor
    ~ZGuiEditor () override;

    // Place and size of the panel; the size is known before it opens only if somebody set it
    void MoveTo (ZPoint origin);
    ZPoint GetOrigin () const; ///< (0, 0) while closed
    virtual void SetSize (std::int32_t newWidth, std::int32_t newHeight);
    void GetSize (std::int32_t& outWidth, std::int32_t& outHeight) const;

    virtual void Open (ZPoint origin); ///< an open editor stays as it is
    virtual void Close ();             ///< ends every pane and image; a drag or an open field just ends with them
    bool IsOpen () const { return open && rootView != nullptr; }

    // The effect's side
    bool OnEffectEvent (std::int32_t code, void* data) override;
    bool OnEffectEvent2 (std::int32_t code, void* data) override; ///< kWhichEditor tells the editor's address
    bool QueryEffect (std::int32_t kind, void* out) { return wrapper.QueryEffect (kind, out); }
    bool GetInfo (std::int32_t kind, void* out) override { return wrapper.GetInfo (kind, out); }
    static constexpr std::int32_t kWhichEditor = 5000; // data: ZGuiEditor**

    // The window's side. Every call of the mouse and the keys, and all timed behaviour, stands on these
    virtual void Idle (ZEvent& event, const ZMouseInput& mouse); ///< the editor's clock: a tick every 30 ms or so
    /// Draws what changed on a canvas that keeps its pixels. @param update  to be drawn anyway; zero: nothing
    virtual void Draw (ZCanvas& canvas, const ZRect& update, std::uint32_t time);
    void Redraw (const ZRect& rect); ///< the next pass draws the panel anew if the rectangle touches it
    void Invalidate (bool all);      ///< true: the next pass draws everything; false: nothing more
    bool NeedsRedraw () const;
    ZPane* PaneAt (ZEvent& event, const ZMouseInput& mouse); ///< the topmost that takes the mouse there, or null

    virtual bool MouseDown (ZEvent& event, const ZMouseInput& mouse);  ///< @return whether a drag is on now
    virtual bool MouseMove (ZEvent& event, const ZMouseInput& mouse);  ///< likewise
    virtual bool MouseUp (ZEvent& event, const ZMouseInput& mouse);    ///< @return false
    virtual bool MouseWheel (ZEvent& event, const ZWheelInput& wheel); ///< @return whether anybody took it, as the keys
    virtual bool KeyDown (ZEvent& event, const ZKeyInput& key);
    virtual bool KeyRepeat (ZEvent& event, const ZKeyInput& key);
    virtual bool KeyUp (ZEvent& event, const ZKeyInput& key);
    virtual void FocusGained ();
    virtual void FocusLost ();
    void SetInputLocked (bool on) { inputLocked = on; } ///< of the mouse; each of its calls locks the others out
    bool IsInputLocked () const { return inputLocked; }
    void SetDialMode (std::int32_t mode); ///< drag mode of every dial and slider

    // Values
    /// Sets a value on every control of this id. NaN is dropped.
    virtual void ParameterChanged (std::int32_t id, float value);
    /// Writes what a control wants, limited to 0 to 1, if the id is a parameter's; all controls get it as it is.
    virtual void SetParameter (std::int32_t id, float value);
    void EndParameterEdit (std::int32_t id) { wrapper.EndEdit (id); }
    void OnValue (std::int32_t id, float value) override { SetParameter (id, value); }
    std::int32_t GetChannelCount () const { return channelCount; } ///< as last told by the effect; 0 at first
    void SetMeterFade (bool on);                                   ///< false: meters sink to zero

    // Panes of the owner
    void SetModalPane (ZPane& pane) override; ///< another that is modal is closed first
    void ReleaseModalPane (const ZPane& pane) override;
    ZPane* GetModalPane () const { return modalPane; }
    ZPane* GetCapturePane () const override { return capturePane; }
    ZPane* GetHoverPane () const override { return hoverPane; }
    ZPane* GetFocusPane () const { return focusPane; } ///< that gets the keys
    void SetFocusPane (ZPane* pane) { focusPane = pane; }
    ZView* GetRootView () const override { return rootView; }
    void ForgetPane (const ZPane& pane) override;
    std::unique_ptr<ZTextEditImp> CreateTextEditImp () override { return wrapper.CreateTextEditImp (); }
    std::unique_ptr<ZMatrixMenuImp> CreateMenuImp () override { return wrapper.CreateMenuImp (); }
    void ShowCursor () override { wrapper.ShowCursor (); }
    void CreateTooltip () override;
    void ShowTooltip (ZPane& pane) override;
    void HideTooltip () override;

    // To all controls, by id or for kEveryPane; for a value the id alone counts
    void SetValueById (std::int32_t id, float value);
    void ShowById (std::int32_t id);
    void HideById (std::int32_t id);
    void SetDirtyById (std::int32_t id, bool on);
    void SetActiveById (std::int32_t id, bool on);
    void SetMouseEnabledById (std::int32_t id, bool on);

    // Building. The editor owns what it is given, until Remove or Close, and hands back a borrowed pointer; null for
    // null
    template <std::derived_from<ZPane> Pane>
    Pane* AddView (std::unique_ptr<Pane> pane) ///< owned, in no view yet
    {
        auto* added = pane.get ();
        views.Add (std::move (pane)); // which refuses null, as the other collections do
        return added;
    }
    template <std::derived_from<ZPane> Pane>
    Pane* AddPane (ZView& view, std::unique_ptr<Pane> pane) ///< a pane without a value
    {
        auto* added = AddView (std::move (pane));
        view.AddPane (added);
        return added;
    }
    template <std::derived_from<ZControl> Control>
    Control* AddControl (ZView& view, std::unique_ptr<Control> control) ///< its id is a parameter's id or above them
    {
        auto* added = AddPane (view, std::move (control));
        if (added != nullptr)
            Attach (*added);
        return added;
    }
    template <std::derived_from<ZControl> Meter>
    Meter* AddMeter (ZView& view, std::unique_ptr<Meter> meter) ///< its id is the index of a meter
    {
        auto* added = AddPane (view, std::move (meter));
        meters.Add (added);
        return added;
    }
    bool Remove (ZPane* pane); ///< ends it and what is in it. @return false for what the editor does not own

    /// For a control that another pane owns: gives it the storage, and its wishes reach the editor.
    bool Attach (ZControl& control);

    /// From the cache, or loaded. One that is missing has no content and draws nothing.
    ZBitmap* GetBitmap (std::string_view name);

    const ZTemplatePaneCollection<ZControl>& GetControls () const { return controls; }
    const ZTemplatePaneCollection<ZControl>& GetMeters () const { return meters; }

protected:
    ZParameterStorageBase* GetStorage () const { return storage; } ///< null while closed or without an effect

    virtual void CreateControls () = 0;  ///< the storage is known, the panel is not open yet
    virtual void DestroyControls () = 0; ///< the panes still stand

    // What no pane took
    virtual void OnIdle (ZEvent& /*event*/, const ZMouseInput& /*mouse*/) {}
    virtual bool OnMouseWheel (ZEvent& /*event*/, const ZWheelInput& /*wheel*/) { return false; }
    virtual bool OnKeyDown (ZEvent& /*event*/, const ZKeyInput& /*key*/) { return false; }
    virtual bool OnKeyRepeat (ZEvent& /*event*/, const ZKeyInput& /*key*/) { return false; }
    virtual bool OnKeyUp (ZEvent& /*event*/, const ZKeyInput& /*key*/) { return false; }
    virtual void OnFocusGained () = 0;
    virtual void OnFocusLost () = 0;

    virtual void PollParameters ();
    virtual void PollMeters ();
    /// The storage has other values than the controls: calls ParameterChanged for each that differs, in the order of
    /// ids. An override may call it for some before; those do not differ any more.
    virtual void ShowChangedParameters ();
    const std::vector<float>& GetCurrentValues () const { return currentValues; } ///< of the storage, in this tick
    const std::vector<float>& GetLastValues () const { return lastValues; }       ///< as the controls were given them

    /// Whether an event of the effect's own, from kCodeFirstOfEffect on, is taken: OnOwnEvent then gets it. Called on
    /// the thread that caused the event, at any time. ParkedEvents::kOwnCodes codes can be taken.
    virtual bool TakesOwnEvent (std::int32_t /*code*/) const { return false; }

    // One for each event of the effect, on the user-interface thread. They may come while the editor is closed. Where
    // the data is an object of the effect, null says that it goes: nothing of it may be kept
    virtual void OnCore (ZPluginCore* /*core*/) {}
    virtual void OnStorage (ZParameterStorageBase* newStorage);
    virtual void OnVuBuffer (ZVuBuffer* newMeters);
    virtual void OnMidiEvent (ZMidiEvent* /*buffer*/) {}
    virtual void OnSampleRate (double /*rateHz*/) {}
    virtual void OnBlockSize (std::int32_t /*samples*/) {}
    virtual void OnHookA () {}
    virtual void OnHookB () {}
    virtual void OnBypass (bool /*on*/) {}
    virtual void OnMeterArgument (std::int32_t /*samples*/) {}
    virtual void OnParameterPosted (std::int32_t id); ///< the effect wrote it itself; kEveryPane: any of them
    virtual void OnChannelCount (std::int32_t count) { channelCount = count; }
    virtual void OnOwnEvent (std::int32_t /*code*/) {} ///< without its data, which may be gone by now

private:
    void ReleasePanes ();
    void RemoveChildren (const ZView& view);
    void ReadEffect ();
    void ShowAllParameters ();
    void CarryOutEvents ();
    void EndModal ();
    ZPane* PressTarget (ZEvent& event, const ZMouseInput& mouse);
    void FollowPointer (ZEvent& event, const ZMouseInput& mouse);
    void DrawModal (ZCanvas& canvas, std::uint32_t time);

    ZEditorWrapper& wrapper;                  // not owned: the window's, lives longer
    ZParameterStorageBase* storage = nullptr; // not owned: the effect's; null while closed
    ZVuBuffer* meterSource = nullptr;         // not owned: likewise
    std::unique_ptr<ZTooltip> tooltip;        // made when a pane first has one

    // Panes borrow images, so these end last; controls and meters are among the views
    ZTemplateBitmapCollection<ZBitmap, std::unique_ptr<ZBitmap>> bitmaps;
    ZTemplatePaneCollection<ZPane, std::unique_ptr<ZPane>> views;
    ZTemplatePaneCollection<ZControl> controls; // not owned
    ZTemplatePaneCollection<ZControl> meters;   // not owned

    // Not owned, each null or some pane of the tree; ForgetPane clears them
    ZView* rootView = nullptr;
    ZPane* modalPane = nullptr;
    ZPane* capturePane = nullptr;
    ZPane* hoverPane = nullptr;
    ZPane* focusPane = nullptr;
    ZPane* pressedPane = nullptr; // while it hears of a press

    std::vector<float> currentValues; // normalized, as the storage has them in this tick
    std::vector<float> lastValues;    // as the controls were given them
    bool open = false;
    std::int32_t width = 0;
    std::int32_t height = 0;
    bool inputLocked = false;
    bool valuesChanged = false; // the next tick ends what is modal
    MeterFade fade;
    std::int32_t channelCount = 0;

    ParkedEvents parked;
    std::atomic<std::thread::id> uiThread;
};

} // namespace tessaly
