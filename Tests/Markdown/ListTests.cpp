#include "Tests/Helpers/Markdown.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

/// A tight list of one item.
std::string bullet(std::string_view item) {
    std::string html = "<ul>\n<li>";
    html += item;
    return html += "</li>\n</ul>\n";
}

TEST(ListMarker, isABulletAndASpace) {
    for (const char* line : {"- a", "* a", "+ a", "   - a", "-    a"})
        EXPECT_EQ(rendered(line), bullet("a")) << line;
    EXPECT_EQ(rendered("-a"), "<p>-a</p>\n");
    EXPECT_EQ(rendered("• a"), "<p>• a</p>\n");
    EXPECT_EQ(rendered("    - a"), "<pre><code>- a\n</code></pre>\n");
}

TEST(ListMarker, isANumberWithAFullStopOrAParenthesis) {
    EXPECT_EQ(rendered("1. a"), "<ol>\n<li>a</li>\n</ol>\n");
    EXPECT_EQ(rendered("1) a"), "<ol>\n<li>a</li>\n</ol>\n");
    EXPECT_EQ(rendered("1.a"), "<p>1.a</p>\n");
    EXPECT_EQ(rendered("1: a"), "<p>1: a</p>\n");
    EXPECT_EQ(rendered("1 . a"), "<p>1 . a</p>\n");
    EXPECT_EQ(rendered("-1. a"), "<p>-1. a</p>\n");
    EXPECT_EQ(rendered(". a"), "<p>. a</p>\n");
    EXPECT_EQ(rendered("1"), "<p>1</p>\n");
}

TEST(ListMarker, isFollowedByASpaceAndNoOtherWhiteSpace) {
    EXPECT_EQ(rendered("-\ta"), "<p>-\ta</p>\n");
    EXPECT_EQ(rendered("-\u00A0a"), "<p>-\u00A0a</p>\n");
    EXPECT_EQ(rendered("1.\ta"), "<p>1.\ta</p>\n");
}

TEST(ListMarker, numberHasOneToNineASCIIDigits) {
    EXPECT_EQ(rendered("123456789. a"), "<ol start=\"123456789\">\n<li>a</li>\n</ol>\n");
    EXPECT_EQ(rendered("1234567890. a"), "<p>1234567890. a</p>\n");
    EXPECT_EQ(rendered("٣. a"), "<p>٣. a</p>\n");
    EXPECT_EQ(rendered("１. a"), "<p>１. a</p>\n");
    EXPECT_EQ(rendered("1٣. a"), "<p>1٣. a</p>\n");
}

TEST(ListMarker, tabBehindItsSpaceIsNoIndentation) {
    EXPECT_EQ(rendered("- \ta"), bullet("a"));
    EXPECT_EQ(rendered("- \t\t- a"), bullet("- a"));
}

TEST(ListMarker, takesUpToFourSpaces) {
    EXPECT_EQ(rendered("-    a\n\n     b"), "<ul>\n<li><p>a</p>\n<p>b</p></li>\n</ul>\n");
    EXPECT_EQ(rendered("-     a"), bullet("<pre><code>a\n</code></pre>"));
}

TEST(ListMarker, atTheEndOfItsLineIsAnEmptyItem) {
    EXPECT_EQ(rendered("-"), bullet(""));
    EXPECT_EQ(rendered("-   "), bullet(""));
    EXPECT_EQ(rendered("1."), "<ol>\n<li></li>\n</ol>\n");
    EXPECT_EQ(rendered("- a\n-\n- b"), "<ul>\n<li>a</li>\n<li></li>\n<li>b</li>\n</ul>\n");
}

TEST(ListMarker, atTheEndOfItsLineMayHaveContentBelow) {
    EXPECT_EQ(rendered("-\n  a"), bullet("a"));
    EXPECT_EQ(rendered("-   \n  a"), bullet("a")); // one column of padding, whatever follows
    EXPECT_EQ(rendered("1.\n   a\n   b"), "<ol>\n<li>a\nb</li>\n</ol>\n");
}

TEST(OrderedList, hasTheNumberOfItsFirstItem) {
    EXPECT_EQ(rendered("3. a\n4. b"), "<ol start=\"3\">\n<li>a</li>\n<li>b</li>\n</ol>\n");
    EXPECT_EQ(rendered("3. a\n1. b\n1. c"), "<ol start=\"3\">\n<li>a</li>\n<li>b</li>\n<li>c</li>\n</ol>\n");
    EXPECT_EQ(rendered("1. a\n7. b"), "<ol>\n<li>a</li>\n<li>b</li>\n</ol>\n");
    EXPECT_EQ(rendered("0. a"), "<ol start=\"0\">\n<li>a</li>\n</ol>\n");
    EXPECT_EQ(rendered("007) a"), "<ol start=\"7\">\n<li>a</li>\n</ol>\n");
    EXPECT_EQ(rendered("001. a"), "<ol>\n<li>a</li>\n</ol>\n");
}

