#include "Folder/FolderSummary.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>

namespace quillmar {
namespace {

using Parts = std::vector<CompositionPart>;

FolderItem item(std::string name, FileKind kind, std::optional<std::int64_t> size) {
    FolderItem item{.url = FileURL::root().appendingPathComponent(name)};
    item.isHidden = name.starts_with('.');
    item.name = std::move(name);
    item.kind = kind;
    item.size = size;
    return item;
}

FolderSummary summaryOf(std::vector<FolderItem> items) {
    return {.url = FileURL::root(), .items = std::move(items)};
}

TEST(FolderSummary, ofNothingIsCompleteAndEmpty) {
    const FolderSummary summary = summaryOf({});
    EXPECT_TRUE(summary.isComplete);
    EXPECT_EQ(summary.totalSize, 0);
    EXPECT_TRUE(summary.visibleItems().empty());
    EXPECT_EQ(summary.hiddenCount(), 0);
    EXPECT_TRUE(summary.breakdown().empty());
}

TEST(FolderSummary, showsVisibleItemsInTheirOrder) {
    const FolderSummary summary = summaryOf(
        {item("b", FileKind::other, 3), item(".x", FileKind::other, 2), item("a", FileKind::other, 1)});
    const auto visible = summary.visibleItems();
    ASSERT_EQ(visible.size(), 2U);
    EXPECT_EQ(visible[0], &summary.items[0]);
    EXPECT_EQ(visible[1], &summary.items[2]);
}

TEST(FolderSummary, countsHiddenItems) {
    EXPECT_EQ(summaryOf({item(".a", FileKind::other, 0), item("b", FileKind::other, 0),
                         item(".c", FileKind::other, std::nullopt)})
                  .hiddenCount(),
              2);
}

TEST(FolderSummary, breaksDownHiddenItemsAsWell) {
    const FolderSummary summary =
        summaryOf({item(".git", FileKind::folders, 500), item("a.txt", FileKind::documents, 1)});
    EXPECT_EQ(summary.breakdown(), (Parts{{FileKind::folders, 500, 1}, {FileKind::documents, 1, 1}}));
}

TEST(FolderSummary, addsUpTheItemsOfAKind) {
    const FolderSummary summary = summaryOf(
        {item("a", FileKind::images, 10), item("b", FileKind::code, 15), item("c", FileKind::images, 6)});
    EXPECT_EQ(summary.breakdown(), (Parts{{FileKind::images, 16, 2}, {FileKind::code, 15, 1}}));
}

TEST(FolderSummary, countsAnItemWithoutASizeAsNothing) {
    const FolderSummary summary =
        summaryOf({item("a", FileKind::folders, 4), item("b", FileKind::folders, std::nullopt)});
    EXPECT_EQ(summary.breakdown(), (Parts{{FileKind::folders, 4, 2}}));
}

TEST(FolderSummary, keepsAKindOfWhichNothingHasASize) {
    const FolderSummary summary =
        summaryOf({item("a", FileKind::other, 0), item("b", FileKind::folders, std::nullopt)});
    EXPECT_EQ(summary.breakdown(), (Parts{{FileKind::folders, 0, 1}, {FileKind::other, 0, 1}}));
}

TEST(FolderSummary, breakdownStopsAtTheLimitOfItsNumbers) {
    constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
    const FolderSummary summary =
        summaryOf({item("a", FileKind::other, most), item("b", FileKind::other, most)});
    EXPECT_EQ(summary.breakdown(), (Parts{{FileKind::other, most, 2}}));
}

} // namespace
} // namespace quillmar
