#include "bundle.h"
#include "geometry.h"
#include "named_host.h"
#include "own_module.h"
#include "plugin_instance.h"
#include "pluginterfaces/gui/iplugview.h"
#include "pluginterfaces/gui/iplugviewcontentscalesupport.h"
#include "windows_api.h"
#include <algorithm>
#include <array>
#include <doctest/doctest.h>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

using namespace tessaly;
using host::HandlerCall;

namespace
{

constexpr Steinberg::Vst::ParamID kMorph = 20;

void RunMessages (DWORD milliseconds)
{
    const DWORD end = GetTickCount () + milliseconds;
    for (MSG message{}; GetTickCount () < end;)
    {
        if (PeekMessageW (&message, nullptr, 0, 0, PM_REMOVE) == FALSE)
            MsgWaitForMultipleObjects (0, nullptr, FALSE, 5, QS_ALLINPUT);
        else
            DispatchMessageW (&message);
    }
}

/// Messages come until it holds; half a minute at most.
template <typename Condition>
bool RunUntil (Condition holds)
{
    for (int i = 0; i < 1500 && !holds (); ++i)
        RunMessages (20);
    return holds ();
}

/// A host's window with the panel in it.
class OpenPanel
{
public:
    explicit OpenPanel (host::PluginInstance& of, std::optional<int> scale = {})
        : parent (CreateWindowExW (0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 1200, 700, nullptr,
                                   nullptr, OwnModule (), nullptr))
        , view (Steinberg::owned (of.Controller ().createView (Steinberg::Vst::ViewType::kEditor)))
    {
        REQUIRE (view != nullptr);
        CHECK (view->isPlatformTypeSupported (Steinberg::kPlatformTypeHWND) == Steinberg::kResultTrue);
        CHECK (view->isPlatformTypeSupported ("X11EmbedWindowID") != Steinberg::kResultTrue);
        if (const Steinberg::FUnknownPtr<Steinberg::IPlugViewContentScaleSupport> scaled (view); scale)
            CHECK (scaled->setContentScaleFactor (static_cast<float> (*scale)) == Steinberg::kResultTrue);
        REQUIRE (view->attached (parent, Steinberg::kPlatformTypeHWND) == Steinberg::kResultTrue);
    }
    ~OpenPanel () { Close (); }
    void Close ()
    {
        if (const auto closed = std::exchange (view, nullptr))
            closed->removed ();
        DestroyWindow (parent);
    }
    HWND Panel () const { return GetWindow (parent, GW_CHILD); }
    HWND Parent () const { return parent; }
    void Send (UINT message, ZPoint at, WPARAM buttons)
    {
        SendMessageW (Panel (), message, buttons, MAKELPARAM (at.x, at.y));
    }

private:
    HWND parent;
    Steinberg::IPtr<Steinberg::IPlugView> view;
};

/// The plug-in with what it told its host.
struct Plugin
{
    std::vector<HandlerCall> calls;
    std::function<void ()> onCall = [] {};
    host::NamedHost context{ "window test" };
    host::Bundle bundle{ TESSALY_BUNDLE };
    host::PluginInstance instance{ bundle,
                                   context,
                                   { .onHandlerCall = [this] (const HandlerCall& call)
                                     {
                                         calls.push_back (call);
                                         onCall ();
                                     } } };
};

} // namespace

TEST_CASE ("Panel: a drag of Morph is one edit, at the scale that the host tells")
{
    for (const int scale : { 1, 2 })
    {
        CAPTURE (scale);
        Plugin plugin;
        OpenPanel panel (plugin.instance, scale);
        RECT size{};
        GetClientRect (panel.Panel (), &size);
        CHECK (size.right == 560 * scale);
        CHECK (size.bottom == 315 * scale);
        RunMessages (100);
        const auto at = [scale] (int x, int y) {
            return ZPoint{ static_cast<std::int32_t> (x * scale), static_cast<std::int32_t> (y * scale) };
        };
        panel.Send (WM_MOUSEMOVE, at (262, 262), 0);
        panel.Send (WM_LBUTTONDOWN, at (262, 262), MK_LBUTTON);
        CHECK (GetCapture () == panel.Panel ());
        for (const int y : { 252, 242, 232 })
            panel.Send (WM_MOUSEMOVE, at (255, y), MK_LBUTTON);
        panel.Send (WM_LBUTTONUP, at (255, 232), 0);
        CHECK (GetCapture () == nullptr);
        std::vector<HandlerCall::Kind> morph;
        for (const auto& call : plugin.calls)
            if (call.id == kMorph && (morph.empty () || morph.back () != call.kind))
                morph.push_back (call.kind);
        CHECK (morph ==
               std::vector{ HandlerCall::Kind::beginEdit, HandlerCall::Kind::performEdit, HandlerCall::Kind::endEdit });
        CHECK (plugin.instance.Controller ().getParamNormalized (kMorph) > 0.1);
    }
}

