#include "host_timer.h"

#include "own_module.h"
#include "windows_api.h"
#include <map>
#include <mutex>
#include <utility>

namespace tessaly
{

using namespace Steinberg;

namespace
{

constexpr UINT_PTR kTimer = 1;

/// What the timer calls. It may be on its way when the timer stops: the function is forgotten then, and who stops from
/// another thread waits until a call is over. Recursive: the host may end the timer from within the call.
class Call
{
public:
    explicit Call (std::function<void ()> called)
        : function (std::move (called))
    {
    }
    void Run ()
    {
        const std::scoped_lock lock (mutex);
        const auto copy = function; // Forget may come from within the call
        if (copy)
            copy ();
    }
    void Forget ()
    {
        const std::scoped_lock lock (mutex);
        function = nullptr;
    }

private:
    std::recursive_mutex mutex;
    std::function<void ()> function;
};

std::mutex callsMutex; // guards `calls`
std::map<HWND, std::shared_ptr<Call>> calls;

void CALLBACK OnTimer (HWND window, UINT /*message*/, UINT_PTR /*id*/, DWORD /*time*/)
{
    std::shared_ptr<Call> call;
    {
        const std::scoped_lock lock (callsMutex);
        if (const auto found = calls.find (window); found != calls.end ())
            call = found->second;
    }
    if (call)
        call->Run ();
}

/// Of a class of the system's: none of our code is left in it when the module goes.
HWND MakeUnseenWindow ()
{
    return CreateWindowExW (0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, OwnModule (), nullptr);
}

/// Only its own thread can destroy a window. What is posted comes before the next timer message.
void EndWindow (HWND window)
{
    if (GetWindowThreadProcessId (window, nullptr) == GetCurrentThreadId ())
        DestroyWindow (window);
    else
        PostMessageW (window, WM_CLOSE, 0, 0);
}

} // namespace

struct HostTimer::Registration
{
    HWND window;
    std::shared_ptr<Call> call;
};

bool HostTimer::Start (FUnknown* /*context*/, FUnknown* /*fallbackContext*/, std::uint64_t intervalMs,
                       std::function<void ()> onTimer)
{
    Stop ();
    HWND window = MakeUnseenWindow ();
    if (window == nullptr)
        return false;
    registration =
        std::make_unique<Registration> (Registration{ window, std::make_shared<Call> (std::move (onTimer)) });
    {
        const std::scoped_lock lock (callsMutex);
        calls[window] = registration->call;
    }
    if (SetTimer (window, kTimer, static_cast<UINT> (intervalMs), &OnTimer) != 0)
        return true;
    Stop ();
    return false;
}

void HostTimer::Stop ()
{
    if (!registration)
        return;
    const auto ended = std::move (registration);
    {
        const std::scoped_lock lock (callsMutex);
        calls.erase (ended->window);
    }
    ended->call->Forget ();
    EndWindow (ended->window);
}

HostTimer::HostTimer () = default;

HostTimer::~HostTimer ()
{
    Stop ();
}

} // namespace tessaly
