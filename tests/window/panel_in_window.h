#pragma once

#include "context_menu.h"
#include "environment_variable.h"
#include "host_window.h"
#include "places.h"
#include "plugin_instance.h"
#include "temp_folder.h"
#include "user_input.h"
#include "virtual_screen.h"
#include "window_picture.h"

#include <algorithm>
#include <cmath>
#include <doctest/doctest.h>
#include <map>
#include <optional>

namespace tessaly::test
{

using namespace std::chrono_literals;
using host::UserInput;

namespace key
{
inline constexpr std::uint32_t kReturn = 0xFF0D, kEscape = 0xFF1B, kUp = 0xFF52, kDown = 0xFF54, kPageUp = 0xFF55,
                               kControl = 0xFFE3, kShift = 0xFFE1, kAlt = 0xFFE9;
}

/// The X server and what users' folders hold, once for all windows of a test program. The key-point sets are the ones
/// that come with the plug-in.
struct Desktop
{
    static Desktop& Get ()
    {
        static Desktop desktop;
        return desktop;
    }

    TempFolder home;
    EnvironmentVariable data{ "XDG_DATA_HOME", TESSALY_DATA_HOME };
    EnvironmentVariable shared{ "XDG_DATA_DIRS", home.Path ().c_str () };
    EnvironmentVariable settings{ "XDG_CONFIG_HOME", home.Path ().c_str () };
    VirtualScreen screen;
    host::XConnection x;
    UserInput user{ x };
};

/// The whole of one edit of a parameter, as the host heard it.
struct Gesture
{
    std::uint32_t id;
    int performs = 0;
    double last = 0.0;
    bool ended = false;
};

/// The edits in the order in which they began. Complains of any call out of order.
inline std::vector<Gesture> Gestures (const std::vector<host::HandlerCall>& calls)
{
    using Kind = host::HandlerCall::Kind;
    std::vector<Gesture> gestures;
    for (const auto& call : calls)
    {
        if (call.kind == Kind::beginEdit)
            gestures.push_back ({ .id = call.id });
        if (call.kind != Kind::performEdit && call.kind != Kind::endEdit)
            continue;
        const auto open = std::ranges::find_if (gestures, [&] (const Gesture& gesture)
                                                { return gesture.id == call.id && !gesture.ended; });
        REQUIRE_MESSAGE (open != gestures.end (), "a call without a begin, parameter ", call.id);
        open->ended = call.kind == Kind::endEdit;
        open->performs += call.kind == Kind::performEdit;
        open->last = call.kind == Kind::performEdit ? call.value : open->last;
    }
    return gestures;
}

inline bool AllEnded (const std::vector<host::HandlerCall>& calls)
{
    return std::ranges::all_of (Gestures (calls), &Gesture::ended);
}

/// An instance with its editor in a window, in front of a user. Actions return when the panel has seen them.
class PanelInWindow
{
public:
    explicit PanelInWindow (host::WindowOptions windowOptions = {}, bool hostHasMenus = true,
                            const host::Bundle& bundle = host::Bundle (TESSALY_BUNDLE))
        : options (windowOptions)
        , hasMenus (hostHasMenus)
        , scale (options.scale > 0.0 ? options.scale : 1.0)
        , loaded (bundle)
        , instance (loaded, context, Listening ())
        , window (loop, options)
    {
        Open ();
    }
    ~PanelInWindow ()
    {
        window.Close ();
        loaded.Factory ().setHostContext (nullptr); // the factory may outlive this
    }

    void Open ()
    {
        window.Open (instance.Controller ());
        Until ([this] { return IsPainted (); });
        Settle ();
        calls.clear (); // what connecting told
    }

    /// The time in which a panel that ticks every 30 ms has done what it was asked.
    void Settle () { loop.RunFor (80ms); }
    bool Until (const std::function<bool ()>& condition, std::chrono::milliseconds atMost = 5s)
    {
        return loop.RunUntil (condition, atMost);
    }

