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

/// Calls the C library's function of a name: the next one in the loader's order.
template <typename... Arguments>
int HandOn (const char* name, Arguments*... arguments)
{
    return reinterpret_cast<int (*) (Arguments * ...)> (dlsym (RTLD_NEXT, name)) (arguments...);
}

// The kernel asks this byte before each of the thread's calls, and sends a signal instead of one that is not let in.
constexpr char kLetIn = 0;
constexpr char kBlock = 1;
thread_local volatile char dispatch = kLetIn;

} // namespace

#if defined(__x86_64__) && defined(PR_SET_SYSCALL_USER_DISPATCH)

/// Notes the first call of a guard, makes it in the thread's place and lets in all that follow: the way back from a
/// signal handler is a call, too.
static void OnSystemCall (int, siginfo_t* info, void* context)
{
    constexpr int kUserDispatch = 2; // the kernel's SYS_USER_DISPATCH, which the C library may not name yet
    if (info->si_code != kUserDispatch)
        return;
    dispatch = kLetIn;
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

bool SeesAllSystemCalls ()
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

#else

bool SeesAllSystemCalls ()
{
    return false;
}

#endif

RealtimeHits Seen (const std::function<void ()>& action)
{
    hits = {};
    const bool seesAll = SeesAllSystemCalls ();
    guarded = true;
    dispatch = seesAll ? kBlock : kLetIn;
    action ();
    dispatch = kLetIn;
    guarded = false;
    return hits;
}

} // namespace tessaly::test

using namespace tessaly::test;

// The C library's own names for its memory: to ask the loader for them would take memory again.
extern "C"
{
    void* __libc_malloc (std::size_t size);
    void* __libc_calloc (std::size_t count, std::size_t size);
    void* __libc_realloc (void* memory, std::size_t size);
    void* __libc_memalign (std::size_t alignment, std::size_t size);
    void __libc_free (void* memory);
}

/// Defines `name`: notes the call and hands it on to the C library.
#define WATCH(result, name, parameters, ...)                                                                           \
    extern "C" [[gnu::visibility ("default")]] result name parameters                                                  \
    {                                                                                                                  \
        Note (#name);                                                                                                  \
        return __VA_ARGS__;                                                                                            \
    }

WATCH (void*, malloc, (std::size_t size) noexcept, __libc_malloc (size))
WATCH (void*, calloc, (std::size_t count, std::size_t size) noexcept, __libc_calloc (count, size))
WATCH (void*, realloc, (void* memory, std::size_t size) noexcept, __libc_realloc (memory, size))
WATCH (void*, aligned_alloc, (std::size_t alignment, std::size_t size) noexcept, __libc_memalign (alignment, size))
WATCH (int, posix_memalign, (void** memory, std::size_t alignment, std::size_t size) noexcept,
       (*memory = __libc_memalign (alignment, size)) != nullptr ? 0 : ENOMEM)
WATCH (void, free, (void* memory) noexcept, __libc_free (memory))

WATCH (int, pthread_mutex_lock, (pthread_mutex_t * mutex), HandOn ("pthread_mutex_lock", mutex))
WATCH (int, pthread_mutex_trylock, (pthread_mutex_t * mutex), HandOn ("pthread_mutex_trylock", mutex))
WATCH (int, pthread_spin_lock, (pthread_spinlock_t * lock), HandOn ("pthread_spin_lock", lock))
WATCH (int, pthread_rwlock_rdlock, (pthread_rwlock_t * lock), HandOn ("pthread_rwlock_rdlock", lock))
WATCH (int, pthread_rwlock_wrlock, (pthread_rwlock_t * lock), HandOn ("pthread_rwlock_wrlock", lock))
WATCH (int, pthread_cond_wait, (pthread_cond_t * condition, pthread_mutex_t* mutex),
       HandOn ("pthread_cond_wait", condition, mutex))
WATCH (int, sem_wait, (sem_t * semaphore), HandOn ("sem_wait", semaphore))
