#pragma once

#include <atomic>
#include <future>
#include <optional>
#include <string>
#include <thread>

namespace tessaly::host
{

/// Another program that has text on the clipboard (CLIPBOARD, as UTF-8), from construction to destruction or until
/// somebody else copies. It works on a connection and a thread of its own, so that a plug-in may wait for it.
class ClipboardOwner
{
public:
    /// Returns when the text can be pasted. @throws HostError without an X server
    explicit ClipboardOwner (std::string textToOffer);

    bool IsOwner () const { return owns; }

private:
    void Serve (const std::stop_token& stop, std::promise<void>& ready);

    std::string text;
    std::atomic<bool> owns = false;
    std::jthread server; // last: ends before what it uses
};

/// Another program pastes: asks for the clipboard's text on a connection and a thread of its own, while the caller
/// keeps the plug-in's loop running.
/// @return nothing when nobody owns the clipboard, refuses, or takes longer than three seconds
std::future<std::optional<std::string>> PasteElsewhere ();

} // namespace tessaly::host
