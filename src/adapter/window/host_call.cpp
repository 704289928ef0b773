#include "host_call.h"

#include <utility>

namespace tessaly
{

namespace
{

HostCall* outermost = nullptr; // not owned: on the stack

} // namespace

HostCall::HostCall ()
    : isOutermost (outermost == nullptr)
{
    if (isOutermost)
        outermost = this;
}

HostCall::~HostCall () noexcept
{
    if (!isOutermost)
        return;
    outermost = nullptr;
    for (auto& work : putOff)
        std::exchange (work, nullptr) (); // with what it holds
}

void HostCall::AtEnd (std::function<void ()> work)
{
    if (outermost != nullptr)
        outermost->putOff.push_back (std::move (work));
    else
        work ();
}

bool HostCall::IsInside ()
{
    return outermost != nullptr;
}

} // namespace tessaly
