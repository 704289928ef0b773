#pragma once

#include <string>
#include <string_view>

namespace tessaly
{

/// The texts that a user carries between programs, UTF-8. Behind it stands the window system; a window without one
/// gives none. Host's user-interface thread.
class ZClipboard
{
public:
    virtual ~ZClipboard () = default;
    virtual std::string GetText () = 0; ///< empty without a text
    virtual void SetText (std::string_view text) = 0;
};

} // namespace tessaly
