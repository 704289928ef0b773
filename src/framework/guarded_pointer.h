#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <thread>

namespace tessaly
{

/// A pointer through which any thread calls an object that its owner may take back at any time.
///
/// When Set has returned, no other thread is inside a call on the object that it replaced, and none will be; after
/// Set (nullptr) and TakeBack this holds for all objects that have gone, whoever took them back. Each caller writes its
/// thread's id into a slot before it reads the pointer; Set writes the pointer before it reads the slots, and waits for
/// those that are taken. Both in sequential consistency: either the caller finds the new pointer, or Set finds the
/// caller.
///
/// Call takes no lock, allocates nothing and waits for nobody, so it is fit for the audio thread. Set yields until the
/// callers are out: never on the audio thread, and no call may wait for the thread that takes the object back. A thread
/// that takes it back from within a call of its own does not wait for itself.
template <typename T>
class GuardedPointer
{
public:
    static constexpr std::size_t kCallers = 32; ///< calls at once, nested ones counted; one more finds null

    GuardedPointer () = default;
    explicit GuardedPointer (T* object)
        : pointer (object)
    {
    }
    GuardedPointer (const GuardedPointer&) = delete;
    GuardedPointer& operator= (const GuardedPointer&) = delete;

    /// @param function  called with the object. @return what it returns; false, uncalled, for null
    template <typename Function>
    bool Call (Function&& function)
    {
        if (pointer.load (std::memory_order_relaxed) == nullptr)
            return false;
        const Slot slot (callers);
        T* const object = slot.IsTaken () ? pointer.load () : nullptr;
        return object != nullptr && function (*object);
    }

    void Set (T* object)
    {
        // An object that comes after null need not wait: whoever took the last one back waits for its callers. Those of
        // the new one may come so often that a slot is hardly ever seen free.
        if (pointer.exchange (object) != nullptr || object == nullptr)
            WaitForOthers ();
    }

    /// Set (nullptr), unless another object has been set since. @param object  the one to take back
    void TakeBack (T* object)
    {
        pointer.compare_exchange_strong (object, nullptr);
        WaitForOthers ();
    }

private:
    using Caller = std::atomic<std::thread::id>; // no id: the slot is free
    using Callers = std::array<Caller, kCallers>;
    static_assert (Caller::is_always_lock_free && std::atomic<T*>::is_always_lock_free,
                   "the audio thread takes no lock");

    /// A place among the callers, for as long as it lives.
    class Slot
    {
    public:
        explicit Slot (Callers& slots)
        {
            for (auto& candidate : slots)
            {
                std::thread::id free;
                if (!candidate.compare_exchange_strong (free, std::this_thread::get_id ()))
                    continue;
                slot = &candidate;
                return;
            }
        }
        ~Slot ()
        {
            if (slot != nullptr)
                slot->store ({}, std::memory_order_release);
        }
        Slot (const Slot&) = delete;
        Slot& operator= (const Slot&) = delete;

        bool IsTaken () const { return slot != nullptr; }

    private:
        Caller* slot = nullptr; // not owned: the pointer's
    };

    void WaitForOthers () const
    {
        const auto isOther = [self = std::this_thread::get_id ()] (std::thread::id id)
        { return id != std::thread::id () && id != self; };
        for (const auto& caller : callers)
            while (isOther (caller.load ()))
                std::this_thread::yield ();
    }

    std::atomic<T*> pointer = nullptr; // not owned: whoever sets it
    Callers callers{};
};

} // namespace tessaly
