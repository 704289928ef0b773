#include "guarded_pointer.h"
#include <atomic>
#include <doctest/doctest.h>
#include <thread>

using namespace tessaly;

namespace
{

/// Dies with what callers write to: a call that comes too late is a race to ThreadSanitizer, and a wrong sum here.
struct Counter
{
    bool Add () ///< takes its time between reading and writing
    {
        const long before = calls;
        for (std::atomic<int> turn = 0; turn < 50; ++turn)
            ;
        calls = before + 1;
        return true;
    }
    long calls = 0;
};

} // namespace

TEST_CASE ("GuardedPointer: no call of another thread outlasts Set")
{
    constexpr int kRounds = 2000;
    constexpr int kSpins = 10000;
    GuardedPointer<Counter> guarded;
    std::atomic<bool> done = false;
    std::atomic<long> begun = 0;
    const auto call = [&] (Counter& counter)
    {
        ++begun;
        return counter.Add ();
    };
    std::thread caller (
        [&]
        {
            while (!done)
                guarded.Call (call);
        });
    long counted = 0;
    for (int i = 0; i < kRounds; ++i)
    {
        Counter counter; // plain memory of this thread's stack
        const long before = begun;
        guarded.Set (&counter);
        for (int spin = 0; spin < kSpins && begun == before; ++spin) // no yield: on a busy machine each costs 10 ms
            ;
        i % 2 == 0 ? guarded.Set (nullptr) : guarded.TakeBack (&counter);
        counted += counter.calls;
    }
    done = true;
    caller.join ();
    CHECK (counted == begun.load ());
}

TEST_CASE ("GuardedPointer: a thread takes back from within its own call, and only what it has set")
{
    Counter first;
    Counter second;
    GuardedPointer<Counter> guarded (&first);
    CHECK (guarded.Call (
        [&] (Counter&)
        {
            guarded.Set (&second);
            return true;
        }));
    guarded.TakeBack (&first);
    CHECK (guarded.Call ([] (Counter& counter) { return counter.Add (); }));
    CHECK (second.calls == 1);
    guarded.TakeBack (&second);
    CHECK_FALSE (guarded.Call ([] (Counter& counter) { return counter.Add (); }));
}

TEST_CASE ("GuardedPointer: one call too many at once finds nothing")
{
    Counter counter;
    GuardedPointer<Counter> guarded (&counter);
    std::size_t depth = 0;
    const auto nest = [&] (const auto& self) -> bool
    {
        return guarded.Call (
            [&] (Counter&)
            {
                ++depth;
                self (self);
                return true;
            });
    };
    nest (nest);
    CHECK (depth == GuardedPointer<Counter>::kCallers);
    CHECK (guarded.Call ([] (Counter& object) { return object.Add (); })); // all slots are free again
}
