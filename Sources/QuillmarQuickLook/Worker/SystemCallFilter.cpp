#include "QuillmarQuickLook/Worker/SystemCallFilter.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <memory>
#include <sched.h>
#include <seccomp.h>

namespace quillmar::SystemCallFilter {
namespace {

/// Whatever their arguments are.
constexpr std::array allowed {
    // Reading what is open, asking what is there.
    SCMP_SYS(close), SCMP_SYS(read), SCMP_SYS(pread64), SCMP_SYS(readv), SCMP_SYS(lseek), SCMP_SYS(getdents64),
        SCMP_SYS(fstat), SCMP_SYS(stat), SCMP_SYS(lstat), SCMP_SYS(newfstatat), SCMP_SYS(statx),
        SCMP_SYS(fstatfs), SCMP_SYS(statfs), SCMP_SYS(readlink), SCMP_SYS(readlinkat), SCMP_SYS(access),
        SCMP_SYS(faccessat), SCMP_SYS(faccessat2), SCMP_SYS(getcwd),
        // What is open already: the socket to the host, standard error.
        SCMP_SYS(write), SCMP_SYS(writev), SCMP_SYS(sendto), SCMP_SYS(recvfrom), SCMP_SYS(sendmsg),
        SCMP_SYS(recvmsg), SCMP_SYS(poll), SCMP_SYS(ppoll),
        // Memory.
        SCMP_SYS(brk), SCMP_SYS(mmap), SCMP_SYS(munmap), SCMP_SYS(mremap), SCMP_SYS(mprotect),
        SCMP_SYS(madvise),
        // Threads, locks, time.
        SCMP_SYS(futex), SCMP_SYS(set_robust_list), SCMP_SYS(rseq), SCMP_SYS(sched_yield),
        SCMP_SYS(sched_getaffinity), SCMP_SYS(gettid), SCMP_SYS(getpid), SCMP_SYS(clock_gettime),
        SCMP_SYS(clock_nanosleep), SCMP_SYS(gettimeofday), SCMP_SYS(time), SCMP_SYS(rt_sigaction),
        SCMP_SYS(rt_sigprocmask), SCMP_SYS(rt_sigreturn), SCMP_SYS(sigaltstack), SCMP_SYS(restart_syscall),
        SCMP_SYS(getrandom), SCMP_SYS(getrusage), SCMP_SYS(sysinfo), SCMP_SYS(uname), SCMP_SYS(geteuid),
        SCMP_SYS(getuid), SCMP_SYS(getegid), SCMP_SYS(getgid), SCMP_SYS(exit), SCMP_SYS(exit_group),
#if defined(QUILLMAR_SHADOW_MEMORY)
        SCMP_SYS(pipe), // the sanitizers test through one whether memory can be read
        SCMP_SYS(pipe2),
#endif
};

struct Release {
    void operator()(void* filter) const { ::seccomp_release(filter); }
};

using Filter = std::unique_ptr<void, Release>;

bool allow(const Filter& filter, int call) {
    return ::seccomp_rule_add(filter.get(), SCMP_ACT_ALLOW, call, 0) == 0;
}

/// That of the bits in \p mask the argument has those of \p bits.
scmp_arg_cmp masked(unsigned argument, scmp_datum_t mask, scmp_datum_t bits) {
    return {.arg = argument, .op = SCMP_CMP_MASKED_EQ, .datum_a = mask, .datum_b = bits};
}

bool allow(const Filter& filter, int call, scmp_arg_cmp condition) {
    return ::seccomp_rule_add(filter.get(), SCMP_ACT_ALLOW, call, 1, condition) == 0;
}

/// Opening for reading. Landlock says what; this holds without it as well.
bool allowOpening(const Filter& filter) {
    constexpr scmp_datum_t writing = O_ACCMODE | O_CREAT | O_TRUNC | O_APPEND;
    return allow(filter, SCMP_SYS(openat), masked(2, writing, O_RDONLY)) &&
           allow(filter, SCMP_SYS(open), masked(1, writing, O_RDONLY));
}

/// A thread shares the process's memory; a child would not. The flags of the newer call cannot be looked at, so
/// it is said not to exist, and the C library takes the older one.
bool allowThreads(const Filter& filter) {
    constexpr scmp_datum_t threadFlags = CLONE_VM | CLONE_THREAD;
    return allow(filter, SCMP_SYS(clone), masked(0, threadFlags, threadFlags)) &&
           ::seccomp_rule_add(filter.get(), SCMP_ACT_ERRNO(ENOSYS), SCMP_SYS(clone3), 0) == 0;
}

} // namespace

bool install() {
    const Filter filter(::seccomp_init(SCMP_ACT_ERRNO(EPERM)));
    if (!filter) return false;
    const bool isAllowed = std::ranges::all_of(allowed, [&](int call) { return allow(filter, call); });
    if (!isAllowed || !allowOpening(filter) || !allowThreads(filter)) return false;
    ::seccomp_attr_set(filter.get(), SCMP_FLTATR_CTL_TSYNC, 1); // for all threads
    return ::seccomp_load(filter.get()) == 0;
}

} // namespace quillmar::SystemCallFilter