TEST_CASE ("Panel: a drag is over when another window takes the pointer")
{
    Plugin plugin;
    OpenPanel panel (plugin.instance);
    RunMessages (100);
    panel.Send (WM_LBUTTONDOWN, { 262, 262 }, MK_LBUTTON);
    panel.Send (WM_MOUSEMOVE, { 255, 242 }, MK_LBUTTON);
    SetCapture (panel.Parent ());
    const auto edits = [&] (HandlerCall::Kind kind)
    {
        return std::ranges::count_if (plugin.calls,
                                      [kind] (auto& call) { return call.id == kMorph && call.kind == kind; });
    };
    CHECK (edits (HandlerCall::Kind::beginEdit) == 1);
    CHECK (RunUntil ([&] { return edits (HandlerCall::Kind::endEdit) == 1; }));
    const auto released = plugin.instance.Controller ().getParamNormalized (kMorph);
    panel.Send (WM_MOUSEMOVE, { 300, 242 }, MK_LBUTTON);
    CHECK (plugin.instance.Controller ().getParamNormalized (kMorph) == released);
    ReleaseCapture ();
}

TEST_CASE ("Panel: a wheel's notch is an edit that ends by time, and other keys are the host's")
{
    Plugin plugin;
    OpenPanel panel (plugin.instance);
    RunMessages (100);
    POINT place{ 201, 190 }; // the drive's dial
    panel.Send (WM_MOUSEMOVE, { place.x, place.y }, 0);
    ClientToScreen (panel.Panel (), &place);
    SetCursorPos (place.x, place.y);
    RunMessages (100);
    for (const int turned : { WHEEL_DELTA / 4, WHEEL_DELTA / 4, WHEEL_DELTA / 2 }) // a fine wheel
        SendMessageW (panel.Panel (), WM_MOUSEWHEEL, MAKEWPARAM (0, turned), MAKELPARAM (place.x, place.y));
    RunMessages (100);
    CHECK (std::ranges::count (plugin.calls, HandlerCall::Kind::beginEdit, &HandlerCall::kind) == 1);
    RunMessages (3000);
    CHECK (std::ranges::count (plugin.calls, HandlerCall::Kind::endEdit, &HandlerCall::kind) == 1);
    plugin.calls.clear ();
    SendMessageW (panel.Panel (), WM_KEYDOWN, VK_F5, 0);
    CHECK (std::ranges::count (plugin.calls, HandlerCall::Kind::beginEdit, &HandlerCall::kind) == 0);
}

TEST_CASE ("Panel: the host may close the window on hearing of a typed value")
{
    Plugin plugin;
    OpenPanel panel (plugin.instance);
    RunMessages (100);
    panel.Send (WM_MOUSEMOVE, { 420, 195 }, 0);
    for (int click = 0; click < 2; ++click) // on a gain's text
    {
        panel.Send (WM_LBUTTONDOWN, { 420, 195 }, MK_LBUTTON);
        panel.Send (WM_LBUTTONUP, { 420, 195 }, 0);
    }
    HWND field = GetWindow (panel.Panel (), GW_CHILD);
    REQUIRE (field != nullptr);
    plugin.calls.clear ();
    plugin.onCall = [&] { panel.Close (); };
    SetWindowTextW (field, L"4.5");
    SendMessageW (field, WM_KEYDOWN, VK_RETURN, 0);
    CHECK (plugin.calls.size () == 2); // the edit's begin, and its end with the window's
    CHECK (IsWindow (field) == FALSE);
}

TEST_CASE ("Panel: fifty windows leave nothing behind")
{
    const auto objects = [] // Wine's GetGuiResources counts nothing, but it knows a handle by its lower half
    {
        int count = 0;
        for (std::uintptr_t handle = 0; handle <= 0xFFFF; ++handle)
            count += GetObjectType (reinterpret_cast<HGDIOBJ> (handle)) != 0 ? 1 : 0;
        return count;
    };
    Plugin plugin;
    int before = 0;
    for (int i = 0; i < 50; ++i)
    {
        OpenPanel panel (plugin.instance);
        RunMessages (40);
        if (i == 1)
            CHECK ((before = objects ()) > 0);
        if (i == 49)
            CHECK (objects () <= before + 4);
    }
}

TEST_CASE ("Panel: two windows close in either order, one with its parent gone, and the module is let go of")
{
    for (const bool firstGoesFirst : { true, false })
    {
        Plugin plugin;
        Plugin other;
        std::array<std::optional<OpenPanel>, 2> panels;
        panels[0].emplace (plugin.instance);
        panels[1].emplace (other.instance);
        RunMessages (60);
        panels[0]->Send (WM_LBUTTONDOWN, { 262, 262 }, MK_LBUTTON);
        DestroyWindow (panels[0]->Parent ()); // a host that does not say so
        RunMessages (60);
        panels[firstGoesFirst ? 0 : 1].reset ();
        RunMessages (60);
        panels[firstGoesFirst ? 1 : 0].reset ();
    }
    CHECK (GetModuleHandleW (L"Tessaly Bench [m].vst3") == nullptr);
}
