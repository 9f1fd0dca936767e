#include "Markdown/Headings.h"

#include <gtest/gtest.h>
#include <string>

namespace quillmar::Markdown {
namespace {

std::optional<ATXHeading> parse(std::string_view line) { return ATXHeading::parse(Line(line)); }

/// Of lines that are one.
std::string text(std::string_view line) {
    const auto heading = parse(line);
    return heading ? std::string(heading->text) : "(no heading)";
}

int setext(std::string_view line) { return setextLevel(Line(line)); }

TEST(ATXHeading, hasTheLevelOfItsHashes) {
    std::string line = " a";
    for (int level = 1; level <= 6; ++level) {
        line.insert(0, 1, '#');
        const auto heading = parse(line);
        ASSERT_TRUE(heading) << line;
        EXPECT_EQ(heading->level, level);
        EXPECT_EQ(heading->text, "a");
    }
    EXPECT_FALSE(parse("#" + line));
}

TEST(ATXHeading, needsASpaceBeforeItsText) {
    for (const std::string_view line : {"#a", "#\ta", "#\u00A0a", "#\v", "#\\ a", "##.", "#\xFF"})
        EXPECT_FALSE(parse(line)) << line;
}

TEST(ATXHeading, isNothingElse) {
    for (const std::string_view line : {"", "   ", "a", "a # b", "\\# a", "\v# a", "####### a", "#######"})
        EXPECT_FALSE(parse(line)) << line;
}

TEST(ATXHeading, mayStandBehindWhatTrimmingRemoves) {
    EXPECT_EQ(text("   # a"), "a");
    EXPECT_EQ(text("\u00A0\t# a"), "a");
    EXPECT_FALSE(parse("    # a"));
}

TEST(ATXHeading, hasItsTextTrimmed) {
    EXPECT_EQ(text("# \t\u00A0 a  b \u3000\t"), "a  b");
    EXPECT_EQ(text("# \va\f"), "\va\f");
}

TEST(ATXHeading, mayHaveNoText) {
    for (const std::string_view line : {"#", "# ", "##\t", "#\u00A0", "## \u3000 "})
        EXPECT_EQ(text(line), "") << line;
}

TEST(ATXHeading, losesItsClosingHashes) {
    EXPECT_EQ(text("# a #"), "a");
    EXPECT_EQ(text("# a ########"), "a");
    EXPECT_EQ(text("# a # # "), "a #");
    EXPECT_EQ(text("# # a ##"), "# a");
}

TEST(ATXHeading, losesTheWhiteSpaceBeforeItsClosingHashes) {
    EXPECT_EQ(text("# a \t #"), "a");
    EXPECT_EQ(text("# a\u00A0\u2028\v#"), "a");
    EXPECT_EQ(text("# \v#"), "");
}

TEST(ATXHeading, keepsHashesThatCloseNothing) {
    EXPECT_EQ(text("# a#"), "a#");
    EXPECT_EQ(text("# a \\#"), "a \\#");
    EXPECT_EQ(text("# a #b"), "a #b");
    EXPECT_EQ(text("# #a#"), "#a#");
    EXPECT_EQ(text("# a\u200B#"), "a\u200B#");
    EXPECT_EQ(text("# \xFF#"), "\xFF#");
}

TEST(ATXHeading, ofNothingButHashesHasNoText) {
    EXPECT_EQ(text("# #"), "");
    EXPECT_EQ(text("### ####"), "");
    EXPECT_EQ(text("# # #"), "#");
}

TEST(ATXHeading, mayHaveOneLineTerminatorBehindItsClosingHashes) {
    for (const std::string_view terminator : {"\v", "\f", "\u0085", "\u2028", "\u2029"})
        EXPECT_EQ(text(std::string("# a #").append(terminator)), "a") << terminator;
    EXPECT_EQ(text("# a #\v\v"), "a #\v\v");
    EXPECT_EQ(text("# #\u2028"), "#\u2028"); // white space must stand before them
}

TEST(ATXHeading, textIsAViewIntoTheLineWhenItIsEmptyToo) {
    for (const std::string line : {"#", "## ##", "# \v#", "# a"}) {
        const auto heading = parse(line);
        ASSERT_TRUE(heading) << line;
        EXPECT_GE(heading->text.data(), line.data()) << line;
        EXPECT_LE(heading->text.data() + heading->text.size(), line.data() + line.size()) << line;
    }
}

TEST(SetextLevel, isOneForEqualsSigns) {
    EXPECT_EQ(setext("="), 1);
    EXPECT_EQ(setext("======"), 1);
}

TEST(SetextLevel, isTwoForHyphens) {
    EXPECT_EQ(setext("-"), 2);
    EXPECT_EQ(setext("---"), 2);
}

TEST(SetextLevel, isNoneForTwoKindsOfCharacters) {
    for (const std::string_view line : {"=-", "--=", "==a", "= =", "- - -", "-\v", "=\u2028", "\v=", "--\xFF"})
        EXPECT_EQ(setext(line), 0) << line;
}

TEST(SetextLevel, isNoneForOtherLines) {
    for (const std::string_view line : {"", "  ", "\u00A0", "a", "***", "___", "\u2014"})
        EXPECT_EQ(setext(line), 0) << line;
}

TEST(SetextLevel, looksAtTheTrimmedLine) {
    EXPECT_EQ(setext("   === \t"), 1);
    EXPECT_EQ(setext("\u00A0\t--\u3000"), 2);
}

TEST(SetextLevel, isNoneForWhatIsIndentedAsCode) {
    EXPECT_EQ(setext("    ==="), 0);
    EXPECT_EQ(setext("    ---"), 0);
}

} // namespace
} // namespace quillmar::Markdown