    void MoveTo (Place to)
    {
        Desktop::Get ().user.MoveTo (options.left + Scaled (to.x), options.top + Scaled (to.y));
        Settle ();
    }
    void Press (UserInput::Button button = UserInput::left)
    {
        Desktop::Get ().user.Press (button);
        Settle ();
    }
    void Release (UserInput::Button button = UserInput::left)
    {
        Desktop::Get ().user.Release (button);
        Settle ();
    }
    void Click (Place at, UserInput::Button button = UserInput::left)
    {
        MoveTo (at);
        Press (button);
        Release (button);
    }
    void DoubleClick (Place at)
    {
        Click (at);
        Press ();
        Release ();
    }
    void Drag (std::initializer_list<Place> along)
    {
        MoveTo (*along.begin ());
        Press ();
        for (const Place to : along)
            MoveTo (to);
        Release ();
    }
    void Wheel (Place at, int notches)
    {
        MoveTo (at);
        Desktop::Get ().user.Wheel (notches);
        Settle ();
    }
    void Key (std::uint32_t keysym)
    {
        Desktop::Get ().user.Key (keysym);
        Settle ();
    }
    void Type (std::string_view text)
    {
        Desktop::Get ().user.Type (text);
        Settle ();
    }
    void While (std::uint32_t keysym, const std::function<void ()>& act) ///< that key is held
    {
        Desktop::Get ().user.KeyDown (keysym);
        act ();
        Desktop::Get ().user.KeyUp (keysym);
        Settle ();
    }

    double Value (std::uint32_t id) const { return instance.Parameters ().Normalized (id); }
    double Plain (std::uint32_t id) const { return instance.Parameters ().ToPlain (id, Value (id)); }
    std::string Text (std::uint32_t id) const { return instance.Parameters ().Text (id, Value (id)); }

    host::WindowPicture Look (Area area = kPanel) const
    {
        return host::ReadPicture (Desktop::Get ().x, window.Window (), Scaled (area.left), Scaled (area.top),
                                  Scaled (area.width), Scaled (area.height));
    }
    bool LooksOtherThan (const host::WindowPicture& before, Area area = kPanel) { return Look (area) != before; }

    bool IsPainted () const
    {
        const auto shown = Look ().pixels;
        return std::ranges::any_of (shown, [&] (std::uint32_t pixel) { return pixel != shown.front (); });
    }

    /// The editor's window, or one in it, has the keyboard.
    bool HasFocus () const { return Desktop::Get ().x.Focus () != window.Window (); }

    /// The edits that the host has heard of since it was last asked, once all of them have ended.
    std::vector<Gesture> TakeGestures ()
    {
        CHECK (Until ([this] { return AllEnded (calls); }));
        const auto gestures = Gestures (calls);
        calls.clear ();
        return gestures;
    }
    /// Exactly one edit has been, of this parameter.
    void CheckOneEdit (std::uint32_t id)
    {
        const auto gestures = TakeGestures ();
        REQUIRE (gestures.size () == 1);
        CHECK (gestures[0].id == id);
        CHECK (gestures[0].performs >= 1);
    }

private:
    /// The first device pixel of a coordinate.
    int Scaled (int length) const { return static_cast<int> (std::ceil (length * scale)); }
    host::InstanceOptions Listening ()
    {
        host::InstanceOptions instanceOptions;
        instanceOptions.onHandlerCall = [this] (const host::HandlerCall& call)
        {
            calls.push_back (call);
            if (onCall)
                onCall (call);
        };
        if (!hasMenus)
            return instanceOptions;
        instanceOptions.onContextMenu = [this] (const Steinberg::Vst::ParamID* id)
        {
            return new host::ContextMenu (id,
                                          [this] (const host::ShownMenu& menu)
                                          {
                                              menus.push_back (menu);
                                              const auto found = std::ranges::find (menu.items, menuChoice);
                                              return static_cast<int> (found - menu.items.begin ());
                                          });
        };
        return instanceOptions;
    }

    Desktop& desktop = Desktop::Get (); // before everything that needs the server
    host::WindowOptions options;
    bool hasMenus;

public:
    double scale; ///< the density that the user aims by
    std::vector<host::HandlerCall> calls;
    std::function<void (const host::HandlerCall&)> onCall; ///< from within each
    std::vector<host::ShownMenu> menus;
    std::string menuChoice = "nothing";
    host::PollRunLoop loop;
    host::Bundle loaded;
    host::NamedHost context{ "window test", &loop };
    host::PluginInstance instance;
    host::HostWindow window;
};

} // namespace tessaly::test
