#include "Markdown/TextIndex.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

TEST(TextIndex, numbersTextsInTheirOrder) {
    TextIndex index;
    EXPECT_EQ(index.insert("pear"), 0U);
    EXPECT_EQ(index.insert("apple"), 1U);
    EXPECT_EQ(index.insert("pear"), 0U);
    EXPECT_EQ(index.insert(""), 2U);
    EXPECT_EQ(index.size(), 3U);
}

TEST(TextIndex, findsWhatItHoldsAndNothingElse) {
    TextIndex index;
    EXPECT_EQ(index.find(""), TextIndex::none);
    index.insert("ab");
    index.insert("c");
    EXPECT_EQ(index.find("c"), 1U);
    EXPECT_EQ(index.find("a"), TextIndex::none);
    EXPECT_EQ(index.find("abc"), TextIndex::none);
    EXPECT_EQ(index.find(""), TextIndex::none);
}

TEST(TextIndex, comparesBytes) {
    TextIndex index;
    index.insert(std::string_view("a\0b", 3));
    EXPECT_EQ(index.find(std::string_view("a\0c", 3)), TextIndex::none);
    EXPECT_EQ(index.find(std::string_view("a\0b", 3)), 0U);
    EXPECT_EQ(index.find("A"), TextIndex::none);
}

TEST(TextIndex, keepsWhatItHoldsWhileItGrows) {
    TextIndex index;
    for (std::size_t i = 0; i < 10'000; ++i) EXPECT_EQ(index.insert(std::to_string(i)), i);
    for (std::size_t i = 0; i < 10'000; ++i) EXPECT_EQ(index.find(std::to_string(i)), i);
    EXPECT_EQ(index.find("10000"), TextIndex::none);
}

} // namespace
} // namespace quillmar
