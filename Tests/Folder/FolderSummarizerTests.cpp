#include "Folder/FolderSummarizer.h"

#include "Platform/FileError.h"
#include "Tests/Helpers/Summaries.h"
#include "Tests/Helpers/TemporaryFolder.h"
#include "Tests/Helpers/Unprivileged.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <string>
#include <sys/stat.h>
#include <thread>

namespace quillmar {
namespace {

using FolderSummarizerTest = SummaryTest;
using Parts = std::vector<CompositionPart>;

/// The sentence of the error that summing up \p url ends in.
std::string faultOf(const FileURL& url) {
    try {
        FolderSummarizer::summarize(url, ample);
    } catch (const FileError& error) {
        return error.what();
    }
    return "none";
}

TEST_F(FolderSummarizerTest, findsNothingInAnEmptyFolder) {
    const FolderSummary summary = summarize();
    EXPECT_EQ(summary.url, folder.url("."));
    EXPECT_TRUE(summary.items.empty());
    EXPECT_EQ(summary.totalSize, 0);
    EXPECT_TRUE(summary.isComplete);
    EXPECT_TRUE(summary.breakdown().empty());
}

TEST_F(FolderSummarizerTest, putsTheLargestFirstAndEqualOnesInPlainOrder) {
    for (const char* name : {"a", "B", "b", "10", "9"}) folder.write(name, "12");
    folder.write("empty", "");
    makeFiles(folder, "folder", 7);
    EXPECT_EQ(namesOf(summarize()), (Names{"folder", "10", "9", "B", "a", "b", "empty"}));
}

TEST_F(FolderSummarizerTest, putsWhatHasNoSizeBehindWhatIsEmpty) {
    folder.makeFolder("a");
    folder.write("b", "");
    EXPECT_EQ(namesOf(summarize(0)), (Names{"b", "a"}));
}

TEST_F(FolderSummarizerTest, ordersNamesByTheirComposedForms) {
    for (const char* name : {"e\u0301", "f", "\u00EA"}) folder.write(name, "");
    EXPECT_EQ(namesOf(summarize()), (Names{"f", "e\u0301", "\u00EA"}));
}

TEST_F(FolderSummarizerTest, countsHiddenItemsEverywhereButAmongTheVisible) {
    makeFiles(folder, ".git", 2);
    std::filesystem::resize_file(folder.path() / ".git/0", 500'000'000);
    folder.write("a.txt", std::string(1'000, 'x'));
    const FolderSummary summary = summarize();
    EXPECT_EQ(namesOf(summary), (Names{".git", "a.txt"}));
    ASSERT_EQ(summary.visibleItems().size(), 1U);
    EXPECT_EQ(summary.visibleItems()[0]->name, "a.txt");
    EXPECT_EQ(summary.hiddenCount(), 1);
    EXPECT_EQ(summary.totalSize, 500'001'001);
    EXPECT_EQ(summary.breakdown(),
              (Parts{{FileKind::folders, 500'000'001, 1}, {FileKind::documents, 1'000, 1}}));
}

TEST_F(FolderSummarizerTest, addsUpTheItems) {
    makeFiles(folder, "folder", 5);
    makeFiles(folder, "A.app", 4);
    folder.write("file", "123");
    std::filesystem::create_symlink("file", folder.path() / "link"); // 4 bytes
    const FolderSummary summary = summarize();
    EXPECT_EQ(summary.totalSize, 16);
    EXPECT_TRUE(summary.isComplete);
}

TEST_F(FolderSummarizerTest, findsEachOfManyItemsOnce) {
    Names names;
    for (int i = 10'000; i < 11'000; ++i) names.push_back(std::to_string(i)); // in the order of the page
    for (const std::string& name : names) folder.write(name, name.back() == '7' ? "x" : "");
    std::stable_partition(names.begin(), names.end(),
                          [](const std::string& name) { return name.back() == '7'; });
    const FolderSummary summary = summarize();
    EXPECT_EQ(namesOf(summary), names);
    EXPECT_EQ(summary.totalSize, 100);
}

TEST_F(FolderSummarizerTest, isTheSameOnOneThreadAndOnSeveral) {
    for (int i = 0; i < 40; ++i)
        makeFiles(folder, "folder" + std::to_string(i), 20 + i % 7); // more than one thread reads alone
    makeFiles(folder, "folder3/inside", 100);
    const FolderSummary summary = summarize();
    ASSERT_EQ(summary.items.size(), 40U);
    for (const FolderItem& item : summary.items) {
        const DirectorySize alone = FolderSummarizer::directorySize(item.url, Deadline(ample));
        EXPECT_EQ(item.size, alone.size) << item.name;
        EXPECT_TRUE(item.isSizeComplete) << item.name;
    }
    for (int i = 0; i < 5; ++i) {
        const FolderSummary again = summarize();
        EXPECT_EQ(namesOf(again), namesOf(summary));
        EXPECT_EQ(again.totalSize, summary.totalSize);
    }
}

TEST_F(FolderSummarizerTest, tellsWhenTheFolderItselfWasModified) {
    makeFiles(folder, "a", 1);
    setModified(".", 1'000'000'000);
    setModified("a", 5);
    EXPECT_EQ(summarize().modified, 1'000'000'000);
}

TEST_F(FolderSummarizerTest, readsTheFolderThatALinkLeadsTo) {
    makeFiles(folder, "target", 2);
    std::filesystem::create_directory_symlink("target", folder.path() / "link");
    const FolderSummary summary = FolderSummarizer::summarize(folder.url("link"), ample);
    EXPECT_EQ(summary.url, folder.url("link"));
    EXPECT_EQ(namesOf(summary), (Names{"0", "1"}));
    EXPECT_EQ(summary.items[0].url, folder.url("link/0"));
}

TEST_F(FolderSummarizerTest, readsTheRoot) {
    const FolderSummary summary = FolderSummarizer::summarize(FileURL::root(), 0);
    const FolderItem& usr = itemOf(summary, "usr");
    EXPECT_EQ(usr.url.path(), "/usr");
    EXPECT_EQ(usr.size, std::nullopt);
}

TEST_F(FolderSummarizerTest, throwsForAFolderThatIsNotThere) {
    EXPECT_EQ(faultOf(folder.url("gone")), "There is no file named “gone”.");
    std::filesystem::create_symlink("nowhere", folder.path() / "broken");
    EXPECT_EQ(faultOf(folder.url("broken")), "There is no file named “broken”.");
}

TEST_F(FolderSummarizerTest, throwsForWhatIsNoFolder) {
    EXPECT_EQ(faultOf(folder.write("file", "")), "“file” could not be read: Not a directory.");
    ASSERT_EQ(::mkfifo((folder.path() / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(faultOf(folder.url("pipe")), "“pipe” could not be read: Not a directory.");
}

TEST(FolderSummarizer, throwsForAFolderThatMayNotBeRead) {
    const Unprivileged nobody;
    const TemporaryFolder folder;
    const FileURL url = folder.makeFolder("private");
    const ScopedPermissions searchOnly(url.path(), S_IXUSR);
    EXPECT_EQ(faultOf(url), "You don't have permission to view “private”.");
}

TEST(FolderSummarizer, throwsForAFolderWhoseItemsMayNotBeLookedAt) {
    const Unprivileged nobody;
    const TemporaryFolder folder;
    const FileURL url = folder.makeFolder("private");
    folder.write("private/file", "123");
    const ScopedPermissions readOnly(url.path(), S_IRUSR);
    EXPECT_EQ(faultOf(url), "You don't have permission to view “private”.");
}

TEST(FolderSummarizer, findsNothingInAnEmptyFolderThatMayNotBeSearched) {
    const Unprivileged nobody;
    const TemporaryFolder folder;
    const FileURL url = folder.makeFolder("private");
    const ScopedPermissions readOnly(url.path(), S_IRUSR);
    EXPECT_TRUE(FolderSummarizer::summarize(url, ample).items.empty());
}

TEST(FolderSummarizer, givesNoSizeToAChildThatMayNotBeRead) {
    const Unprivileged nobody;
    const TemporaryFolder folder;
    folder.makeFolder("private");
    folder.makeFolder("Private.app");
    folder.write("file", "123");
    const ScopedPermissions none(folder.url("private").path(), 0);
    const ScopedPermissions noneEither(folder.url("Private.app").path(), 0);
    const FolderSummary summary = FolderSummarizer::summarize(folder.url("."), ample);
    EXPECT_EQ(namesOf(summary), (Names{"file", "Private.app", "private"}));
    for (const char* name : {"private", "Private.app"}) {
        EXPECT_EQ(itemOf(summary, name).size, std::nullopt);
        EXPECT_FALSE(itemOf(summary, name).isSizeComplete);
    }
    EXPECT_TRUE(itemOf(summary, "private").isFolder);
    EXPECT_EQ(summary.totalSize, 3);
    EXPECT_FALSE(summary.isComplete);
}

TEST(FolderSummarizer, passesOverUnreadableFoldersFurtherDown) {
    const Unprivileged nobody;
    const TemporaryFolder folder;
    folder.makeFolder("a/private");
    folder.write("a/file", "123");
    folder.write("a/private/file", "12345");
    const ScopedPermissions none(folder.url("a/private").path(), 0);
    const FolderSummary summary = FolderSummarizer::summarize(folder.url("."), ample);
    EXPECT_EQ(itemOf(summary, "a").size, 3);
    EXPECT_TRUE(itemOf(summary, "a").isSizeComplete);
    EXPECT_TRUE(summary.isComplete);
}

TEST(FolderSummarizer, measuresAChildThatMayNotBeSearchedAsItIsMeasuredAlone) {
    const Unprivileged nobody;
    const TemporaryFolder folder;
    folder.makeFolder("a");
    folder.write("a/file", "123");
    const ScopedPermissions readOnly(folder.url("a").path(), S_IRUSR);
    const FolderSummary summary = FolderSummarizer::summarize(folder.url("."), ample);
    const DirectorySize alone = FolderSummarizer::directorySize(folder.url("a"), Deadline(ample));
    EXPECT_EQ(itemOf(summary, "a").size, alone.size);
    EXPECT_EQ(itemOf(summary, "a").isSizeComplete, alone.isComplete);
}

TEST_F(FolderSummarizerTest, survivesItemsThatVanishMeanwhile) {
    for (int i = 0; i < 10; ++i) makeFiles(folder, "a/folder" + std::to_string(i), 30);
    makeFiles(folder, "a", 300);
    std::atomic<bool> isRemoved = false;
    std::thread remover([this, &isRemoved] {
        std::error_code ignored;
        std::filesystem::remove_all(folder.path() / "a", ignored);
        isRemoved = true;
    });
    while (!isRemoved) {
        try {
            const FolderSummary summary = FolderSummarizer::summarize(folder.url("a"), ample);
            EXPECT_LE(summary.items.size(), 310U);
            EXPECT_LE(summary.totalSize, 600);
        } catch (const FileError& error) {
            EXPECT_STREQ(error.what(), "There is no file named “a”.");
        }
    }
    remover.join();
}

} // namespace
} // namespace quillmar