TEST(List, withoutBlankLinesIsTight) {
    EXPECT_EQ(rendered("- a\n- b"), "<ul>\n<li>a</li>\n<li>b</li>\n</ul>\n");
}

TEST(List, withABlankLineBetweenItemsIsLoose) {
    EXPECT_EQ(rendered("- a\n\n- b"), "<ul>\n<li><p>a</p></li>\n<li><p>b</p></li>\n</ul>\n");
    EXPECT_EQ(rendered("- a\n- b\n \n\n\n- c"),
              "<ul>\n<li><p>a</p></li>\n<li><p>b</p></li>\n<li><p>c</p></li>\n</ul>\n");
    EXPECT_EQ(rendered("-\n\n- a"), "<ul>\n<li></li>\n<li><p>a</p></li>\n</ul>\n");
}

TEST(List, withABlankLineInsideAnItemIsLoose) {
    EXPECT_EQ(rendered("- a\n\n  b\n- c"), "<ul>\n<li><p>a</p>\n<p>b</p></li>\n<li><p>c</p></li>\n</ul>\n");
    EXPECT_EQ(rendered("- ```\n  a\n\n  b\n  ```\n- c"),
              "<ul>\n<li><pre><code>a\n\nb\n</code></pre></li>\n<li><p>c</p></li>\n</ul>\n");
}

TEST(List, withABlankLineAtItsEndIsTight) {
    EXPECT_EQ(rendered("- a\n- b\n\nc"), "<ul>\n<li>a</li>\n<li>b</li>\n</ul>\n<p>c</p>\n");
    EXPECT_EQ(rendered("- a\n\n\n"), bullet("a"));
}

TEST(List, whoseItemBeginsBehindABlankLineIsTight) {
    EXPECT_EQ(rendered("-\n\n  a"), bullet("a"));
    EXPECT_EQ(rendered("-\n\n  a\n- b"), "<ul>\n<li>a</li>\n<li>b</li>\n</ul>\n");
}

TEST(List, ofSeveralBlocksHasThemOnLinesOfTheirOwn) {
    EXPECT_EQ(rendered("- a\n  # b\n  c"), bullet("a\n<h1 id=\"b\">b</h1>\nc"));
    EXPECT_EQ(rendered("- # a\n- > b"),
              "<ul>\n<li><h1 id=\"a\">a</h1></li>\n<li><blockquote>\n<p>b</p>\n</blockquote></li>\n</ul>\n");
}

TEST(List, trimsLineBreaksOnlyFromAnItem) {
    // The first item's HTML block is empty once it has been filtered; white space of another kind stays.
    EXPECT_EQ(rendered("- <script></script>\n\n  a"), bullet("<p>a</p>"));
    EXPECT_EQ(rendered("- <div>\u2028"), bullet("<div>\u2028"));
    EXPECT_EQ(rendered("- <div>  "), bullet("<div>  "));
}

TEST(List, endsAtAnUnindentedLineBehindABlankLine) {
    EXPECT_EQ(rendered("- a\n\nb"), bullet("a") + "<p>b</p>\n");
    EXPECT_EQ(rendered("- a\n\n b"), bullet("a") + "<p>b</p>\n");
    EXPECT_EQ(rendered("-   a\n\n  b"), bullet("a") + "<p>b</p>\n");
}

TEST(List, needsTheIndentationOfItsContentBehindABlankLine) {
    EXPECT_EQ(rendered("-   a\n\n    b"), "<ul>\n<li><p>a</p>\n<p>b</p></li>\n</ul>\n");
    EXPECT_EQ(rendered("12. a\n\n   b"), "<ol start=\"12\">\n<li>a</li>\n</ol>\n<p>b</p>\n");
}

TEST(List, ofAnotherBulletIsAnotherList) {
    EXPECT_EQ(rendered("- a\n* b\n+ c"), bullet("a") + bullet("b") + bullet("c"));
    EXPECT_EQ(rendered("- a\n\n* b"), bullet("a") + bullet("b"));
}

TEST(List, ofAnotherDelimiterIsAnotherList) {
    EXPECT_EQ(rendered("1. a\n2) b"), "<ol>\n<li>a</li>\n</ol>\n<ol start=\"2\">\n<li>b</li>\n</ol>\n");
    EXPECT_EQ(rendered("- a\n2. b"), bullet("a") + "<ol start=\"2\">\n<li>b</li>\n</ol>\n");
}

TEST(List, bulletIndentedByOneSpaceStartsANewList) {
    EXPECT_EQ(rendered("- a\n - b"), bullet("a") + bullet("b"));
    EXPECT_EQ(rendered("1. a\n 2. b"), "<ol>\n<li>a</li>\n</ol>\n<ol start=\"2\">\n<li>b</li>\n</ol>\n");
    EXPECT_EQ(rendered("- a\n * b"), bullet("a") + bullet("b"));
}

