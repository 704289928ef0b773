#pragma once

#include <cstddef>
#include <thread>

#ifdef _WIN32
#define WIN32_LEAN_AND_MEAN // else it has a `byte` of its own
#include <windows.h>

#include <tlhelp32.h>
#else
#include <filesystem>
#include <iterator>
#endif

namespace tessaly::test
{

/// Of this process, as the system counts.
inline std::size_t ThreadCount ()
{
    std::thread ([] {}).join (); // with the first one a sanitizer makes one of its own
#ifdef _WIN32
    std::size_t count = 0;
    HANDLE snapshot = CreateToolhelp32Snapshot (TH32CS_SNAPTHREAD, 0);
    THREADENTRY32 entry{};
    entry.dwSize = sizeof (entry);
    for (BOOL found = Thread32First (snapshot, &entry); found != FALSE; found = Thread32Next (snapshot, &entry))
        if (entry.th32OwnerProcessID == GetCurrentProcessId ())
            ++count;
    CloseHandle (snapshot);
    return count;
#else
    const std::filesystem::directory_iterator tasks ("/proc/self/task");
    return static_cast<std::size_t> (std::distance (begin (tasks), end (tasks)));
#endif
}

} // namespace tessaly::test
