#include "Markdown/TextBoundaries.h"

#include <gtest/gtest.h>
#include <string>

namespace quillmar::Markdown {
namespace {

TEST(TextBoundaries, findsTheEndOfWhiteSpace) {
    EXPECT_EQ(endOfWhiteSpace("a \t\u00A0\u2028\r\nb", 1), 10U);
    EXPECT_EQ(endOfWhiteSpace("a", 0), 0U);
    EXPECT_EQ(endOfWhiteSpace("a  ", 1), 3U);
    EXPECT_EQ(endOfWhiteSpace("a", 1), 1U);
}

TEST(TextBoundaries, findsTheStartOfWhiteSpace) {
    EXPECT_EQ(startOfWhiteSpace("a \t\u00A0\u2028\r\nb", 0, 10), 1U);
    EXPECT_EQ(startOfWhiteSpace("a", 0, 1), 1U);
    EXPECT_EQ(startOfWhiteSpace("  ", 0, 2), 0U);
}

TEST(TextBoundaries, looksForWhiteSpaceNoFurtherThanAllowed) {
    EXPECT_EQ(startOfWhiteSpace("   =", 1, 3), 1U);
    EXPECT_EQ(startOfWhiteSpace("   =", 3, 3), 3U);
}

TEST(TextBoundaries, aWordEndsAtTheEndAndBeforeOtherCharacters) {
    EXPECT_TRUE(isWordEnd("img", 3));
    for (const std::string next : {" ", ">", "-", "/", "\u00A0", "\u2014", "\uFFFD", "\xFF"})
        EXPECT_TRUE(isWordEnd("img" + next, 3)) << next;
}

TEST(TextBoundaries, aWordDoesNotEndBeforeWhatBelongsToIt) {
    for (const std::string next : {"s", "1", "_", "\u00E9", "\u203F", "\u0301", "\u200D", "\u00AD", "\u200B"})
        EXPECT_FALSE(isWordEnd("img" + next, 3)) << next;
}

TEST(TextBoundaries, aWordStartsAtTheStartAndBehindOtherCharacters) {
    EXPECT_TRUE(isWordStart("src", 0));
    for (const std::string before : {" ", "<", "-", "\u00A0", "\u2014", "\xFF"})
        EXPECT_TRUE(isWordStart(before + "src", before.size())) << before;
    for (const std::string before : {"s", "1", "_", "\u00E9", "\u203F"})
        EXPECT_FALSE(isWordStart(before + "src", before.size())) << before;
}

TEST(TextBoundaries, looksThroughExtendingCharacters) {
    std::string extending;
    for (int i = 0; i < 1'000; ++i) extending += "\u0301\u200D\u00AD";
    EXPECT_TRUE(isWordStart(extending + "src", extending.size()));
    EXPECT_TRUE(isWordStart("-" + extending + "src", 1 + extending.size()));
    EXPECT_FALSE(isWordStart("x" + extending + "src", 1 + extending.size()));
}

} // namespace
} // namespace quillmar::Markdown
