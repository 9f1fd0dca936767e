#include "Markdown/ThematicBreak.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>

namespace quillmar::Markdown {
namespace {

/// Whether the end of \p line from \p position on is one, asked of the whole line.
bool endIsBreak(std::string_view line, std::size_t position) {
    return ThematicBreaks(line).isThematicBreak(Line(line.substr(position)));
}

/// The rule, for lines of ASCII whose only white space are spaces.
bool isPlainBreak(std::string line) {
    if (line.starts_with("    ")) return false;
    line.erase(std::remove(line.begin(), line.end(), ' '), line.end());
    const bool isMark = line.starts_with('-') || line.starts_with('*') || line.starts_with('_');
    return isMark && line.size() >= 3 && line.find_first_not_of(line[0]) == std::string::npos;
}

TEST(ThematicBreak, hasThreeMarksOrMore) {
    for (const std::string_view line : {"---", "***", "___", "- - -", "**  *", "-----------"})
        EXPECT_TRUE(isThematicBreak(line)) << line;
    for (const std::string_view line : {"", "   ", "-", "--", "* *", "_ _ "})
        EXPECT_FALSE(isThematicBreak(line)) << line;
}

TEST(ThematicBreak, hasOneKindOfMark) {
    for (const std::string_view line : {"-*-", "**_", "--- *", "===", "+++", "~~~", "\u2014\u2014\u2014"})
        EXPECT_FALSE(isThematicBreak(line)) << line;
}

TEST(ThematicBreak, hasNothingElse) {
    for (const std::string_view line : {"---a", "a---", "--a-", "---\\", "-\u200B--", "---\xFF", "\xFF---"})
        EXPECT_FALSE(isThematicBreak(line)) << line;
}

TEST(ThematicBreak, mayHaveWhiteSpaceOfAnyKindAnywhere) {
    for (const std::string_view line :
         {"\t-\t-\t-\t", "\u00A0***", "*\u3000*\u2003*", "\v---", "-\f--", "---\u2028", "\u0085_\u2029__"})
        EXPECT_TRUE(isThematicBreak(line)) << line;
}

TEST(ThematicBreak, isNotIndentedAsCode) {
    EXPECT_TRUE(isThematicBreak("   ---"));
    EXPECT_FALSE(isThematicBreak("    ---"));
    EXPECT_TRUE(isThematicBreak("\u00A0    ---"));
}

TEST(ThematicBreaks, mayBeTheEndOfALine) {
    EXPECT_TRUE(endIsBreak("> - ---", 4));
    EXPECT_TRUE(endIsBreak("* - - -", 2));
    EXPECT_FALSE(endIsBreak("* - - -", 0));
    EXPECT_TRUE(endIsBreak("a ***", 1));
    EXPECT_FALSE(endIsBreak("a ***", 0));
}

TEST(ThematicBreaks, endWhereThereAreNotEnoughMarks) {
    const std::string_view line = "- - - -";
    EXPECT_TRUE(endIsBreak(line, 0));
    EXPECT_TRUE(endIsBreak(line, 2));
    EXPECT_FALSE(endIsBreak(line, 4));
    EXPECT_FALSE(endIsBreak(line, 6));
    EXPECT_FALSE(endIsBreak(line, line.size()));
}

TEST(ThematicBreaks, areAskedOfLinesWithoutTheirIndentation) {
    const std::string_view text = "      ---";
    ThematicBreaks breaks(text);
    Line line(text);
    EXPECT_FALSE(breaks.isThematicBreak(line));
    line.dropIndentation(4);
    EXPECT_TRUE(breaks.isThematicBreak(line));
}

TEST(ThematicBreaks, areAskedOfLinesWithoutTheWhiteSpaceAtTheirEnd) {
    const std::string_view text = "  --- \t";
    ThematicBreaks breaks(text);
    EXPECT_TRUE(breaks.isThematicBreak(Line(text.substr(2, 3))));
}

TEST(ThematicBreaks, areFoundAtEveryEndOfEveryLine) {
    // All lines of up to seven of these characters.
    constexpr std::string_view alphabet = " -*a";
    for (std::size_t length = 1; length <= 7; ++length) {
        std::size_t lines = 1;
        for (std::size_t i = 0; i < length; ++i) lines *= alphabet.size();
        for (std::size_t number = 0; number < lines; ++number) {
            std::string text;
            for (std::size_t i = 0, rest = number; i < length; ++i, rest /= alphabet.size())
                text += alphabet[rest % alphabet.size()];
            ThematicBreaks breaks(text);
            for (std::size_t start = 0; start <= length; ++start) {
                const Line end(std::string_view(text).substr(start));
                ASSERT_EQ(breaks.isThematicBreak(end), isPlainBreak(text.substr(start)))
                    << text << " from " << start;
            }
        }
    }
}

} // namespace
} // namespace quillmar::Markdown
