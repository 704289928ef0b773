#include "clipboard_peer.h"
#include "virtual_screen.h"
#include "x11_clipboard.h"

#include <chrono>
#include <doctest/doctest.h>

namespace tessaly::test
{

namespace
{

using namespace std::chrono_literals;

const std::string kLong (1 << 20, 'x');

/// A window's clipboard with a loop that serves it.
struct ServedClipboard
{
    bool Until (const std::function<bool ()>& condition)
    {
        const auto end = std::chrono::steady_clock::now () + 5s;
        while (!condition () && std::chrono::steady_clock::now () < end)
            connection->WaitFor ([this] (const auto& event) { return clipboard.OnEvent (event); }, 5);
        return condition ();
    }
    std::string ReadByAnother ()
    {
        auto pasted = host::PasteElsewhere ();
        Until ([&] { return pasted.wait_for (0s) == std::future_status::ready; });
        return pasted.get ().value_or ("nothing");
    }

    VirtualScreen screen;
    std::unique_ptr<X11Connection> connection = X11Connection::Open ();
    X11Clipboard clipboard{ *connection };
};

} // namespace

TEST_CASE ("X11Clipboard: of a megabyte from another program it keeps the beginning, and takes the rest")
{
    ServedClipboard mine;
    CHECK (mine.clipboard.GetText ().empty ());
    for (const int time : { 1, 2 }) // by another owner each time, while the former text may still be on its way
    {
        const host::ClipboardOwner other (std::to_string (time) + kLong);
        mine.clipboard.Fetch ();
        const auto text = mine.clipboard.GetText ();
        CHECK (text.size () == X11Clipboard::kLongestText);
        CHECK (text.front () == '0' + time);
        CHECK (mine.Until ([&] { return other.TextsSent () == 2; })); // the second is for the next paste
    }
    const host::ClipboardOwner other ("short");
    mine.clipboard.Fetch ();
    CHECK (mine.clipboard.GetText () == "short");
}

TEST_CASE ("X11Clipboard: it offers the beginning of a long text, in whole characters")
{
    ServedClipboard mine;
    mine.clipboard.SetText ("\xC2\xB5s");
    CHECK (mine.ReadByAnother () == "\xC2\xB5s");
    std::string accents = "x";
    while (accents.size () < kLong.size ())
        accents += "\xC3\xA9";
    mine.clipboard.SetText (accents);
    const auto read = mine.ReadByAnother ();
    CHECK (read == accents.substr (0, read.size ()));
    CHECK (read.size () == X11Clipboard::kLongestText - 1);
}

TEST_CASE ("X11Clipboard: an owner that dies between the parts is not waited for")
{
    ServedClipboard mine;
    {
        const host::ClipboardOwner dying (kLong);
        mine.clipboard.Fetch ();
    }
    const host::ClipboardOwner next ("next");
    CHECK (mine.clipboard.GetText ().empty ()); // what was asked for early is lost
    CHECK (mine.clipboard.GetText () == "next");
}

} // namespace tessaly::test
