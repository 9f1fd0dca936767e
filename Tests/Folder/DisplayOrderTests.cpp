#include "Folder/DisplayOrder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <utility>

namespace quillmar {
namespace {

using Names = std::vector<std::string>;
using Items = std::vector<FolderItem>;

FolderItem item(std::string name, std::optional<std::int64_t> size = 0, const std::string& path = "item") {
    FolderItem item{.url = FileURL::root().appendingPathComponent(path)};
    item.name = std::move(name);
    item.size = size;
    return item;
}

Names namesOf(const Items& items) {
    Names names;
    for (const FolderItem& item : items) names.push_back(item.name);
    return names;
}

Names sorted(Items items) {
    sortForDisplay(items);
    return namesOf(items);
}

TEST(DisplayOrder, ofNothingIsNothing) { EXPECT_EQ(sorted({}), Names{}); }

TEST(DisplayOrder, putsTheLargestFirst) {
    EXPECT_EQ(sorted({item("a", 2), item("b", 10), item("c", 9)}), (Names{"b", "c", "a"}));
}

TEST(DisplayOrder, putsWhatHasNoSizeBehindWhatIsEmpty) {
    EXPECT_EQ(sorted({item("a", std::nullopt), item("b", 0), item("c", 1)}), (Names{"c", "b", "a"}));
}

TEST(DisplayOrder, putsItemsWithoutASizeInTheOrderOfTheirNames) {
    EXPECT_EQ(sorted({item("b", std::nullopt), item("a", std::nullopt)}), (Names{"a", "b"}));
}

TEST(DisplayOrder, ofEqualSizesIsThatOfCodePoints) {
    EXPECT_EQ(sorted({item("a"), item("b"), item("B"), item("9"), item("10"), item("")}),
              (Names{"", "10", "9", "B", "a", "b"}));
}

TEST(DisplayOrder, putsANameBehindItsBeginning) {
    EXPECT_EQ(sorted({item("ab"), item("a b"), item("a")}), (Names{"a", "a b", "ab"}));
}

TEST(DisplayOrder, comparesCodePointsBeyondSixteenBitsByTheirNumber) {
    // U+FF5E, U+1F600: as UTF-16 the second would come first.
    EXPECT_EQ(sorted({item("\U0001F600"), item("\uFF5E"), item("z")}), (Names{"z", "\uFF5E", "\U0001F600"}));
}

TEST(DisplayOrder, comparesComposedForms) {
    // "e" with a combining acute accent is U+00E9, which comes behind "f".
    EXPECT_EQ(sorted({item("e\u0301"), item("f"), item("\u00EA")}), (Names{"f", "e\u0301", "\u00EA"}));
}

TEST(DisplayOrder, keepsItemsOfEqualNamesAsTheyStand) {
    Items items{item("\u00E9", 1, "first"), item("e\u0301", 1, "second"), item("\u00E9", 1, "third")};
    sortForDisplay(items);
    ASSERT_EQ(items.size(), 3U);
    EXPECT_EQ(items[0].url.path(), "/first");
    EXPECT_EQ(items[1].url.path(), "/second");
    EXPECT_EQ(items[2].url.path(), "/third");
}

TEST(DisplayOrder, isFoundFromAnyOtherOrder) {
    Names names{"a", "b", "c", "d", "e"};
    const Names expected = names;
    do {
        Items items;
        for (const std::string& name : names) items.push_back(item(name));
        EXPECT_EQ(sorted(items), expected) << testing::PrintToString(names);
    } while (std::next_permutation(names.begin(), names.end()));
}

TEST(DisplayOrder, ofManyItemsIsThatOfAPlainStableSort) {
    std::mt19937 random(1);
    Items items;
    for (int i = 0; i < 2'000; ++i)
        items.push_back(
            item(std::to_string(random() % 50), static_cast<std::int64_t>(random() % 5), std::to_string(i)));
    Items expected = items;
    std::stable_sort(expected.begin(), expected.end(), [](const FolderItem& a, const FolderItem& b) {
        return a.size != b.size ? a.size > b.size : a.name < b.name;
    });
    sortForDisplay(items);
    for (std::size_t i = 0; i < items.size(); ++i) EXPECT_EQ(items[i].url, expected[i].url) << i;
}

TEST(DisplayOrder, keepsAllThatIsKnownOfAnItem) {
    FolderItem all = item("a.app", 7, "a.app");
    all.isHidden = true;
    all.isSizeComplete = true;
    all.modified = 123;
    all.typeIdentifier = "com.apple.application-bundle";
    all.kind = FileKind::apps;
    Items items{item("b", 1), item("c", 2), all};
    sortForDisplay(items);
    ASSERT_EQ(items.size(), 3U);
    EXPECT_EQ(items[0].url, all.url);
    EXPECT_EQ(items[0].name, "a.app");
    EXPECT_FALSE(items[0].isFolder);
    EXPECT_TRUE(items[0].isHidden);
    EXPECT_EQ(items[0].size, 7);
    EXPECT_TRUE(items[0].isSizeComplete);
    EXPECT_EQ(items[0].modified, 123);
    EXPECT_EQ(items[0].typeIdentifier, "com.apple.application-bundle");
    EXPECT_EQ(items[0].kind, FileKind::apps);
}

} // namespace
} // namespace quillmar
