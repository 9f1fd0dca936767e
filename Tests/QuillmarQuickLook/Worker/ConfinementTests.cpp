#include "QuillmarQuickLook/Worker/Confinement.h"

#include "QuillmarQuickLook/Worker/Landlock.h"
#include "Tests/Helpers/TemporaryFolder.h"
#include "Tests/QuillmarQuickLook/Worker/Attempts.h"
#include "Tests/QuillmarQuickLook/Worker/ConfinedProcess.h"
#include "Tests/QuillmarQuickLook/Worker/MemoryLimit.h"

#include <atomic>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <thread>

namespace quillmar {
namespace {

/// An item, a file beside it, and processes that are confined to the item.
class ConfinementTest : public testing::Test {
protected:
    using Action = std::function<bool()>;

    /// That \p action succeeds, but not when it is confined.
    void expectRefused(const Action& action) const {
        EXPECT_EQ(outcomeInChild(action), Outcome::can);
        EXPECT_EQ(outcomeConfined(item, action), Outcome::cannot);
    }

    /// The same of what only Landlock refuses, which not every kernel has.
    static void expectRefusedByLandlock(const FileURL& url, const Action& action) {
        EXPECT_EQ(outcomeInChild(action), Outcome::can);
        EXPECT_EQ(outcomeConfined(url, action), Landlock::version() > 0 ? Outcome::cannot : Outcome::can);
    }

    void expectAllowed(const Action& action) const { EXPECT_EQ(outcomeConfined(item, action), Outcome::can); }

