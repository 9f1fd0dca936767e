#include "Tests/Helpers/Markdown.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

using namespace std::string_literals;

TEST(Paragraph, isWhatNoOtherBlockTakes) { EXPECT_EQ(rendered("a"), "<p>a</p>\n"); }

TEST(Paragraph, goesOnToABlankLine) {
    EXPECT_EQ(rendered("a\nb\n\nc\n \t \nd"), "<p>a\nb</p>\n<p>c</p>\n<p>d</p>\n");
    EXPECT_EQ(rendered("\n\na\n\n\n"), "<p>a</p>\n");
}

TEST(Paragraph, linesLoseTheirLeadingSpaces) {
    EXPECT_EQ(rendered("  a\n   b\n        c\n\td"), "<p>a\nb\nc\nd</p>\n");
}

TEST(Paragraph, linesKeepOtherLeadingWhiteSpace) {
    EXPECT_EQ(rendered("a\n\u00A0b\n \u3000c"), "<p>a\n\u00A0b\n\u3000c</p>\n");
}

TEST(Paragraph, isTrimmed) {
    EXPECT_EQ(rendered("\u00A0 a \u2003\t"), "<p>a</p>\n");
    EXPECT_EQ(rendered("a  "), "<p>a</p>\n");
    EXPECT_EQ(rendered("\u2028a\v"), "<p>\u2028a\v</p>\n"); // line breaks of other kinds are not trimmed
}

TEST(Paragraph, mayBeEmptyToTheEye) {
    EXPECT_EQ(rendered("\u00A0"), "<p></p>\n");
    EXPECT_EQ(rendered("a\n\u00A0\nb"), "<p>a\n\u00A0\nb</p>\n");
}

TEST(Paragraph, isEndedByOtherBlocks) {
    EXPECT_EQ(rendered("a\n---\nb"), "<h2 id=\"a\">a</h2>\n<p>b</p>\n");
    EXPECT_EQ(rendered("a\n***\nb"), "<p>a</p>\n<hr>\n<p>b</p>\n");
    EXPECT_EQ(rendered("a\n* b\nc"), "<p>a</p>\n<ul>\n<li>b\nc</li>\n</ul>\n");
    EXPECT_EQ(rendered("a\n<p>b"), "<p>a</p>\n<p>b\n");
}

TEST(Paragraph, isNotEndedByATable) { EXPECT_EQ(rendered("a\n| b |\n|:-:|"), "<p>a\n| b |\n|:-:|</p>\n"); }

TEST(Paragraph, isNotEndedByWhatIsIndentedByFourSpaces) {
    for (const std::string line : {"# b", "***", "> b", "- b", "1. b", "~~~", "<!--", "===", "---"}) {
        const std::string html = rendered("a\n    " + line + "\nc");
        EXPECT_EQ(html.find("<p>a\n"), 0U) << html;
        EXPECT_EQ(html.find("\nc</p>\n"), html.size() - 7) << html;
    }
}

TEST(Paragraph, keepsControlCharacters) { EXPECT_EQ(rendered("a\0b\x01\x1B\f"s), "<p>a\0b\x01\x1B\f</p>\n"s); }

TEST(Paragraph, copiesIllFormedBytes) {
    EXPECT_EQ(rendered("a\xFF *b\xE2\x82* \xC3"), "<p>a\xFF <em>b\xE2\x82</em> \xC3</p>\n");
}

TEST(LineBreak, isALineFeed) { EXPECT_EQ(rendered("a\nb"), "<p>a\nb</p>\n"); }

TEST(LineBreak, losesTheSpacesBeforeIt) {
    EXPECT_EQ(rendered("a \nb"), "<p>a\nb</p>\n");
    EXPECT_EQ(rendered("a\t \nb\u00A0\nc"), "<p>a\t\nb\u00A0\nc</p>\n");
}

TEST(LineBreak, isHardBehindTwoSpaces) {
    EXPECT_EQ(rendered("a  \nb"), "<p>a<br>\nb</p>\n");
    EXPECT_EQ(rendered("a      \n    b"), "<p>a<br>\nb</p>\n");
    EXPECT_EQ(rendered("> a  \n> b"), "<blockquote>\n<p>a<br>\nb</p>\n</blockquote>\n");
}

TEST(LineBreak, isHardBehindABackslash) {
    EXPECT_EQ(rendered("a\\\nb"), "<p>a<br>\nb</p>\n");
    EXPECT_EQ(rendered("a\\ \nb"), "<p>a\\\nb</p>\n");
    EXPECT_EQ(rendered("a\\\\\nb"), "<p>a\\\nb</p>\n");
}

TEST(LineBreak, behindABackslashKeepsTheSpacesBeforeIt) {
    EXPECT_EQ(rendered("a  \\\nb"), "<p>a  <br>\nb</p>\n");
}

TEST(LineBreak, isNotHardBehindOtherWhiteSpace) {
    EXPECT_EQ(rendered("a\t\t\nb"), "<p>a\t\t\nb</p>\n");
    EXPECT_EQ(rendered("a \t \nb"), "<p>a \t\nb</p>\n");
    EXPECT_EQ(rendered("a  \u00A0\nb"), "<p>a  \u00A0\nb</p>\n");
}

TEST(LineBreak, looksAtPlainTextOnly) {
    EXPECT_EQ(rendered("`a`  \nb"), "<p><code>a</code><br>\nb</p>\n");
    EXPECT_EQ(rendered("*a*  \nb"), "<p><em>a</em><br>\nb</p>\n");
    EXPECT_EQ(rendered("a\\*  \nb"), "<p>a*<br>\nb</p>\n");
    // The spaces before the comment are written by then.
    EXPECT_EQ(rendered("a  <!-- b -->\nc"), "<p>a  \nc</p>\n");
    EXPECT_EQ(rendered("a <!-- b --> \nc"), "<p>a \nc</p>\n");
}

TEST(LineBreak, atTheEndIsNoBreak) {
    EXPECT_EQ(rendered("a\\"), "<p>a\\</p>\n");
    EXPECT_EQ(rendered("a\\\n\nb  \n"), "<p>a\\</p>\n<p>b</p>\n");
}

TEST(LineBreak, mayBeInsideEmphasisAndLinks) {
    EXPECT_EQ(rendered("**a  \nb** [c  \nd](e)"),
              "<p><strong>a<br>\nb</strong> <a href=\"e\">c<br>\nd</a></p>\n");
}

} // namespace
} // namespace quillmar
