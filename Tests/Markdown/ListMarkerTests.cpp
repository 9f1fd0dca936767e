#include "Markdown/ListMarker.h"

#include <gtest/gtest.h>
#include <string>

namespace quillmar::Markdown {
namespace {

std::optional<ListMarker> parse(std::string_view line) { return ListMarker::parse(Line(line)); }

/// For lines that have one.
ListMarker marker(std::string_view line) { return parse(line).value_or(ListMarker{.content = "(none)"}); }

TEST(ListMarker, knowsItsBullet) {
    for (const char bullet : {'-', '*', '+'}) {
        const std::string line = std::string(1, bullet).append(" a");
        const ListMarker found = marker(line);
        EXPECT_FALSE(found.ordered);
        EXPECT_EQ(found.delimiter, bullet);
        EXPECT_EQ(found.start, 1U);
        EXPECT_EQ(found.content, "a");
    }
}

TEST(ListMarker, knowsItsNumberAndWhatFollowsIt) {
    const ListMarker found = marker("12) a");
    EXPECT_TRUE(found.ordered);
    EXPECT_EQ(found.delimiter, ')');
    EXPECT_EQ(found.start, 12U);
    EXPECT_EQ(marker("12. a").delimiter, '.');
}

TEST(ListMarker, readsItsNumberInDecimal) {
    EXPECT_EQ(marker("0. a").start, 0U);
    EXPECT_EQ(marker("010. a").start, 10U);
    EXPECT_EQ(marker("999999999. a").start, 999'999'999U);
}

TEST(ListMarker, countsTheSpacesBeforeIt) {
    EXPECT_EQ(marker("- a").indent, 0U);
    EXPECT_EQ(marker("   - a").indent, 3U);
    EXPECT_EQ(marker("  1. a").indent, 2U);
}

TEST(ListMarker, countsTheColumnsBeforeItsContent) {
    EXPECT_EQ(marker("- a").contentIndent, 2U);
    EXPECT_EQ(marker("  - a").contentIndent, 4U);
    EXPECT_EQ(marker("10. a").contentIndent, 4U);
    EXPECT_EQ(marker("   123456789.    a").contentIndent, 17U); // as wide as it can be
}

TEST(ListMarker, hasOneToFourSpacesOfPadding) {
    EXPECT_EQ(marker("-    a").contentIndent, 5U);
    EXPECT_EQ(marker("-    a").content, "a");
    EXPECT_EQ(marker("1.  a").contentIndent, 4U);
    EXPECT_EQ(marker("1.  a").content, "a");
}

TEST(ListMarker, hasOneSpaceOfPaddingBeforeCode) {
    EXPECT_EQ(marker("-     a").contentIndent, 2U);
    EXPECT_EQ(marker("-     a").content, "    a");
    EXPECT_EQ(marker("-         a").content, "        a");
}

TEST(ListMarker, hasOneColumnOfPaddingAtTheEndOfItsLine) {
    for (const std::string_view line : {"-", "- ", "-   ", "-          "})
        EXPECT_EQ(marker(line).contentIndent, 2U) << line.size();
    EXPECT_EQ(marker("7)").contentIndent, 3U);
}

TEST(ListMarker, mayHaveNoContent) {
    EXPECT_EQ(marker("-").content, "");
    EXPECT_EQ(marker("- ").content, "");
    EXPECT_EQ(marker("-   ").content, "  ");
    EXPECT_EQ(marker("1.").content, "");
}

TEST(ListMarker, keepsTheEndOfItsLine) {
    EXPECT_EQ(marker("- a \t").content, "a \t");
    EXPECT_EQ(marker("- - a").content, "- a");
    EXPECT_EQ(marker("- \ta").content, "\ta");
}

TEST(ListMarker, contentIsAViewIntoTheLine) {
    const std::string line = " -  a";
    EXPECT_EQ(marker(line).content.data(), line.data() + 4);
}

TEST(ListMarker, mayStandInWhatOtherMarkersLeaveOfALine) {
    Line line("    - a");
    EXPECT_FALSE(ListMarker::parse(line));
    line.dropIndentation(2);
    const auto found = ListMarker::parse(line);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->indent, 2U);
    EXPECT_EQ(found->contentIndent, 4U);
}

TEST(ListMarker, isNoneInOtherLines) {
    for (const std::string_view line :
         {"",          "   ",        "a",        "-a",     "--",    "-\ta",          "-\u00A0a",
          "\u00A0- a", "\t- a",      "1",        "123",    "1.a",   "1.\ta",         "1: a",
          "1 . a",     ".",          ") a",      "1.) a",  "-1. a", "1234567890. a", "1234567890",
          "\uFF11. a", "1\u0663. a", "\u2022 a", "\xFF a", "1\xFF", "\\- a"})
        EXPECT_FALSE(parse(line)) << line;
}

} // namespace
} // namespace quillmar::Markdown
