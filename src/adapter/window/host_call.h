#pragma once

#include <functional>
#include <vector>

namespace tessaly
{

/// A call of the host into an open panel, for as long as it lasts. Calls nest: the host may do anything from within what
/// the panel tells it, close the window or let go of the view. What such a call stands on must not end under it, so the
/// end is put off until the outermost call returns. Host's user-interface thread.
class HostCall
{
public:
    HostCall ();
    ~HostCall () noexcept;
    HostCall (const HostCall&) = delete;
    HostCall& operator= (const HostCall&) = delete;

    /// Runs the work when the outermost call returns, after what was put off before; at once outside of any.
    static void AtEnd (std::function<void ()> work);
    static bool IsInside ();

private:
    bool isOutermost;
    std::vector<std::function<void ()>> putOff; // of the outermost one
};

} // namespace tessaly
