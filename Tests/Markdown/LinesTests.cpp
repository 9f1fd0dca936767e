#include "Markdown/Lines.h"

#include <gtest/gtest.h>
#include <random>
#include <utility>
#include <vector>

namespace quillmar::Markdown {
namespace {

using Lines = std::vector<std::string_view>;

Lines linesOf(std::string_view text) {
    Lines lines;
    LineReader reader(text);
    while (!reader.atEnd()) lines.push_back(reader.next());
    return lines;
}

TEST(Lines, areBlankWithNothingButSpacesAndTabs) {
    EXPECT_TRUE(isBlank(""));
    EXPECT_TRUE(isBlank(" \t  \t"));
    EXPECT_FALSE(isBlank("  x"));
}

TEST(Lines, areNotBlankWithOtherWhiteSpace) {
    EXPECT_FALSE(isBlank("\u00A0"));
    EXPECT_FALSE(isBlank(" \v "));
    EXPECT_FALSE(isBlank("\u2028"));
}

TEST(Lines, areIndentedBySpacesAlone) {
    EXPECT_EQ(indentation(""), 0U);
    EXPECT_EQ(indentation("x "), 0U);
    EXPECT_EQ(indentation("   x"), 3U);
    EXPECT_EQ(indentation("  \t x"), 2U);
    EXPECT_EQ(indentation(" \u00A0x"), 1U);
    EXPECT_EQ(indentation("    "), 4U);
}

TEST(Lines, loseAtMostTheGivenIndentation) {
    EXPECT_EQ(withoutIndentation("   x", 0), "   x");
    EXPECT_EQ(withoutIndentation("   x", 2), " x");
    EXPECT_EQ(withoutIndentation("   x", 3), "x");
    EXPECT_EQ(withoutIndentation("   x", 9), "x");
    EXPECT_EQ(withoutIndentation("  ", 4), "");
    EXPECT_EQ(withoutIndentation("\tx", 4), "\tx");
}

TEST(Trimming, removesHorizontalWhiteSpaceAtBothEnds) {
    EXPECT_EQ(trimmed(" \t a b \t "), "a b");
    EXPECT_EQ(trimmed("\u00A0\u3000 a\u1680b \u202F\u2003\u205F"), "a\u1680b");
    EXPECT_EQ(trimmed(" \u00A0\t"), "");
    EXPECT_EQ(trimmed(""), "");
}

TEST(Trimming, keepsLineBreaksAndInvisibleCharacters) {
    for (const std::string_view kept :
         {"\n", "\v", "\f", "\r", "\x1F", "\x7F", "\u0085", "\u2028", "\u2029", "\u200B", "\uFEFF"}) {
        const std::string text = std::string(" ").append(kept).append(" ");
        EXPECT_EQ(trimmed(text), kept);
    }
    EXPECT_EQ(trimmed(std::string_view("\0 ", 2)), std::string_view("\0", 1));
}

TEST(Trimming, ofTheStartLeavesTheEnd) { EXPECT_EQ(trimmedStart("\t \u2009a "), "a "); }

TEST(Trimming, keepsBytesThatAreNotUTF8) {
    EXPECT_EQ(trimmed(" \xA0 "), "\xA0");
    EXPECT_EQ(trimmed(" \xC2 "), "\xC2");
    EXPECT_EQ(trimmed("\x80\x80 "), "\x80\x80");
    EXPECT_EQ(trimmed(" \xED\xA0\x80\t"), "\xED\xA0\x80");
    EXPECT_EQ(trimmed("\xE3\x80"), "\xE3\x80");
}

TEST(TabExpansion, goesToTheNextMultipleOfFour) {
    EXPECT_EQ(expandLeadingTabs("\tx"), "    x");
    EXPECT_EQ(expandLeadingTabs(" \tx"), "    x");
    EXPECT_EQ(expandLeadingTabs("  \tx"), "    x");
    EXPECT_EQ(expandLeadingTabs("   \tx"), "    x");
    EXPECT_EQ(expandLeadingTabs("    \tx"), "        x");
    EXPECT_EQ(expandLeadingTabs("\t \t x"), "         x");
    EXPECT_EQ(expandLeadingTabs("\t"), "    ");
}

TEST(TabExpansion, leavesTabsBehindTheText) {
    EXPECT_EQ(expandLeadingTabs("  x\ty\t"), "  x\ty\t");
    EXPECT_EQ(expandLeadingTabs("\tx\ty"), "    x\ty");
    EXPECT_EQ(expandLeadingTabs("-\tx"), "-\tx");
    EXPECT_EQ(expandLeadingTabs(" \u00A0\tx"), " \u00A0\tx");
    EXPECT_EQ(expandLeadingTabs(""), "");
}

TEST(NormalizedLines, haveLineFeedsForEveryLineBreak) {
    EXPECT_EQ(normalizedLines("a\r\nb\rc\nd"), "a\nb\nc\nd");
    EXPECT_EQ(normalizedLines("\r\r\n\n\r"), "\n\n\n\n");
    EXPECT_EQ(normalizedLines("\r"), "\n");
    EXPECT_EQ(normalizedLines("\r\n"), "\n");
    EXPECT_EQ(normalizedLines("a\r"), "a\n");
}

TEST(NormalizedLines, keepOtherLineSeparators) {
    EXPECT_EQ(normalizedLines("a\vb\fc\u0085d\u2028e\u2029"), "a\vb\fc\u0085d\u2028e\u2029");
}

TEST(NormalizedLines, haveTheirLeadingTabsExpanded) {
    EXPECT_EQ(normalizedLines("a\tb\n\tc\td\n \t\n  \te"), "a\tb\n    c\td\n    \n    e");
    EXPECT_EQ(normalizedLines("\ta\r\n\tb\r\tc"), "    a\n    b\n    c");
    EXPECT_EQ(normalizedLines("x  \t\n  x\t  \t\n\t"), "x  \t\n  x\t  \t\n    ");
}

TEST(NormalizedLines, areNotCopiedWhenNothingIsToBeDone) {
    std::string text = "# Heading\n\n  text\twith a tab \t and  \t spaces\n";
    const char* bytes = text.data();
    const std::string lines = normalizedLines(std::move(text));
    EXPECT_EQ(lines, "# Heading\n\n  text\twith a tab \t and  \t spaces\n");
    EXPECT_EQ(lines.data(), bytes);
}

TEST(NormalizedLines, areTheSameAsLineByLine) {
    std::mt19937 random(1); // the same texts every time
    constexpr std::string_view alphabet = " \t\t\r\n\nx";
    for (int round = 0; round < 20'000; ++round) {
        std::string text;
        for (std::size_t length = random() % 16; length > 0; --length)
            text += alphabet[random() % alphabet.size()];

        std::string expected;
        std::string line;
        for (std::size_t i = 0; i < text.size(); ++i) {
            const bool isBreak = text[i] == '\n' || text[i] == '\r';
            if (!isBreak) line += text[i];
            if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
            if (!isBreak) continue;
            expected.append(expandLeadingTabs(line)).append("\n");
            line.clear();
        }
        expected.append(expandLeadingTabs(line));
        ASSERT_EQ(normalizedLines(text), expected) << testing::PrintToString(text);
    }
}

TEST(LineReader, handsOutOneLineAfterTheOther) {
    EXPECT_EQ(linesOf("a\n\nbc"), (Lines{"a", "", "bc"}));
    EXPECT_EQ(linesOf("a"), (Lines{"a"}));
}

TEST(LineReader, hasAnEmptyLineBehindAFinalLineBreak) { EXPECT_EQ(linesOf("a\n"), (Lines{"a", ""})); }

TEST(LineReader, hasOneLineInAnEmptyText) { EXPECT_EQ(linesOf(""), (Lines{""})); }

TEST(LineReader, handsOutViewsIntoTheText) {
    const std::string text = "a\nb";
    EXPECT_EQ(linesOf(text).at(1).data(), text.data() + 2);
}

} // namespace
} // namespace quillmar::Markdown
