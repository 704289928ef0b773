#pragma once

#include "editor_fixture.h"
#include "pictures.h"
#include <algorithm>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace tessaly
{

inline constexpr std::int32_t kFreeId = 31000; // of no parameter: a control of it works on its own fields, step 0.01

/// An open editor 560 by 315 pixels large that writes down which messages its controls send.
struct MessageFixture : EditorFixture<>
{
    using Messages = std::vector<std::int32_t>;

    MessageFixture () { Open ({ 0, 0 }); }
    void CreateControls () override
    {
        AddControl (*GetRootView (), std::make_unique<ZPicture> (this, ZRect{ 0, 0, 560, 315 }, kFreeId + 1));
    }
    template <typename Control>
    Control* Add (const ZRect& frame)
    {
        return AddControl (*GetRootView (), std::make_unique<Control> (this, frame, kFreeId));
    }
    void OnMessage (std::int32_t message, ZControl*) override { messages.push_back (message); }
    Messages TakeMessages () { return std::exchange (messages, {}); }

    bool ReleaseKey (std::int32_t key) { return KeyUp (event, { 0, 0, key, window.time }); }
    bool Paints (std::string_view call) ///< whether the next pass makes a call that begins so
    {
        const auto calls = Paint ();
        return std::any_of (calls.begin (), calls.end (), [&] (const auto& c) { return c.words.starts_with (call); });
    }

private:
    Messages messages;
};

} // namespace tessaly