    TemporaryFolder folder;
    FileURL item = folder.write("item", "text");
    FileURL other = folder.write("other", "secret");
};

// Files

TEST_F(ConfinementTest, readsTheItem) {
    expectAllowed([this] { return Attempts::readFile(item); });
}

TEST_F(ConfinementTest, readsNoOtherFile) {
    expectRefusedByLandlock(item, [this] { return Attempts::readFile(other); });
    expectRefusedByLandlock(item, [] { return Attempts::open("/etc/passwd", O_RDONLY); });
    expectRefusedByLandlock(item, [] { return Attempts::open("/proc/self/environ", O_RDONLY); });
}

TEST_F(ConfinementTest, listsNoFolder) {
    expectRefusedByLandlock(item, [this] { return Attempts::listFolder(folder.url("")); });
    expectRefusedByLandlock(item, [] { return Attempts::listFolder(FileURL::root()); });
}

TEST_F(ConfinementTest, readsInTheFolderAndBeneathIt) {
    const FileURL garden = folder.makeFolder("Garden");
    const FileURL beds = folder.makeFolder("Garden/Beds");
    const FileURL rose = folder.write("Garden/Beds/rose.txt", "red");
    EXPECT_EQ(outcomeConfined(garden,
                              [&] {
                                  return Attempts::listFolder(garden) && Attempts::listFolder(beds) &&
                                         Attempts::readFile(rose);
                              }),
              Outcome::can);
}

TEST_F(ConfinementTest, readsNothingBesideTheFolder) {
    const FileURL garden = folder.makeFolder("Garden");
    std::filesystem::create_symlink("../other", folder.path() / "Garden/link");
    expectRefusedByLandlock(garden, [this] { return Attempts::readFile(other); });
    expectRefusedByLandlock(garden, [this] { return Attempts::listFolder(folder.url("")); });
    expectRefusedByLandlock(garden, [&] { return Attempts::readFile(folder.url("Garden/link")); });
    expectRefusedByLandlock(garden, [&] { return Attempts::open(garden.path() + "/../other", O_RDONLY); });
}

TEST_F(ConfinementTest, readsTheTargetOfALinkAndNothingBesideIt) {
    std::filesystem::create_symlink("item", folder.path() / "link");
    const FileURL link = folder.url("link");
    EXPECT_EQ(outcomeConfined(link, [&] { return Attempts::readFile(link); }), Outcome::can);
    expectRefusedByLandlock(link, [this] { return Attempts::readFile(other); });
}

TEST_F(ConfinementTest, readsNothingWhenTheItemIsGone) {
    expectRefusedByLandlock(folder.url("gone"), [this] { return Attempts::readFile(item); });
}

TEST_F(ConfinementTest, readsWhatWasOpenBefore) {
    const int descriptor = ::open(other.path().c_str(), O_RDONLY | O_CLOEXEC);
    expectAllowed([descriptor] {
        char byte = 0;
        return ::read(descriptor, &byte, 1) == 1;
    });
    ::close(descriptor);
}

TEST_F(ConfinementTest, looksAtOtherFiles) {
    expectAllowed([this] {
        struct stat status {};
        return ::stat(other.path().c_str(), &status) == 0;
    });
}

TEST_F(ConfinementTest, writesToNothing) {
    for (const int flags : {O_WRONLY, O_RDWR, O_WRONLY | O_APPEND, O_RDONLY | O_TRUNC})
        expectRefused([this, flags] { return Attempts::open(item.path(), flags); });
    EXPECT_EQ(outcomeConfined(item, [this] { return ::truncate(item.path().c_str(), 0) == 0; }),
              Outcome::cannot);
}

TEST_F(ConfinementTest, createsNothing) {
    expectRefused([this] { return Attempts::open(folder.url("new").path(), O_WRONLY | O_CREAT); });
    expectRefused([this] { return Attempts::open(folder.url("newer").path(), O_RDONLY | O_CREAT); });
    expectRefused([this] { return ::mkdir(folder.url("New").path().c_str(), 0700) == 0; });
    expectRefused([this] { return ::symlink("item", folder.url("link").path().c_str()) == 0; });
    expectRefused([this] { return ::mkfifo(folder.url("pipe").path().c_str(), 0600) == 0; });
}

TEST_F(ConfinementTest, changesAndRemovesNothing) {
    const std::string path = item.path();
    expectRefused([&] { return ::chmod(path.c_str(), 0644) == 0; });
    expectRefused([&] { return ::utimensat(AT_FDCWD, path.c_str(), nullptr, 0) == 0; });
    EXPECT_EQ(outcomeConfined(item, [&] { return ::rename(path.c_str(), (path + "2").c_str()) == 0; }),
              Outcome::cannot);
    EXPECT_EQ(outcomeConfined(item, [&] { return ::unlink(path.c_str()) == 0; }), Outcome::cannot);
    EXPECT_EQ(contentsOf(path), "text");
}

// The world

TEST_F(ConfinementTest, opensNoSocket) {
    for (const int family : {AF_UNIX, AF_INET})
        expectRefused([family] { return ::socket(family, SOCK_STREAM, 0) >= 0; });
}

TEST_F(ConfinementTest, connectsToNobody) {
    const Attempts::AbstractListener listener("quillmar-confinement-" + std::to_string(::getpid()));
    ASSERT_TRUE(listener.isListening());
    const int descriptor = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    EXPECT_EQ(outcomeConfined(item, [&] { return listener.connect(descriptor); }), Outcome::cannot);
    EXPECT_EQ(outcomeInChild([&] { return listener.connect(descriptor); }), Outcome::can);
    ::close(descriptor);
}

TEST_F(ConfinementTest, speaksOnTheSocketItHas) {
    std::array<int, 2> ends{};
    ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()), 0);
    ASSERT_EQ(::send(ends[0], "a", 1, 0), 1);
    expectAllowed([&] {
        char byte = 0;
        return ::recv(ends[1], &byte, 1, 0) == 1 && ::send(ends[1], "b", 1, MSG_NOSIGNAL) == 1;
    });
    for (const int end : ends) ::close(end);
}

TEST_F(ConfinementTest, startsNoProcess) {
    const auto forks = [] {
        const pid_t child = ::fork();
        if (child == 0) ::_exit(0);
        return child > 0;
    };
    expectRefused(forks);
    expectRefused([] {
        const auto child = ::syscall(SYS_fork);
        if (child == 0) ::_exit(0);
        return child > 0;
    });
}

TEST_F(ConfinementTest, becomesNoOtherProgram) {
    expectRefused([] {
        ::execl("/bin/sh", "sh", "-c", "exit 11", nullptr); // as a child that can
        return false;
    });
}

TEST_F(ConfinementTest, signalsNobody) {
    const pid_t parent = ::getpid();
    const auto before = std::signal(SIGTERM, SIG_IGN);
    for (const int signal : {0, SIGTERM}) expectRefused([&] { return ::kill(parent, signal) == 0; });
    std::signal(SIGTERM, before);
}

