#include "QuillmarQuickLook/Worker/Landlock.h"

#include "Tests/Helpers/TemporaryFolder.h"
#include "Tests/QuillmarQuickLook/Worker/Attempts.h"
#include "Tests/QuillmarQuickLook/Worker/ConfinedProcess.h"

#include <csignal>
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/stat.h>

namespace quillmar {
namespace {

/// What Landlock refuses on its own: without the filter of system calls, limits or permissions.
class LandlockTest : public testing::Test {
protected:
    static Outcome outcomeRestricted(const FileURL& url, const std::function<bool()>& action) {
        return outcomeInChild([&] {
            ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
            Landlock::restrictTo(url);
            return action();
        });
    }

    /// That \p action is refused by kernels whose version is at least \p version, and by nothing else.
    void expectRefused(const std::function<bool()>& action, int version = 1) const {
        EXPECT_EQ(outcomeRestricted(item, action),
                  Landlock::version() >= version ? Outcome::cannot : Outcome::can);
        EXPECT_EQ(outcomeInChild(action), Outcome::can);
    }

    TemporaryFolder folder;
    FileURL item = folder.write("item", "text");
    FileURL other = folder.write("other", "secret");
};

TEST_F(LandlockTest, saysWhetherItIsInForce) {
    EXPECT_EQ(outcomeRestricted(item, [this] { return Landlock::restrictTo(item); }),
              Landlock::version() > 0 ? Outcome::can : Outcome::cannot);
}

TEST_F(LandlockTest, isInForceWithoutAnItem) {
    EXPECT_EQ(outcomeRestricted(item, [this] { return Landlock::restrictTo(folder.url("gone")); }),
              Landlock::version() > 0 ? Outcome::can : Outcome::cannot);
}

TEST_F(LandlockTest, needsAProcessThatGainsNothing) {
    // Root may do without; nobody else, and then nothing is in force.
    EXPECT_EQ(outcomeInChild([this] {
                  return ::geteuid() != 0 ? !Landlock::restrictTo(item)
                                          : Landlock::restrictTo(item) == (Landlock::version() > 0);
              }),
              Outcome::can);
}

TEST_F(LandlockTest, allowsTheItem) {
    EXPECT_EQ(outcomeRestricted(item, [this] { return Attempts::readFile(item); }), Outcome::can);
}

TEST_F(LandlockTest, refusesOtherFilesAndFolders) {
    expectRefused([this] { return Attempts::readFile(other); });
    expectRefused([this] { return Attempts::listFolder(folder.url("")); });
}

TEST_F(LandlockTest, refusesToWrite) {
    expectRefused([this] { return Attempts::open(item.path(), O_WRONLY); });
    expectRefused([this] { return Attempts::open(folder.url("new").path(), O_WRONLY | O_CREAT); });
}

TEST_F(LandlockTest, refusesToMakeAndRemove) {
    expectRefused([this] { return ::symlink("item", folder.url("link").path().c_str()) == 0; });
    expectRefused([this] { return ::mkdir(folder.url("New").path().c_str(), 0700) == 0; });
    expectRefused([this] { return ::unlink(other.path().c_str()) == 0; });
}

TEST_F(LandlockTest, refusesToCut) {
    constexpr int version = 3;
    expectRefused([this] { return ::truncate(item.path().c_str(), 4) == 0; }, version);
}

TEST_F(LandlockTest, refusesToRunPrograms) {
    expectRefused([] {
        ::execl("/bin/sh", "sh", "-c", "exit 11", nullptr); // as a child that can
        return false;
    });
}

TEST_F(LandlockTest, refusesAbstractSockets) {
    constexpr int version = 6;
    const Attempts::AbstractListener listener("quillmar-landlock-" + std::to_string(::getpid()));
    ASSERT_TRUE(listener.isListening());
    expectRefused([&] { return listener.connect(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)); }, version);
}

TEST_F(LandlockTest, refusesToSignalOthers) {
    constexpr int version = 6;
    expectRefused([parent = ::getpid()] { return ::kill(parent, 0) == 0; }, version);
    EXPECT_EQ(outcomeRestricted(item, [] { return ::kill(::getpid(), 0) == 0; }), Outcome::can);
}

TEST_F(LandlockTest, isKeptByChildren) {
    EXPECT_EQ(outcomeRestricted(item,
                                [this] {
                                    return outcomeInChild([this] { return Attempts::readFile(other); }) ==
                                           Outcome::cannot;
                                }),
              Landlock::version() > 0 ? Outcome::can : Outcome::cannot);
}

} // namespace
} // namespace quillmar
