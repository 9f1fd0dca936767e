#include "Folder/FolderSummarizer.h"

#include "Tests/Helpers/StandingClock.h"
#include "Tests/Helpers/Summaries.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace quillmar {
namespace {

using FolderBudgetTest = SummaryTest;

TEST_F(FolderBudgetTest, ofZeroLeavesFoldersWithoutSizesAndFilesWithTheirs) {
    makeFiles(folder, "folder", 3);
    makeFiles(folder, "A.app", 3);
    folder.makeFolder("empty");
    folder.write("file", "123");
    const FolderSummary summary = summarize(0, StandingClock().clock());
    for (const char* name : {"folder", "A.app", "empty"}) {
        EXPECT_EQ(itemOf(summary, name).size, std::nullopt) << name;
        EXPECT_FALSE(itemOf(summary, name).isSizeComplete) << name;
    }
    EXPECT_EQ(itemOf(summary, "file").size, 3);
    EXPECT_TRUE(itemOf(summary, "file").isSizeComplete);
    EXPECT_EQ(summary.totalSize, 3);
    EXPECT_FALSE(summary.isComplete);
}

TEST_F(FolderBudgetTest, ofLessThanZeroIsSpent) {
    makeFiles(folder, "folder", 3);
    EXPECT_EQ(itemOf(summarize(-1), "folder").size, std::nullopt);
}

TEST_F(FolderBudgetTest, ofZeroIsEnoughForFiles) {
    folder.write("file", "123");
    std::filesystem::create_directory_symlink("..", folder.path() / "link");
    EXPECT_TRUE(summarize(0).isComplete);
}

TEST_F(FolderBudgetTest, thatIsAmpleLeavesNothingOpen) {
    makeFiles(folder, "folder", 1'000);
    const FolderSummary summary = summarize();
    EXPECT_EQ(itemOf(summary, "folder").size, 1'000);
    EXPECT_TRUE(summary.isComplete);
}

TEST_F(FolderBudgetTest, thatEndsInMidWalkLeavesAFolderPartlyMeasured) {
    makeFiles(folder, "folder", 1'000);
    folder.write("file", "123");
    StandingClock clock;
    clock.leapAt(3); // the deadline's making, the folder's beginning, the 256th entry
    const FolderSummary summary = summarize(1, clock.clock());
    EXPECT_EQ(itemOf(summary, "folder").size, 255);
    EXPECT_FALSE(itemOf(summary, "folder").isSizeComplete);
    EXPECT_EQ(summary.totalSize, 258);
    EXPECT_FALSE(summary.isComplete);
}

TEST_F(FolderBudgetTest, thatEndsInMidWalkLeavesFoldersThatWereNotBegunWithoutSizes) {
    for (const char* name : {"a", "b", "c"}) makeFiles(folder, name, 300);
    StandingClock clock;
    clock.leapAt(3);
    const FolderSummary summary = summarize(1, clock.clock());
    EXPECT_EQ(summary.items.size(), 3U);
    EXPECT_EQ(summary.items[0].size, 255); // which of them it is depends on the file system
    EXPECT_EQ(summary.items[1].size, std::nullopt);
    EXPECT_EQ(summary.items[2].size, std::nullopt);
    for (const FolderItem& item : summary.items) EXPECT_FALSE(item.isSizeComplete);
    EXPECT_EQ(summary.totalSize, 255);
}

TEST_F(FolderBudgetTest, isSharedByAllFolders) {
    for (const char* name : {"a", "b", "c"}) makeFiles(folder, name, 10);
    StandingClock clock;
    clock.leapAt(3); // after the first folder's beginning
    const FolderSummary summary = summarize(1, clock.clock());
    EXPECT_EQ(summary.items[0].size, 10);
    EXPECT_TRUE(summary.items[0].isSizeComplete);
    EXPECT_EQ(summary.items[1].size, std::nullopt);
    EXPECT_EQ(summary.items[2].size, std::nullopt);
}

TEST_F(FolderBudgetTest, coversFilesInFoldersOnlyAndNotTheirNumber) {
    makeFiles(folder, ".", 600);
    const FolderSummary summary = summarize(0);
    EXPECT_EQ(summary.totalSize, 600);
    EXPECT_TRUE(summary.isComplete);
}

TEST_F(FolderBudgetTest, isNotSpentOnAFolderThatHasVanished) {
    makeFiles(folder, "folder", 3);
    StandingClock clock;
    clock.onLook([this](std::size_t look) {
        if (look == 2) std::filesystem::remove_all(folder.path() / "folder"); // as it is to be measured
    });
    const FolderSummary summary = summarize(1, clock.clock());
    EXPECT_TRUE(itemOf(summary, "folder").isFolder);
    EXPECT_EQ(itemOf(summary, "folder").size, std::nullopt);
    EXPECT_FALSE(summary.isComplete);
}

TEST_F(FolderBudgetTest, isNotSpentOnALinkThatHasTakenAFoldersPlace) {
    makeFiles(folder, "folder", 3);
    const TemporaryFolder elsewhere;
    elsewhere.write("secret", "123");
    StandingClock clock;
    clock.onLook([&](std::size_t look) {
        if (look != 2) return;
        std::filesystem::remove_all(folder.path() / "folder");
        std::filesystem::create_directory_symlink(elsewhere.path(), folder.path() / "folder");
    });
    EXPECT_EQ(itemOf(summarize(1, clock.clock()), "folder").size, std::nullopt);
}

} // namespace
} // namespace quillmar
