#include "realtime_guard.h"

#include <cerrno>
#include <cstddef>
#include <dlfcn.h>
#include <pthread.h>
#include <semaphore.h>
#include <signal.h>
#include <sys/prctl.h>
#include <ucontext.h>

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

#if defined(__x86_64__) && defined(PR_SET_SYSCALL_USER_DISPATCH)

// The kernel asks this byte before each of the thread's calls, and sends a signal instead of one that is not let in.
thread_local volatile char dispatch = SYSCALL_DISPATCH_FILTER_ALLOW;

/// Notes the first call of a guard, makes it in the thread's place and lets in all that follow: the way back from a
/// signal handler is a call, too.
void OnSystemCall (int, siginfo_t* info, void* context)
{
    constexpr int kUserDispatch = 2; // the kernel's SYS_USER_DISPATCH, which the C library may not name yet
    if (info->si_code != kUserDispatch)
        return;
    dispatch = SYSCALL_DISPATCH_FILTER_ALLOW;
    Note ("a system call");
    auto& registers = static_cast<ucontext_t*> (context)->uc_mcontext.gregs;
    register greg_t r10 asm("r10") = registers[REG_R10];
    register greg_t r8 asm("r8") = registers[REG_R8];
    register greg_t r9 asm("r9") = registers[REG_R9];
    greg_t result = info->si_syscall;
    asm volatile("syscall"
                 : "+a"(result)
                 : "D"(registers[REG_RDI]), "S"(registers[REG_RSI]), "d"(registers[REG_RDX]), "r"(r10), "r"(r8), "r"(r9)
                 : "rcx", "r11", "memory");
    registers[REG_RAX] = result;
}

/// Has the kernel ask for this thread. @return false if it can't
bool Dispatch ()
{
    static const bool handles = []
    {
        struct sigaction action = {};
        action.sa_sigaction = OnSystemCall;
        action.sa_flags = SA_SIGINFO;
        return sigaction (SIGSYS, &action, nullptr) == 0;
    }();
    thread_local const bool asks =
        handles && prctl (PR_SET_SYSCALL_USER_DISPATCH, PR_SYS_DISPATCH_ON, 0, 0, &dispatch) == 0;
    return asks;
}

void LetIn (bool all)
{
    dispatch = all ? SYSCALL_DISPATCH_FILTER_ALLOW : SYSCALL_DISPATCH_FILTER_BLOCK;
}

#else

bool Dispatch ()
{
    return false;
}

void LetIn (bool) {}

#endif

} // namespace

RealtimeGuard::RealtimeGuard ()
{
    const bool seesAll = Dispatch ();
    guarded = true;
    LetIn (!seesAll);
}

RealtimeGuard::~RealtimeGuard ()
{
    LetIn (true);
    guarded = false;
}

bool RealtimeGuard::SeesAllSystemCalls ()
{
    return Dispatch ();
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
WATCH (int, pthread_spin_lock, (pthread_spinlock_t * lock), lock)
WATCH (int, pthread_rwlock_rdlock, (pthread_rwlock_t * lock), lock)
WATCH (int, pthread_rwlock_wrlock, (pthread_rwlock_t * lock), lock)
WATCH (int, pthread_cond_wait, (pthread_cond_t * condition, pthread_mutex_t* mutex), condition, mutex)
WATCH (int, sem_wait, (sem_t * semaphore), semaphore)
