#include "Markdown/Tables.h"

#include <gtest/gtest.h>

namespace quillmar::Markdown {
namespace {

using Cells = std::vector<std::string_view>;
using Alignments = std::vector<Alignment>;

TEST(TableCells, standBetweenPipes) {
    EXPECT_EQ(cells("a|b|c"), (Cells{"a", "b", "c"}));
    EXPECT_EQ(cells("| a | b |"), (Cells{"a", "b"}));
    EXPECT_EQ(cells("a | b |"), (Cells{"a", "b"}));
    EXPECT_EQ(cells("| a | b"), (Cells{"a", "b"}));
    EXPECT_EQ(cells("a"), (Cells{"a"}));
}

TEST(TableCells, mayBeEmpty) {
    EXPECT_EQ(cells(""), (Cells{""}));
    EXPECT_EQ(cells("|"), (Cells{""}));
    EXPECT_EQ(cells("||"), (Cells{""}));
    EXPECT_EQ(cells("|||"), (Cells{"", ""}));
    EXPECT_EQ(cells("a||"), (Cells{"a", ""}));
    EXPECT_EQ(cells("| |a"), (Cells{"", "a"}));
}

TEST(TableCells, areTrimmed) {
    EXPECT_EQ(cells("\u00A0 | \ta\u3000 |\u00A0b\u00A0|\t"), (Cells{"a", "b"}));
    EXPECT_EQ(cells("a\u2028| b"), (Cells{"a\u2028", "b"}));
}

TEST(TableCells, holdPipesInCode) {
    EXPECT_EQ(cells("| `a|b` | c |"), (Cells{"`a|b`", "c"}));
    EXPECT_EQ(cells("`a` | `b|c` | d"), (Cells{"`a`", "`b|c`", "d"}));
}

TEST(TableCells, takeTheRestOfTheRowWhenCodeIsNotClosed) {
    EXPECT_EQ(cells("a | `b | c | d"), (Cells{"a", "`b | c | d"}));
    EXPECT_EQ(cells("a | `b | c |"), (Cells{"a", "`b | c"}));
}

TEST(TableCells, countEveryBacktick) {
    EXPECT_EQ(cells("\\`a | b"), (Cells{"\\`a | b"}));
    EXPECT_EQ(cells("``a | b``"), (Cells{"``a", "b``"}));
    EXPECT_EQ(cells("```a | b``` | c"), (Cells{"```a | b```", "c"}));
}

TEST(TableCells, holdEscapedPipes) {
    EXPECT_EQ(cells("a \\| b | c"), (Cells{"a \\| b", "c"}));
    EXPECT_EQ(cells("a | b \\|"), (Cells{"a", "b \\|"}));
    EXPECT_EQ(cells("| \\|"), (Cells{"\\|"}));
    EXPECT_EQ(cells("a \\\\| b"), (Cells{"a \\\\| b"}));
    EXPECT_EQ(cells("\\||a"), (Cells{"\\|", "a"}));
    EXPECT_EQ(cells("`a\\|b` | c"), (Cells{"`a\\|b`", "c"}));
}

TEST(TableCells, areViewsIntoTheLine) {
    const std::string line = "|a|";
    EXPECT_EQ(cells(line).at(0).data(), line.data() + 1);
}

TEST(TableCells, keepBytesThatAreNotUTF8) {
    EXPECT_EQ(cells("\xC2|\xFF\\|\xA0|"), (Cells{"\xC2", "\xFF\\|\xA0"}));
}

TEST(TableCellText, hasPlainPipesForEscapedOnes) {
    EXPECT_EQ(cellText("a \\| b\\|"), "a | b|");
    EXPECT_EQ(cellText("\\|\\|"), "||");
    EXPECT_EQ(cellText("`a\\|b|c`"), "`a|b|c`");
    EXPECT_EQ(cellText("\\\\|"), "\\|");
    EXPECT_EQ(cellText("a\\b\\"), "a\\b\\");
    EXPECT_EQ(cellText(""), "");
}

TEST(TableDelimiter, givesEveryColumnItsAlignment) {
    EXPECT_EQ(tableDelimiter("| --- | :-- | :-: | --: |"),
              (Alignments{Alignment::none, Alignment::left, Alignment::center, Alignment::right}));
    EXPECT_EQ(tableDelimiter("-"), (Alignments{Alignment::none}));
    EXPECT_EQ(tableDelimiter(":-"), (Alignments{Alignment::left}));
    EXPECT_EQ(tableDelimiter("-:|:-:"), (Alignments{Alignment::right, Alignment::center}));
    EXPECT_EQ(tableDelimiter("  \t|\u00A0---\u00A0|---"), (Alignments{Alignment::none, Alignment::none}));
}

TEST(TableDelimiter, hasNothingButHyphensAndColonsAtTheEnds) {
    for (const std::string_view line :
         {"",      "|",      "abc",       ":",      "::",        "-:-",       "- -",
          "::--",  "--::",   ": -",       "-a",     "---|:|---", "| --- | |", "||---",
          "- - -", "---\\|", "`---|---`", "\u2014", "\xFF-",     "-\xE2\x80"}) {
        EXPECT_EQ(tableDelimiter(line), std::nullopt) << line;
    }
}

TEST(TableDelimiter, mayHaveALineTerminatorBehindACell) {
    // As "$" of regular expressions has it. Of the line breaks only the line feed ends a line.
    EXPECT_EQ(tableDelimiter("--\u2028|:-:\f|-"),
              (Alignments{Alignment::none, Alignment::left, Alignment::none}));
    EXPECT_EQ(tableDelimiter("-\v\v"), std::nullopt);
    EXPECT_EQ(tableDelimiter("\v-"), std::nullopt);
    EXPECT_EQ(tableDelimiter("-|\v"), std::nullopt);
}

TEST(Table, beginsWithAHeaderOverADelimiter) {
    EXPECT_TRUE(beginsTable("| a | b |", "|---|---|"));
    EXPECT_TRUE(beginsTable("a | b", ":-: | -"));
    EXPECT_TRUE(beginsTable("|a", "-"));
    EXPECT_TRUE(beginsTable("a\\|b", "-"));
}

TEST(Table, hasAsManyHeaderCellsAsDelimiterCells) {
    EXPECT_FALSE(beginsTable("| a | b | c |", "|---|---|"));
    EXPECT_FALSE(beginsTable("| a |", "|---|---|"));
    EXPECT_FALSE(beginsTable("`a|b`", "-|-"));
    EXPECT_TRUE(beginsTable("`a|b`", "-"));
}

TEST(Table, hasAPipeInItsHeader) { EXPECT_FALSE(beginsTable("a", "---")); }

TEST(Table, hasAProperDelimiter) {
    EXPECT_FALSE(beginsTable("a | b", "--- | x"));
    EXPECT_FALSE(beginsTable("a | b", "c | d"));
    EXPECT_FALSE(beginsTable("a |", ""));
    EXPECT_FALSE(beginsTable("|", "|"));
}

} // namespace
} // namespace quillmar::Markdown
