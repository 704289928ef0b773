#include "x11_window.h"

#include <array>
#include <cstring>
#include <utility>
#include <xcb/xcb.h>

namespace tessaly
{

namespace
{

constexpr std::uint32_t kKeyEvents = XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE;
constexpr std::uint32_t kPointerEvents = XCB_EVENT_MASK_ENTER_WINDOW | XCB_EVENT_MASK_LEAVE_WINDOW;
constexpr std::uint32_t kXEmbedVersion = 1;
constexpr std::uint32_t kXEmbedMapped = 1;

template <typename Event>
const Event& As (const xcb_generic_event_t& event)
{
    return reinterpret_cast<const Event&> (event);
}

/// Not of a grab, which passes, and not to or from a window within ours.
bool IsRealFocusChange (const xcb_focus_out_event_t& event)
{
    const bool grab = event.mode == XCB_NOTIFY_MODE_GRAB || event.mode == XCB_NOTIFY_MODE_UNGRAB;
    return !grab && event.detail != XCB_NOTIFY_DETAIL_INFERIOR && event.detail != XCB_NOTIFY_DETAIL_POINTER;
}

} // namespace

X11Window::X11Window (std::unique_ptr<X11Connection> opened, xcb_window_t id, double pixels, X11WindowListener& hearing)
    : connection (std::move (opened))
    , window (id)
    , listener (hearing)
    , input (*connection, id, pixels)
    , keyboard (*connection)
    , clipboard (*connection)
{
    const std::uint32_t events =
        kKeyEvents | kPointerEvents | XCB_EVENT_MASK_FOCUS_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes (connection->Get (), window, XCB_CW_EVENT_MASK, &events);
    connection->Flush ();
}

X11Window::~X11Window ()
{
    GiveKeyboardBack ();
    Dispatch (); // the host may have destroyed it, and its id may be another's by now
    if (window != 0)
        xcb_destroy_window (connection->Get (), window);
    connection->Sync ();
}

void X11Window::MarkMapped ()
{
    const auto info = connection->Atom ("_XEMBED_INFO");
    const std::array<std::uint32_t, 2> data{ kXEmbedVersion, kXEmbedMapped };
    xcb_change_property (connection->Get (), XCB_PROP_MODE_REPLACE, window, info, info, 32, data.size (), data.data ());
    xcb_map_window (connection->Get (), window);
    connection->Flush ();
}

void X11Window::Dispatch ()
{
    while (const auto event = connection->NextEvent ())
        OnEvent (*event);
}

void X11Window::OnEvent (const xcb_generic_event_t& event)
{
    if (clipboard.OnEvent (event))
        return;
    switch (event.response_type & 0x7F)
    {
    case XCB_KEY_PRESS:
    case XCB_KEY_RELEASE:
    {
        const auto& key = As<xcb_key_press_event_t> (event);
        const bool down = (event.response_type & 0x7F) == XCB_KEY_PRESS;
        if (!listener.OnKey (keyboard.KeyOf (key.detail, key.state), down))
            PassOn (event);
        break;
    }
    case XCB_FOCUS_OUT:
        if (IsRealFocusChange (As<xcb_focus_out_event_t> (event)) && !std::exchange (gaveKeyboardBack, false))
        {
            hasKeyboard = false;
            listener.OnKeyboardLost ();
        }
        break;
    case XCB_FOCUS_IN:
        gaveKeyboardBack = false; // a loss that it was to excuse did not come: the server refused
        break;
    case XCB_ENTER_NOTIFY:
    case XCB_LEAVE_NOTIFY:
        listener.OnPointer ((event.response_type & 0x7F) == XCB_ENTER_NOTIFY);
        break;
    case XCB_MAPPING_NOTIFY:
        keyboard.Reload ();
        break;
    case XCB_DESTROY_NOTIFY:
        window = 0;
        hasKeyboard = false;
        break;
    default:
        break;
    }
}

/// As if the window did not listen for keys: the event goes up to the next window that does.
void X11Window::PassOn (const xcb_generic_event_t& keyEvent)
{
    const auto parent = ParentOf (window);
    if (parent == 0)
        return;
    auto passed = As<xcb_key_press_event_t> (keyEvent);
    passed.child = window;
    passed.event = parent;
    const std::uint32_t mask =
        (passed.response_type & 0x7F) == XCB_KEY_PRESS ? XCB_EVENT_MASK_KEY_PRESS : XCB_EVENT_MASK_KEY_RELEASE;
    xcb_send_event (connection->Get (), 1, parent, mask, reinterpret_cast<const char*> (&passed));
    connection->Flush ();
}

xcb_window_t X11Window::ParentOf (xcb_window_t of)
{
    const auto asked = xcb_query_tree (connection->Get (), of);
    const XcbReply<xcb_query_tree_reply_t> reply (xcb_query_tree_reply (connection->Get (), asked, nullptr));
    return reply != nullptr ? reply->parent : 0;
}

/// @return 0 for a window that has gone
xcb_window_t X11Window::TopLevelOf (xcb_window_t of)
{
    const auto root = connection->Screen ().root;
    auto parent = ParentOf (of);
    while (parent != 0 && parent != root)
        parent = ParentOf (std::exchange (of, parent));
    return parent == root ? of : 0;
}

bool X11Window::HasLostFocus ()
{
    const auto focus = Focused ();
    if (focusSeen == focus)
        return false;
    const bool isFirst = !focusSeen;
    focusSeen = focus;
    const bool isNowhere = focus == XCB_INPUT_FOCUS_NONE || focus == XCB_INPUT_FOCUS_POINTER_ROOT;
    const auto topLevel = isNowhere ? 0 : TopLevelOf (focus);
    const bool isHere = topLevel == 0 || topLevel == TopLevelOf (window);
    return std::exchange (focusWasHere, isHere) && !isFirst && !isHere;
}

xcb_window_t X11Window::Focused ()
{
    const auto asked = xcb_get_input_focus (connection->Get ());
    const XcbReply<xcb_get_input_focus_reply_t> reply (xcb_get_input_focus_reply (connection->Get (), asked, nullptr));
    return reply != nullptr ? reply->focus : 0;
}

void X11Window::TakeKeyboard ()
{
    if (hasKeyboard || window == 0)
        return;
    clipboard.Fetch ();
    focusBefore = Focused ();
    hasKeyboard = true;
    xcb_set_input_focus (connection->Get (), XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
    connection->Flush ();
}

void X11Window::GiveKeyboardBack ()
{
    if (!hasKeyboard)
        return;
    hasKeyboard = false;
    if (window == 0 || Focused () != window)
        return;
    gaveKeyboardBack = true;
    xcb_set_input_focus (connection->Get (), XCB_INPUT_FOCUS_PARENT, focusBefore, XCB_CURRENT_TIME);
    connection->Flush ();
}

} // namespace tessaly
