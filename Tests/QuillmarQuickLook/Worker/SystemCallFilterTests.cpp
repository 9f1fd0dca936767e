#include "QuillmarQuickLook/Worker/SystemCallFilter.h"

#include "Tests/QuillmarQuickLook/Worker/ConfinedProcess.h"

#include <cerrno>
#include <ctime>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/syscall.h>

namespace quillmar {
namespace {

/// The error of a system call whose arguments are nonsense, with and without the filter.
bool isRefused(long call) {
    constexpr long nonsense = -1;
    return ::syscall(call, nonsense, nonsense, nonsense, nonsense, nonsense, nonsense) == -1 && errno == EPERM;
}

Outcome outcomeFiltered(const std::function<bool()>& action) {
    return outcomeInChild([&] { return SystemCallFilter::install() && action(); });
}

struct Call {
    const char* name;
    long number;
};

TEST(SystemCallFilter, refusesWhatReadingDoesNotNeed) {
    for (const Call& call : std::initializer_list<Call>{
             {"accept", SYS_accept},
             {"bind", SYS_bind},
             {"connect", SYS_connect},
             {"listen", SYS_listen},
             {"socket", SYS_socket},
             {"socketpair", SYS_socketpair},
             {"execve", SYS_execve},
             {"execveat", SYS_execveat},
             {"kill", SYS_kill},
             {"tgkill", SYS_tgkill},
             {"ptrace", SYS_ptrace},
             {"process_vm_readv", SYS_process_vm_readv},
             {"process_vm_writev", SYS_process_vm_writev},
             {"pidfd_open", SYS_pidfd_open},
             {"fcntl", SYS_fcntl},
             {"ioctl", SYS_ioctl},
             {"dup2", SYS_dup2},
             {"ftruncate", SYS_ftruncate},
             {"fchmod", SYS_fchmod},
             {"fchown", SYS_fchown},
             {"renameat2", SYS_renameat2},
             {"linkat", SYS_linkat},
             {"mount", SYS_mount},
             {"memfd_create", SYS_memfd_create},
             {"shmget", SYS_shmget},
             {"io_uring_setup", SYS_io_uring_setup},
             {"bpf", SYS_bpf},
             {"perf_event_open", SYS_perf_event_open},
             {"userfaultfd", SYS_userfaultfd},
             {"prctl", SYS_prctl},
             {"setrlimit", SYS_setrlimit},
             {"prlimit64", SYS_prlimit64},
             {"openat2", SYS_openat2},
             {"add_key", SYS_add_key},
             {"unshare", SYS_unshare},
             {"setns", SYS_setns},
             {"seccomp", SYS_seccomp},
         })
        EXPECT_EQ(outcomeFiltered([&] { return isRefused(call.number); }), Outcome::can) << call.name;
}

TEST(SystemCallFilter, allowsWhatReadingNeeds) {
    for (const Call& call : std::initializer_list<Call>{
             {"read", SYS_read}, {"close", SYS_close}, {"newfstatat", SYS_newfstatat}, {"futex", SYS_futex}})
        EXPECT_EQ(outcomeFiltered([&] { return isRefused(call.number); }), Outcome::cannot) << call.name;
    EXPECT_EQ(outcomeFiltered([] { return std::time(nullptr) > 0; }), Outcome::can);
}

TEST(SystemCallFilter, saysThatTheNewerWayToStartThreadsIsMissing) {
    EXPECT_EQ(outcomeFiltered([] { return ::syscall(SYS_clone3, nullptr, 0) == -1 && errno == ENOSYS; }),
              Outcome::can);
}

TEST(SystemCallFilter, startsNothingThatSharesOnlyPartOfTheProcess) {
    for (const long flags : {0L, static_cast<long>(CLONE_VM), static_cast<long>(CLONE_VM | CLONE_VFORK),
                             static_cast<long>(CLONE_NEWUSER)})
        EXPECT_EQ(outcomeFiltered([flags] {
                      const long child = ::syscall(SYS_clone, flags, nullptr, nullptr, nullptr, nullptr);
                      if (child == 0) ::_exit(0);
                      return child == -1 && errno == EPERM;
                  }),
                  Outcome::can)
            << flags;
}

TEST(SystemCallFilter, cannotBeChangedAfterwards) {
    EXPECT_EQ(outcomeFiltered([] { return SystemCallFilter::install(); }), Outcome::cannot);
}

} // namespace
} // namespace quillmar
