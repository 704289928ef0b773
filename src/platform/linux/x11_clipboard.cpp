#include "x11_clipboard.h"

#include "utf8.h"
#include <algorithm>
#include <array>
#include <utility>
#include <xcb/xcb.h>

namespace tessaly
{

namespace
{

constexpr const char* kSelection = "CLIPBOARD";
constexpr const char* kText = "UTF8_STRING";
constexpr const char* kTargets = "TARGETS";
constexpr const char* kParts = "INCR"; // the type of a text that comes in parts
constexpr const char* kPlace = "TESSALY_CLIPBOARD";
constexpr std::size_t kLongestCharacter = 4;                          // bytes of UTF-8
constexpr std::uint32_t kPieceWords = X11Clipboard::kLongestText / 4; // 32-bit units that are read at once
constexpr std::chrono::seconds kPartsTime{ 1 };                       // without a part its owner is taken for dead

/// The clipboards of this process, by `next`: one of them can't answer another, since both are served by one thread.
X11Clipboard* first = nullptr; // not owned: the windows'; no object, as some hosts tear windows down from `exit`

/// The longest beginning that has whole characters and no more bytes than may be.
std::string_view Beginning (std::string_view text)
{
    auto length = std::min (text.size (), X11Clipboard::kLongestText);
    while (length < text.size () && length > 0 && ContinuesCharacter (text[length]))
        --length;
    return text.substr (0, length);
}

template <typename Event>
const Event& As (const xcb_generic_event_t& event)
{
    return reinterpret_cast<const Event&> (event);
}

std::uint8_t TypeOf (const xcb_generic_event_t& event)
{
    return event.response_type & 0x7F; // the top bit: sent by another program
}

} // namespace

X11Clipboard::X11Clipboard (X11Connection& of)
    : connection (of)
    , window (xcb_generate_id (of.Get ()))
{
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window (connection.Get (), XCB_COPY_FROM_PARENT, window, connection.Screen ().root, 0, 0, 1, 1, 0,
                       XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    next = std::exchange (first, this);
}

X11Clipboard::~X11Clipboard ()
{
    X11Clipboard** link = &first;
    while (*link != this)
        link = &(*link)->next;
    *link = next;
    xcb_destroy_window (connection.Get (), window);
    connection.Flush ();
}

xcb_window_t X11Clipboard::Owner ()
{
    const auto question = xcb_get_selection_owner (connection.Get (), connection.Atom (kSelection));
    const XcbReply<xcb_get_selection_owner_reply_t> reply (
        xcb_get_selection_owner_reply (connection.Get (), question, nullptr));
    return reply != nullptr ? reply->owner : 0;
}

void X11Clipboard::Fetch ()
{
    fetchLater = growing && Clock::now () - lastPart < kPartsTime;
    if (fetchLater)
        return;
    arrived.clear ();
    growing = false;
    fetched = Fetched::kAsked;
    xcb_convert_selection (connection.Get (), window, connection.Atom (kSelection), connection.Atom (kText),
                           connection.Atom (kPlace), XCB_CURRENT_TIME);
    connection.Flush ();
}

std::string X11Clipboard::GetText ()
{
    const auto owner = Owner ();
    if (owner == 0)
        return {};
    for (const auto* other = first; other != nullptr; other = other->next)
        if (other->offering && other->window == owner)
            return other->offered;
    if (fetched == Fetched::kNothing)
        Fetch ();
    while (fetched == Fetched::kAsked)
    {
        const auto event = connection.WaitFor ([this] (const auto& came) { return IsArrival (came); }, kPatienceMs);
        if (event == nullptr)
        {
            growing = false; // its owner has died between two parts
            break;
        }
        TakeArrival (*event);
    }
    auto text = fetched == Fetched::kAll ? arrived : std::string ();
    Fetch (); // for the next paste, by when the owner may be another
    return text;
}

void X11Clipboard::SetText (std::string_view text)
{
    offered = Beginning (text);
    offering = true;
    xcb_set_selection_owner (connection.Get (), window, connection.Atom (kSelection), XCB_CURRENT_TIME);
    connection.Flush ();
}

bool X11Clipboard::OnEvent (const xcb_generic_event_t& event)
{
    switch (TypeOf (event))
    {
    case XCB_SELECTION_REQUEST:
        Answer (event);
        return true;
    case XCB_SELECTION_CLEAR:
        offering = false;
        offered.clear ();
        return true;
    default:
        if (!IsArrival (event))
            return false;
        TakeArrival (event);
        return true;
    }
}

void X11Clipboard::Answer (const xcb_generic_event_t& event)
{
    const auto& request = As<xcb_selection_request_event_t> (event);
    const auto text = connection.Atom (kText);
    const auto targets = connection.Atom (kTargets);
    // Programs of an older kind name no property: theirs is the target.
    const auto place = request.property != 0 ? request.property : request.target;
    union // xcb sends 32 bytes of every event, more than this one has
    {
        xcb_selection_notify_event_t answer;
        std::array<char, 32> bytes;
    } sent{};
    auto& answer = sent.answer;
    answer.response_type = XCB_SELECTION_NOTIFY;
    answer.time = request.time;
    answer.requestor = request.requestor;
    answer.selection = request.selection;
    answer.target = request.target;
    answer.property = place;
    const bool current = offering && request.selection == connection.Atom (kSelection);
    if (current && request.target == text)
        xcb_change_property (connection.Get (), XCB_PROP_MODE_REPLACE, request.requestor, place, text, 8,
                             static_cast<std::uint32_t> (offered.size ()), offered.data ());
    else if (current && request.target == targets)
    {
        const std::array<xcb_atom_t, 2> known{ targets, text };
        xcb_change_property (connection.Get (), XCB_PROP_MODE_REPLACE, request.requestor, place, XCB_ATOM_ATOM, 32,
                             known.size (), known.data ());
    }
    else
        answer.property = 0; // refused
    xcb_send_event (connection.Get (), 0, request.requestor, 0, sent.bytes.data ());
    connection.Flush ();
}

bool X11Clipboard::IsArrival (const xcb_generic_event_t& event) const
{
    if (TypeOf (event) == XCB_SELECTION_NOTIFY)
        return As<xcb_selection_notify_event_t> (event).requestor == window;
    if (TypeOf (event) != XCB_PROPERTY_NOTIFY)
        return false;
    const auto& changed = As<xcb_property_notify_event_t> (event);
    return changed.window == window && growing && changed.state == XCB_PROPERTY_NEW_VALUE;
}

void X11Clipboard::TakeArrival (const xcb_generic_event_t& event)
{
    const bool isFirst = TypeOf (event) == XCB_SELECTION_NOTIFY;
    if (isFirst && As<xcb_selection_notify_event_t> (event).property == 0)
    {
        fetched = Fetched::kAll; // nobody has a text
        return;
    }
    xcb_atom_t type = 0;
    const auto part = TakeProperty (type); // its removal asks for the next part
    lastPart = Clock::now ();
    if (isFirst && type == connection.Atom (kParts))
    {
        growing = true;
        return;
    }
    if (fetched != Fetched::kAll)
        arrived = Beginning (arrived + part);
    growing = growing && !part.empty ();
    if (!growing || arrived.size () + kLongestCharacter > kLongestText)
        fetched = Fetched::kAll;
    if (!growing && fetchLater)
        Fetch ();
}

std::string X11Clipboard::TakeProperty (xcb_atom_t& type)
{
    const auto question =
        xcb_get_property (connection.Get (), 1, window, connection.Atom (kPlace), XCB_ATOM_ANY, 0, kPieceWords);
    const XcbReply<xcb_get_property_reply_t> reply (xcb_get_property_reply (connection.Get (), question, nullptr));
    if (reply == nullptr)
        return {};
    type = reply->type;
    if (reply->bytes_after > 0)
        xcb_delete_property (connection.Get (), window, connection.Atom (kPlace));
    if (reply->format != 8)
        return {};
    const auto length = static_cast<std::size_t> (xcb_get_property_value_length (reply.get ()));
    return { static_cast<const char*> (xcb_get_property_value (reply.get ())), length };
}

} // namespace tessaly
