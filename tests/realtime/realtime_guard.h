#pragma once

#include <functional>
#include <string_view>

namespace tessaly::test
{

struct RealtimeHits
{
    int count = 0;
    std::string_view first = "nothing"; ///< the function that was called first
};

/// Runs an action and watches the calling thread meanwhile: every call of the C library that takes or gives back memory
/// or may wait for another thread is a hit, from whichever library it comes, and every call of the kernel. Other
/// threads are not watched, and an action watches no other.
///
/// The program defines the C library's functions itself (realtime_guard.cpp), so the loaded bundle calls them too;
/// operator new and the locks of the C++ library come down to them. Calls of the kernel are seen where it tells (Linux
/// on x86-64), by whichever way they are made, up to the first of an action; elsewhere not.
RealtimeHits Seen (const std::function<void ()>& action);

bool SeesAllSystemCalls (); ///< on this machine, from this thread

} // namespace tessaly::test
