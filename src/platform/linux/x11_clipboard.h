#pragma once

#include "clipboard.h"
#include "x11_connection.h"
#include <chrono>
#include <cstdint>
#include <string>

namespace tessaly
{

/// The CLIPBOARD selection, as UTF-8, in both directions. What was set is offered to other programs for as long as this
/// lives and nobody else has set something. Host's user-interface thread.
///
/// A text of another program has to be asked for, and it may be the host's own, who can't answer while the panel waits:
/// Fetch asks early, when a text field opens, and GetText waits kPatienceMs at most for what has not come by then.
///
/// A field holds less than 300 bytes, so of a longer text only the beginning is kept. Where it comes in parts the rest is
/// taken and dropped: its owner waits for that. What is offered is short enough to go in one piece on any server.
class X11Clipboard final : public ZClipboard
{
public:
    static constexpr std::uint32_t kPatienceMs = 200;
    static constexpr std::size_t kLongestText = 4096; // bytes, in either direction

    explicit X11Clipboard (X11Connection& of); ///< not owned: the window's, outlives this
    ~X11Clipboard () override;
    X11Clipboard (const X11Clipboard&) = delete;
    X11Clipboard& operator= (const X11Clipboard&) = delete;

    void Fetch ();
    std::string GetText () override;
    void SetText (std::string_view text) override;

    bool OnEvent (const xcb_generic_event_t& event); ///< @return whether it was one about selections

private:
    using Clock = std::chrono::steady_clock;

    void Answer (const xcb_generic_event_t& event);
    bool IsArrival (const xcb_generic_event_t& event) const;
    void TakeArrival (const xcb_generic_event_t& event);
    std::string TakeProperty (xcb_atom_t& type);
    xcb_window_t Owner ();

    X11Connection& connection;
    X11Clipboard* next = nullptr; // not owned: another window's
    xcb_window_t window;          // ours, never shown: offers and receives
    bool offering = false;        // `offered` is the clipboard
    std::string offered;
    enum class Fetched
    {
        kNothing,
        kAsked, // an answer is on its way
        kAll
    };
    Fetched fetched = Fetched::kNothing;
    bool growing = false;       // the answer comes in parts, of which the last is yet to come
    bool fetchLater = false;    // when it has come
    Clock::time_point lastPart; // when one came
    std::string arrived;
};

} // namespace tessaly
