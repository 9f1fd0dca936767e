#include "Folder/FolderSummarizer.h"

#include "Tests/Helpers/DeepFolder.h"
#include "Tests/Helpers/ManyFiles.h"
#include "Tests/Helpers/ScopedOpenFileLimit.h"
#include "Tests/Helpers/StandingClock.h"
#include "Tests/Helpers/TemporaryFolder.h"
#include "Tests/Helpers/Unprivileged.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <sys/stat.h>
#include <thread>

namespace quillmar {
namespace {

const DirectorySize unmeasured{};
DirectorySize complete(std::int64_t size) { return {.size = size, .isComplete = true}; }
DirectorySize partial(std::int64_t size) { return {.size = size, .isComplete = false}; }

DirectorySize sizeOf(const FileURL& url) { return FolderSummarizer::directorySize(url, Deadline(1e6)); }
DirectorySize sizeOf(const TemporaryFolder& folder) { return sizeOf(folder.url(".")); }

/// How often somebody asks for the time before the first entry, the deadline's own making included.
std::size_t looksAtTheStart() {
    const TemporaryFolder empty;
    StandingClock clock;
    FolderSummarizer::directorySize(empty.url("."), Deadline(1, clock.clock()));
    return clock.looks();
}

/// Two folders at each of \p depth levels; one of them, now the first and now the second, leads on.
void makeCaterpillar(const TemporaryFolder& folder, int depth) {
    std::string path;
    for (int level = 0; level < depth; ++level) {
        folder.makeFolder(path + "a");
        folder.makeFolder(path + "b");
        folder.write(path + "a/1", "x");
        folder.write(path + "b/2", "x");
        path += level % 2 == 0 ? "a/" : "b/";
    }
}

TEST(DirectorySize, ofAnEmptyFolderIsZero) {
    const TemporaryFolder folder;
    EXPECT_EQ(sizeOf(folder), complete(0));
}

TEST(DirectorySize, isThatOfAllFilesHoweverDeep) {
    const TemporaryFolder folder;
    folder.makeFolder("a/b/c");
    folder.makeFolder("d");
    folder.write("1", std::string(1, 'x'));
    folder.write("a/2", std::string(20, 'x'));
    folder.write("a/b/c/3", std::string(300, 'x'));
    folder.write("d/4", std::string(4'000, 'x'));
    EXPECT_EQ(sizeOf(folder), complete(4'321));
}

TEST(DirectorySize, countsHiddenFilesAndPackages) {
    const TemporaryFolder folder;
    folder.makeFolder(".hidden");
    folder.makeFolder("A.app/Contents");
    folder.write(".hidden/.file", "12");
    folder.write("A.app/Contents/file", "123");
    EXPECT_EQ(sizeOf(folder), complete(5));
}

TEST(DirectorySize, countsTheLengthOfAFileAndNotItsRoom) {
    const TemporaryFolder folder;
    folder.write("sparse", "");
    std::filesystem::resize_file(folder.path() / "sparse", 1'000'000'000);
    EXPECT_EQ(sizeOf(folder), complete(1'000'000'000));
}

TEST(DirectorySize, countsEachHardLink) {
    const TemporaryFolder folder;
    folder.makeFolder("a");
    folder.write("a/1", "123");
    std::filesystem::create_hard_link(folder.path() / "a/1", folder.path() / "a/2");
    std::filesystem::create_hard_link(folder.path() / "a/1", folder.path() / "3");
    EXPECT_EQ(sizeOf(folder), complete(9));
}

TEST(DirectorySize, countsALinkAsNothing) {
    const TemporaryFolder folder;
    const FileURL url = folder.makeFolder("a");
    folder.write("large", std::string(1'000, 'x'));
    folder.makeFolder("b");
    folder.write("b/large", std::string(1'000, 'x'));
    std::filesystem::create_symlink("../large", folder.path() / "a/file");
    std::filesystem::create_directory_symlink("../b", folder.path() / "a/folder");
    std::filesystem::create_symlink("nowhere", folder.path() / "a/broken");
    EXPECT_EQ(sizeOf(url), complete(0));
}

TEST(DirectorySize, endsInLoopsOfLinks) {
    const TemporaryFolder folder;
    folder.makeFolder("a/b");
    folder.write("a/b/file", "123");
    std::filesystem::create_directory_symlink("..", folder.path() / "a/b/up");
    std::filesystem::create_directory_symlink(folder.path(), folder.path() / "a/b/top");
    std::filesystem::create_symlink("self", folder.path() / "a/self");
    EXPECT_EQ(sizeOf(folder), complete(3));
}

TEST(DirectorySize, countsPipesAsNothing) {
    const TemporaryFolder folder;
    ASSERT_EQ(::mkfifo((folder.path() / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(sizeOf(folder), complete(0));
}

TEST(DirectorySize, countsFilesOfAnyName) {
    const TemporaryFolder folder;
    folder.makeFolder("a\n\xFF");
    folder.write("a\n\xFF/\xFE", "12");
    folder.write(std::string(255, 'x'), "123");
    EXPECT_EQ(sizeOf(folder), complete(5));
}

TEST(DirectorySize, ofWhatALinkLeadsToIsThatOfTheFolder) {
    const TemporaryFolder folder;
    makeFiles(folder, "a", 3);
    std::filesystem::create_directory_symlink("a", folder.path() / "link");
    EXPECT_EQ(sizeOf(folder.url("link")), complete(3));
}

TEST(DirectorySize, isNoneForWhatIsNoFolder) {
    const TemporaryFolder folder;
    EXPECT_EQ(sizeOf(folder.url("gone")), unmeasured);
    EXPECT_EQ(sizeOf(folder.write("file", "123")), unmeasured);
}

TEST(DirectorySize, isNoneForAFolderThatCannotBeOpened) {
    const Unprivileged nobody;
    const TemporaryFolder folder;
    const FileURL url = makeFiles(folder, "a", 1);
    const ScopedPermissions none(url.path(), 0);
    EXPECT_EQ(sizeOf(url), unmeasured);
}

TEST(DirectorySize, passesOverUnreadableFoldersInIt) {
    const Unprivileged nobody;
    const TemporaryFolder folder;
    makeFiles(folder, "readable", 2);
    const ScopedPermissions none(makeFiles(folder, "private", 4).path(), 0);
    EXPECT_EQ(sizeOf(folder), complete(2));
}

TEST(DirectorySize, passesOverFilesThatMayNotBeLookedAt) {
    const Unprivileged nobody;
    const TemporaryFolder folder;
    makeFiles(folder, "readable", 2);
    const ScopedPermissions unsearchable(makeFiles(folder, "private", 4).path(), S_IRUSR);
    EXPECT_EQ(sizeOf(folder), complete(2));
}

TEST(DirectorySize, ofWhatTheKernelMakesUpIsZero) {
    EXPECT_EQ(sizeOf(FileURL::standardized("/proc", FileURL::root())), complete(0));
    EXPECT_EQ(sizeOf(FileURL::standardized("/sys", FileURL::root())), complete(0));
}

TEST(DirectorySize, isNoneWhenTheDeadlineHasPassed) {
    const TemporaryFolder folder;
    EXPECT_EQ(FolderSummarizer::directorySize(folder.url("."), Deadline(-1)), unmeasured);
    folder.write("file", "123");
    EXPECT_EQ(FolderSummarizer::directorySize(folder.url("."), Deadline(-1)), unmeasured);
}

TEST(DirectorySize, isNoneWhenTheDeadlineIsNow) {
    const TemporaryFolder folder;
    StandingClock clock;
    EXPECT_EQ(FolderSummarizer::directorySize(folder.url("."), Deadline(0, clock.clock())), unmeasured);
}

TEST(DirectorySize, asksForTheTimeOncePer256Entries) {
    const TemporaryFolder folder;
    for (const auto& [count, looks] :
         {std::pair(255, 0U), {256, 1U}, {511, 1U}, {512, 2U}, {768, 3U}, {1'000, 3U}}) {
        const FileURL url = makeFiles(folder, "a", count); // as many as there were, and more
        StandingClock clock;
        EXPECT_EQ(FolderSummarizer::directorySize(url, Deadline(1, clock.clock())), complete(count));
        EXPECT_EQ(clock.looks() - looksAtTheStart(), looks) << count;
    }
}

TEST(DirectorySize, isWhatWasCountedWhenTheDeadlinePassed) {
    const TemporaryFolder folder;
    const FileURL url = makeFiles(folder, "a", 1'000);
    for (const std::size_t look : {1U, 2U, 3U}) {
        StandingClock clock;
        clock.leapAt(looksAtTheStart() + look);
        // The entry that is the 256th is not counted any more.
        EXPECT_EQ(FolderSummarizer::directorySize(url, Deadline(1, clock.clock())),
                  partial(static_cast<std::int64_t>(look) * 256 - 1));
        EXPECT_EQ(clock.looks(), looksAtTheStart() + look); // nobody looks again
    }
}

TEST(DirectorySize, countsOnAtTheVeryMomentOfTheDeadline) {
    const TemporaryFolder folder;
    const FileURL url = makeFiles(folder, "a", 300);
    StandingClock clock;
    clock.leapAt(looksAtTheStart() + 1, std::chrono::seconds(1));
    EXPECT_EQ(FolderSummarizer::directorySize(url, Deadline(1, clock.clock())), complete(300));
}

TEST(DirectorySize, looksAtTheClockByEntriesOfAllFolders) {
    const TemporaryFolder folder;
    for (const char* name : {"a", "b", "c"}) makeFiles(folder, name, 100); // 303 entries with the folders
    StandingClock clock;
    clock.leapAt(looksAtTheStart() + 1);
    const DirectorySize size = FolderSummarizer::directorySize(folder.url("."), Deadline(1, clock.clock()));
    EXPECT_EQ(size, partial(252)); // 255 entries, three of them folders
}

TEST(DirectorySize, reachesFurtherThanAnyPath) {
    const TemporaryFolder folder;
    const DeepFolder deep(folder.url("."), 40, std::string(200, 'x')); // 8,000 bytes of path
    EXPECT_EQ(sizeOf(folder), complete(40));
}

TEST(DirectorySize, holdsFewFoldersOfAChainOpen) {
    const TemporaryFolder folder;
    const DeepFolder deep(folder.url("."), 1'000, "d");
    const ScopedOpenFileLimit few(8);
    EXPECT_EQ(sizeOf(folder), complete(1'000));
}

TEST(DirectorySize, reachesTheEndOfACaterpillar) {
    const TemporaryFolder folder;
    makeCaterpillar(folder, 300);
    EXPECT_EQ(sizeOf(folder), complete(600));
}

TEST(DirectorySize, isIncompleteWhenTheSystemRunsOutOfOpenFiles) {
    const TemporaryFolder folder;
    makeCaterpillar(folder, 300);
    const ScopedOpenFileLimit few(8);
    const DirectorySize size = sizeOf(folder);
    EXPECT_FALSE(size.isComplete);
    ASSERT_TRUE(size.size);
    EXPECT_GT(*size.size, 0);
    EXPECT_LT(*size.size, 600);
}

TEST(DirectorySize, countsWhatIsLeftOfAFolderThatVanishes) {
    const TemporaryFolder folder;
    const FileURL url = makeFiles(folder, "a", 300);
    folder.makeFolder("a/inside");
    folder.write("a/inside/file", "x");
    StandingClock clock;
    clock.onLook([&url, at256thEntry = looksAtTheStart() + 1](std::size_t look) {
        if (look == at256thEntry) std::filesystem::remove_all(url.path());
    });
    const DirectorySize size = FolderSummarizer::directorySize(url, Deadline(1, clock.clock()));
    EXPECT_TRUE(size.isComplete);
    ASSERT_TRUE(size.size);
    EXPECT_GE(*size.size, 254); // one of the first 255 entries may be the folder
    EXPECT_LE(*size.size, 256); // which may have been read already
}

TEST(DirectorySize, survivesFilesThatVanishMeanwhile) {
    const TemporaryFolder folder;
    for (int i = 0; i < 10; ++i) makeFiles(folder, "a/" + std::to_string(i), 50);
    std::atomic<bool> isRemoved = false;
    std::thread remover([&folder, &isRemoved] {
        std::error_code ignored;
        std::filesystem::remove_all(folder.path() / "a", ignored);
        isRemoved = true;
    });
    while (!isRemoved) {
        const DirectorySize size = sizeOf(folder);
        EXPECT_TRUE(size.isComplete);
        EXPECT_LE(size.size, 500);
    }
    remover.join();
    EXPECT_EQ(sizeOf(folder), complete(0));
}

} // namespace
} // namespace quillmar
