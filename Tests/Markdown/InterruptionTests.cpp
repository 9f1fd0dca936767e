#include "Markdown/Interruption.h"

#include "Markdown/BlockQuote.h"
#include "Markdown/Fence.h"
#include "Markdown/HTMLBlock.h"
#include "Markdown/Headings.h"
#include "Markdown/ListMarker.h"

#include <gtest/gtest.h>
#include <string>

namespace quillmar::Markdown {
namespace {

bool interrupting(std::string_view line) {
    ThematicBreaks breaks(line);
    return interrupts(Line(line), breaks);
}

bool mayBegin(std::string_view line) { return mayBeginBlock(Line(line)); }

TEST(Interruption, byFencesHeadingsBreaksQuotesAndHTML) {
    for (const std::string_view line :
         {"```", "~~~ js", "# a", "######", "***", "- - -", "> a", ">", "<div>", "<!--"})
        EXPECT_TRUE(interrupting(line)) << line;
}

TEST(Interruption, byItemsWithText) {
    for (const std::string_view line : {"- a", "* a", "+ a", "-     a", "- \u00A0", "- \va", "- - a", "- > a"})
        EXPECT_TRUE(interrupting(line)) << line;
}

TEST(Interruption, byTheNumberOne) {
    for (const std::string_view line : {"1. a", "1) a", "001. a"}) EXPECT_TRUE(interrupting(line)) << line;
}

TEST(Interruption, notByOtherNumbers) {
    for (const std::string_view line : {"0. a", "2. a", "10. a", "1984) a"})
        EXPECT_FALSE(interrupting(line)) << line;
}

TEST(Interruption, notByEmptyItems) {
    for (const std::string_view line : {"-", "*", "- ", "+   ", "- \t", "1.", "1)  "})
        EXPECT_FALSE(interrupting(line)) << line;
}

TEST(Interruption, notByTextUnderlinesAndTables) {
    for (const std::string_view line : {"", "  ", "a", "===", "--", "| a |", "|---|", "-a", "#a", "[a]: b",
                                        "\\# a", "``", "*a*", "<1>", "\u2022 a", "\xFF"})
        EXPECT_FALSE(interrupting(line)) << line;
}

TEST(Interruption, notByWhatIsIndentedAsCode) {
    for (const std::string_view text : {"```", "# a", "***", "> a", "<div>", "- a", "1. a"}) {
        EXPECT_TRUE(interrupting(std::string("   ").append(text))) << text;
        EXPECT_FALSE(interrupting(std::string("    ").append(text))) << text;
    }
}

TEST(Interruption, behindAnyWhiteSpaceThatTrimmingRemoves) {
    for (const std::string_view line : {"\u00A0# a", "\u00A0> a", "\u00A0***", "\u00A0<div>"})
        EXPECT_TRUE(interrupting(line)) << line;
    for (const std::string_view line : {"\u00A0- a", "\u00A0```"}) // spaces alone may stand before these
        EXPECT_FALSE(interrupting(line)) << line;
}

TEST(Interruption, byBreaksBehindOtherWhiteSpace) {
    for (const std::string_view line : {"\v***", "\f---", "\u2028___", "\u0085- - -"})
        EXPECT_TRUE(interrupting(line)) << line;
}

TEST(Interruption, byTheEndOfALine) {
    const std::string_view text = "> 2. - - -";
    ThematicBreaks breaks(text);
    EXPECT_TRUE(interrupts(Line(text.substr(5)), breaks));
    EXPECT_FALSE(interrupts(Line(text.substr(2)), breaks));
}

TEST(BlockStart, isNotAmongLettersAndMostPunctuation) {
    for (const std::string_view line :
         {"a", "Z", "(a", "[a]", "!", "|", "=", "&", "\"", "\\", "{", "\x7F", "  a"})
        EXPECT_FALSE(mayBegin(line)) << line;
}

TEST(BlockStart, mayBeAMarkADigitOrWhatIsNotASCII) {
    for (const std::string_view line : {"`", "~", "#", "-", "*", "_", "+", ">", "<", "0", "9", "\u00E9",
                                        "\u2028", "\xFF", "\v", "  > a", "\u00A0# a"})
        EXPECT_TRUE(mayBegin(line)) << line;
}

TEST(BlockStart, isThatOfEveryBlock) {
    // All first bytes, with what could make a block of them.
    for (int byte = 0; byte < 256; ++byte) {
        for (const std::string_view rest :
             {"", " a", "  ", "- -", "--", "**", "__", "``", "~~", "## a", "a>", "!--", ". a"}) {
            const std::string text = std::string(1, static_cast<char>(byte)).append(rest);
            const Line line(text);
            if (line.isBlank() || mayBeginBlock(line)) continue;
            const bool begins = Fence::parse(text) || ATXHeading::parse(line) || isThematicBreak(text) ||
                                beginsQuote(line) || isHTMLBlock(line) || ListMarker::parse(line);
            EXPECT_FALSE(begins) << testing::PrintToString(text);
        }
    }
}

} // namespace
} // namespace quillmar::Markdown