TEST(List, markerNoDeeperThanTheLastIsASibling) {
    EXPECT_EQ(rendered("   - a\n  - b\n - c\n- d"),
              "<ul>\n<li>a</li>\n<li>b</li>\n<li>c</li>\n<li>d</li>\n</ul>\n");
    EXPECT_EQ(rendered(" - a\n - b"), "<ul>\n<li>a</li>\n<li>b</li>\n</ul>\n");
    EXPECT_EQ(rendered(" - a\n- b\n - c"), "<ul>\n<li>a</li>\n<li>b</li>\n</ul>\n" + bullet("c"));
}

TEST(List, eachMarkerSetsTheColumnOfItsContent) {
    EXPECT_EQ(rendered("- a\n-   b\n\n  c"), "<ul>\n<li>a</li>\n<li>b</li>\n</ul>\n<p>c</p>\n");
    EXPECT_EQ(rendered("-   a\n- b\n\n  c"), "<ul>\n<li><p>a</p></li>\n<li><p>b</p>\n<p>c</p></li>\n</ul>\n");
}

TEST(List, inAParagraphBeginsWithABulletOrNumberOne) {
    EXPECT_EQ(rendered("a\n- b"), "<p>a</p>\n" + bullet("b"));
    EXPECT_EQ(rendered("a\n1. b"), "<p>a</p>\n<ol>\n<li>b</li>\n</ol>\n");
    EXPECT_EQ(rendered("a\n01) b"), "<p>a</p>\n<ol>\n<li>b</li>\n</ol>\n");
}

TEST(List, ofAnotherNumberDoesNotEndAParagraph) {
    EXPECT_EQ(rendered("a\n3. b"), "<p>a\n3. b</p>\n");
    EXPECT_EQ(rendered("a\n0. b"), "<p>a\n0. b</p>\n");
    EXPECT_EQ(rendered("a\n\n3. b"), "<p>a</p>\n<ol start=\"3\">\n<li>b</li>\n</ol>\n");
}

TEST(List, emptyItemDoesNotEndAParagraph) {
    EXPECT_EQ(rendered("a\n*"), "<p>a\n*</p>\n");
    EXPECT_EQ(rendered("a\n+ \nb"), "<p>a\n+\nb</p>\n");
    EXPECT_EQ(rendered("a\n1."), "<p>a\n1.</p>\n");
    EXPECT_EQ(rendered("a\n* \u00A0"), "<p>a</p>\n" + bullet("")); // not blank, if nothing to see
}

TEST(ListContinuation, needsNoIndentation) {
    EXPECT_EQ(rendered("- a\nb\n c\n   d"), bullet("a\nb\nc\nd"));
    EXPECT_EQ(rendered("1. a\n  b"), "<ol>\n<li>a\nb</li>\n</ol>\n");
}

TEST(ListContinuation, lessIndentedLosesItsHardBreak) {
    EXPECT_EQ(rendered("- a\n  b  \n  c"), bullet("a\nb<br>\nc"));
    EXPECT_EQ(rendered("- a\nb  \n  c"), bullet("a\nb\nc"));
    EXPECT_EQ(rendered("- a\nb\\\n  c"), bullet("a\nb<br>\nc"));
}

TEST(ListContinuation, endsWhereAnotherBlockInterrupts) {
    EXPECT_EQ(rendered("- a\n# b"), bullet("a") + "<h1 id=\"b\">b</h1>\n");
    EXPECT_EQ(rendered("- a\n> b"), bullet("a") + "<blockquote>\n<p>b</p>\n</blockquote>\n");
    EXPECT_EQ(rendered("- a\n<b>c</b>"), bullet("a") + "<b>c</b>\n");
    EXPECT_EQ(rendered("- a\n<!-- b -->"), bullet("a") + "<!-- b -->\n");
    EXPECT_EQ(rendered("- a\n~~~\nb"), bullet("a") + "<pre><code>b\n</code></pre>\n");
}

TEST(ListContinuation, isNotATable) { EXPECT_EQ(rendered("- a\n| b |\n| - |"), bullet("a\n| b |\n| - |")); }

TEST(ListContinuation, mayFollowAnyBlock) {
    EXPECT_EQ(rendered("- # a\nb"), bullet("<h1 id=\"a\">a</h1>\nb"));
    EXPECT_EQ(rendered("- ***\nb"), bullet("<hr>\nb"));
    EXPECT_EQ(rendered("-\nb"), bullet("b"));
}

TEST(ListContinuation, isTrimmedOfTheWhiteSpaceItWouldHaveKept) {
    EXPECT_EQ(rendered("- a\n\u00A0b"), bullet("a\nb"));
    EXPECT_EQ(rendered("- a\n  \u00A0b"), bullet("a\n\u00A0b"));
}

TEST(List, lineOfNoBreakSpacesIsNotBlank) {
    EXPECT_EQ(rendered("- a\n\u00A0\n- b"), "<ul>\n<li>a</li>\n<li>b</li>\n</ul>\n");
    EXPECT_EQ(rendered("- a\n\u00A0\nb"), bullet("a\nb"));
}

} // namespace
} // namespace quillmar
