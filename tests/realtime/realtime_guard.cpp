#include "realtime_guard.h"

#include <cerrno>
#include <cstdarg>
#include <cstddef>
#include <dlfcn.h>
#include <poll.h>
#include <pthread.h>
#include <sched.h>
#include <semaphore.h>
#include <sys/mman.h>
#include <time.h>
#include <unistd.h>

namespace tessaly::test
{

namespace
{

// Of the program itself, so that neither needs memory on first use.
thread_local bool guarded = false;
thread_local RealtimeHits hits;

void Note (const char* function)
{
    if (guarded && hits.count++ == 0)
        hits.first = function;
}

} // namespace

RealtimeGuard::RealtimeGuard ()
{
    guarded = true;
}

RealtimeGuard::~RealtimeGuard ()
{
    guarded = false;
}

RealtimeHits TakeRealtimeHits ()
{
    const RealtimeHits taken = hits;
    hits = {};
    return taken;
}

} // namespace tessaly::test

using tessaly::test::Note;

#define WATCHED extern "C" [[gnu::visibility ("default")]]

// The C library's own names for its memory: to ask the loader for them would take memory again.
extern "C"
{
    void* __libc_malloc (std::size_t size);
    void* __libc_calloc (std::size_t count, std::size_t size);
    void* __libc_realloc (void* memory, std::size_t size);
    void* __libc_memalign (std::size_t alignment, std::size_t size);
    void __libc_free (void* memory);
}

WATCHED void* malloc (std::size_t size) noexcept
{
    Note ("malloc");
    return __libc_malloc (size);
}

WATCHED void* calloc (std::size_t count, std::size_t size) noexcept
{
    Note ("calloc");
    return __libc_calloc (count, size);
}

WATCHED void* realloc (void* memory, std::size_t size) noexcept
{
    Note ("realloc");
    return __libc_realloc (memory, size);
}

WATCHED void* memalign (std::size_t alignment, std::size_t size) noexcept
{
    Note ("memalign");
    return __libc_memalign (alignment, size);
}

WATCHED void* aligned_alloc (std::size_t alignment, std::size_t size) noexcept
{
    Note ("aligned_alloc");
    return __libc_memalign (alignment, size);
}

WATCHED int posix_memalign (void** memory, std::size_t alignment, std::size_t size) noexcept
{
    Note ("posix_memalign");
    *memory = __libc_memalign (alignment, size);
    return *memory != nullptr ? 0 : ENOMEM;
}

WATCHED void free (void* memory) noexcept
{
    Note ("free");
    __libc_free (memory);
}

/// Defines `name`: notes the call and hands it on to the C library.
#define WATCH(result, name, parameters, ...)                                                                           \
    WATCHED result name parameters                                                                                     \
    {                                                                                                                  \
        Note (#name);                                                                                                  \
        static const auto next = reinterpret_cast<result (*) parameters> (dlsym (RTLD_NEXT, #name));                   \
        return next (__VA_ARGS__);                                                                                     \
    }

WATCH (int, pthread_mutex_lock, (pthread_mutex_t * mutex), mutex)
WATCH (int, pthread_mutex_trylock, (pthread_mutex_t * mutex), mutex)
WATCH (int, pthread_rwlock_rdlock, (pthread_rwlock_t * lock), lock)
WATCH (int, pthread_rwlock_wrlock, (pthread_rwlock_t * lock), lock)
WATCH (int, pthread_cond_wait, (pthread_cond_t * condition, pthread_mutex_t* mutex), condition, mutex)
WATCH (int, sem_wait, (sem_t * semaphore), semaphore)
WATCH (int, sched_yield, (), )
WATCH (int, nanosleep, (const timespec* wanted, timespec* left), wanted, left)
WATCH (int, clock_nanosleep, (clockid_t clock, int flags, const timespec* wanted, timespec* left), clock, flags, wanted,
       left)
WATCH (int, poll, (pollfd * files, nfds_t count, int timeout), files, count, timeout)
WATCH (ssize_t, read, (int file, void* data, std::size_t size), file, data, size)
WATCH (ssize_t, write, (int file, const void* data, std::size_t size), file, data, size)
WATCH (void*, mmap, (void* at, std::size_t size, int access, int flags, int file, off_t offset), at, size, access,
       flags, file, offset)
WATCH (int, munmap, (void* at, std::size_t size), at, size)

WATCHED long syscall (long number, ...) noexcept
{
    Note ("syscall");
    static const auto next = reinterpret_cast<long (*) (long, ...)> (dlsym (RTLD_NEXT, "syscall"));
    std::va_list list;
    va_start (list, number);
    long a[6];
    for (long& argument : a)
        argument = va_arg (list, long);
    va_end (list);
    return next (number, a[0], a[1], a[2], a[3], a[4], a[5]);
}
