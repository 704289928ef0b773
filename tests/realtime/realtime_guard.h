#pragma once

#include <string_view>

namespace tessaly::test
{

/// Watches the calling thread for as long as it lives: every call of the C library that takes or gives back memory or
/// may wait for another thread is a hit, from whichever library it comes, and every call of the kernel. One guard at a
/// time a thread; other threads are not watched.
///
/// The program defines the C library's functions itself (realtime_guard.cpp), so the loaded bundle calls them too;
/// operator new and the locks of the C++ library come down to them. Calls of the kernel are seen where it tells (Linux
/// on x86-64), by whichever way they are made, up to the first of a guard; elsewhere not.
class RealtimeGuard
{
public:
    RealtimeGuard ();
    ~RealtimeGuard ();
    RealtimeGuard (const RealtimeGuard&) = delete;
    RealtimeGuard& operator= (const RealtimeGuard&) = delete;

    static bool SeesAllSystemCalls (); ///< on this machine, from this thread
};

/// What the calling thread's guards have seen so far.
struct RealtimeHits
{
    int count = 0;
    std::string_view first = "nothing"; ///< the function that was called first
};

RealtimeHits TakeRealtimeHits (); ///< and starts from none

} // namespace tessaly::test
