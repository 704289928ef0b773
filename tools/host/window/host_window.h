#pragma once

#include "poll_run_loop.h"
#include "x_connection.h"

#include "pluginterfaces/gui/iplugview.h"
#include "pluginterfaces/vst/ivsteditcontroller.h"

namespace tessaly::host
{

struct WindowOptions
{
    int left = 0; ///< of the window on the screen, pixels
    int top = 0;
    double scale = 0.0;          ///< told before the view is attached; 0 tells none
    bool offersRunLoop = true;   ///< by the plug frame; a plug-in may also find one in the host's context
    bool closesOnResize = false; ///< as a host that makes its window anew for each size
};

/// A top-level window with a plug-in's editor in it: what a host does with IPlugView, in the order that the SDK tells.
/// As hosts do that follow the XEMBED protocol, it hides an editor's window that does not ask to be shown. Without a
/// window manager the window gets the input focus when it opens. Not reference counted: it outlives the view, which it
/// closes when it ends. Main thread.
class HostWindow final : public Steinberg::IPlugFrame
{
public:
    /// @param hostLoop  not owned: the caller, outlives the window and the view
    explicit HostWindow (PollRunLoop& hostLoop, WindowOptions windowOptions = {});
    ~HostWindow ();

    HostWindow (const HostWindow&) = delete;
    HostWindow& operator= (const HostWindow&) = delete;

    /// Asks the controller for a view and puts it in a new window.
    /// @throws HostError when there is no view, it refuses X11 windows, or does not attach
    void Open (Steinberg::Vst::IEditController& controller);

    /// Takes the view out (removed, setFrame with null, release) and destroys the window. Does nothing when closed.
    void Close ();

    /// As a faulty host does: the window goes with the editor's window in it; Close then does the rest.
    void DestroyWindowUnderView ();

    bool IsOpen () const { return view; }
    Steinberg::IPlugView& View () const { return *view; }

    /// Tells the view the density of the screen. @return false when it does not ask for it, or refuses
    bool TellScale (double factor);

    xcb_window_t Window () const { return window; }

    /// The editor's own window in ours, or 0.
    xcb_window_t EditorWindow () const;

    int Width () const { return width; }
    int Height () const { return height; }

    /// Keysyms' codes that came to our window, not kept by the editor, in order. Presses only.
    std::vector<std::uint8_t> TakeKeysForHost ();

    Steinberg::tresult PLUGIN_API resizeView (Steinberg::IPlugView* which, Steinberg::ViewRect* newSize) override;
    Steinberg::tresult PLUGIN_API queryInterface (const Steinberg::TUID wanted, void** out) override;
    Steinberg::uint32 PLUGIN_API addRef () override { return 1; }
    Steinberg::uint32 PLUGIN_API release () override { return 1; }

private:
    void MakeWindow ();
    void TakeSizeOfView ();
    void Embed () const;
    void Abandon ();

    XConnection x; // of its own: its events are this window's
    PollRunLoop& loop;
    WindowOptions options;
    Steinberg::IPtr<Steinberg::IPlugView> view;
    xcb_window_t window = 0;
    int width = 0;
    int height = 0;
};

} // namespace tessaly::host
