#pragma once

#include <atomic>
#include <cstdint>
#include <future>
#include <optional>
#include <string>
#include <thread>

namespace tessaly::host
{

class XConnection;

/// Another program that has text on the clipboard (CLIPBOARD, as UTF-8), from construction to destruction or until
/// somebody else copies. It works on a connection and a thread of its own, so that a plug-in may wait for it. A text of
/// more than 64 KiB goes in parts (INCR), to one reader at a time.
class ClipboardOwner
{
public:
    /// Returns when the text can be pasted. @throws HostError without an X server
    explicit ClipboardOwner (std::string textToOffer);

    bool IsOwner () const { return owns; }
    int TextsSent () const { return textsSent; } ///< of those in parts, which have gone to their end

private:
    void SendPart (const XConnection& x);
    void Serve (const std::stop_token& stop, std::promise<void>& ready);

    std::string text;
    std::uint32_t reader = 0; // a window that gets the text in parts; 0: none
    std::uint32_t place = 0;  // the property
    std::size_t sent = 0;     // bytes
    std::atomic<bool> owns = false;
    std::atomic<int> textsSent = 0;
    std::jthread server; // last: ends before what it uses
};

/// Another program pastes: asks for the clipboard's text on a connection and a thread of its own, while the caller
/// keeps the plug-in's loop running.
/// @return nothing when nobody owns the clipboard, refuses, or takes longer than three seconds
std::future<std::optional<std::string>> PasteElsewhere ();

} // namespace tessaly::host