TEST_F(ConfinementTest, tracesNobody) {
    expectRefused([] { return ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) == 0; });
}

// Resources

TEST_F(ConfinementTest, opensOnlySoManyFiles) {
    const auto opensMany = [this] {
        constexpr int many = 1'100; // more than a worker may
        const rlimit more{.rlim_cur = 2'000, .rlim_max = RLIM_INFINITY};
        ::setrlimit(RLIMIT_NOFILE, &more);
        for (int i = 0; i < many; ++i)
            if (::open(item.path().c_str(), O_RDONLY | O_CLOEXEC) < 0) return false;
        return true;
    };
    EXPECT_EQ(outcomeConfined(item, opensMany), Outcome::cannot);
}

TEST_F(ConfinementTest, takesOnlySoMuchMemory) {
    const auto takesMuch = [] {
        constexpr std::size_t bytes = 3'221'225'472;
        return ::mmap(nullptr, bytes, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0) !=
               MAP_FAILED;
    };
    EXPECT_EQ(outcomeInChild(takesMuch), Outcome::can);
    EXPECT_EQ(outcomeConfined(item, takesMuch), isMemoryLimited ? Outcome::cannot : Outcome::can);
}

TEST_F(ConfinementTest, raisesNoLimit) {
    expectRefused([] {
        rlimit limits{};
        return ::getrlimit(RLIMIT_CPU, &limits) == 0 && ::setrlimit(RLIMIT_CPU, &limits) == 0;
    });
}

TEST_F(ConfinementTest, isToldByASignalThatProcessorTimeRunsOut) {
    // At the greater of the two limits it is killed without a word, and nobody knows why.
    std::array<int, 2> ends{};
    ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()), 0);
    const pid_t child = ::fork();
    char byte = 0;
    if (child == 0) {
        Confinement::confineTo(item);
        ::send(ends[1], &byte, 1, MSG_NOSIGNAL);
        ::recv(ends[1], &byte, 1, 0);
        ::_exit(0);
    }
    ::close(ends[1]); // so that a child that ends is heard of
    rlimit time{};
    rlimit core{};
    EXPECT_EQ(::recv(ends[0], &byte, 1, 0), 1);
    EXPECT_EQ(::prlimit(child, RLIMIT_CPU, nullptr, &time), 0);
    EXPECT_EQ(::prlimit(child, RLIMIT_CORE, nullptr, &core), 0);
    ::send(ends[0], &byte, 1, MSG_NOSIGNAL);
    ::waitpid(child, nullptr, 0);
    ::close(ends[0]);
    EXPECT_EQ(time.rlim_cur, 30U);
    EXPECT_GT(time.rlim_max, time.rlim_cur);
    EXPECT_EQ(core.rlim_max, 0U);
}

// Threads

TEST_F(ConfinementTest, startsThreads) {
    expectAllowed([] {
        std::atomic<int> count = 0;
        std::thread one([&] { ++count; });
        std::thread two([&] { ++count; });
        one.join();
        two.join();
        return count == 2;
    });
}

/// What \p action says on a thread that runs before the process is confined.
Outcome outcomeOnEarlierThread(const FileURL& item, const std::function<bool()>& action) {
    return outcomeInChild([&] {
        std::atomic<bool> isConfined = false;
        bool result = false;
        std::thread thread([&] {
            isConfined.wait(false);
            result = action();
        });
        Confinement::confineTo(item);
        isConfined = true;
        isConfined.notify_all();
        thread.join();
        return result;
    });
}

TEST_F(ConfinementTest, confinesThreadsThatRanBefore) {
    EXPECT_EQ(outcomeOnEarlierThread(item, [] { return ::socket(AF_UNIX, SOCK_STREAM, 0) >= 0; }),
              Outcome::cannot);
    EXPECT_EQ(outcomeOnEarlierThread(item, [this] { return Attempts::open(item.path(), O_RDWR); }),
              Outcome::cannot);
}

// What is in force

TEST_F(ConfinementTest, saysWhatIsInForce) {
    EXPECT_EQ(outcomeInChild([this] {
                  const Confinement::InForce expected{
                      .resourceLimits = true, .landlock = Landlock::version() > 0, .seccomp = true};
                  return Confinement::confineTo(item) == expected;
              }),
              Outcome::can);
}

} // namespace
} // namespace quillmar
