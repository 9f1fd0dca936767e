#include "Tests/Helpers/Markdown.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

std::string quote(std::string_view content) {
    std::string html = "<blockquote>\n";
    html += content;
    return html += "</blockquote>\n";
}

TEST(BlockQuote, holdsItsLinesWithoutTheirMarkers) {
    EXPECT_EQ(rendered("> a\n>b\n>  c"), quote("<p>a\nb\nc</p>\n"));
}

TEST(BlockQuote, markerMayBeIndentedByThreeSpaces) {
    EXPECT_EQ(rendered("   > a"), quote("<p>a</p>\n"));
    EXPECT_EQ(rendered("    > a"), "<pre><code>&gt; a\n</code></pre>\n");
}

TEST(BlockQuote, markerMayStandBehindAnyWhiteSpaceThatTrimmingRemoves) {
    EXPECT_EQ(rendered("\u00A0\u3000> # a"), quote("<h1 id=\"a\">a</h1>\n"));
    EXPECT_EQ(rendered("> a\n \u2003> b"), quote("<p>a\nb</p>\n"));
    EXPECT_EQ(rendered("\v> a"), "<p>\v&gt; a</p>\n");
}

TEST(BlockQuote, markerTakesOneSpace) {
    EXPECT_EQ(rendered(">     a"), quote("<pre><code>a\n</code></pre>\n"));
    EXPECT_EQ(rendered(">\u00A0# a"), quote("<h1 id=\"a\">a</h1>\n"));
}

TEST(BlockQuote, tabBehindTheMarkerIsNoIndentation) {
    EXPECT_EQ(rendered(">\ta"), quote("<p>a</p>\n"));
    EXPECT_EQ(rendered(">\t\ta"), quote("<p>a</p>\n"));
    EXPECT_EQ(rendered("> \t\t- a"), quote("<p>- a</p>\n"));
}

TEST(BlockQuote, mayBeEmpty) {
    EXPECT_EQ(rendered(">"), quote(""));
    EXPECT_EQ(rendered("> \n>\n>\t"), quote(""));
}

TEST(BlockQuote, holdsEveryKindOfBlock) {
    EXPECT_EQ(rendered("> # a\n> ***\n> - b\n>\n> ~~~\n> c\n> ~~~\n> | d |\n> | - |"),
              quote("<h1 id=\"a\">a</h1>\n<hr>\n<ul>\n<li>b</li>\n</ul>\n<pre><code>c\n</code></pre>\n"
                    "<table>\n<thead>\n<tr><th>d</th></tr>\n</thead>\n<tbody>\n</tbody>\n</table>\n"));
}

TEST(BlockQuote, endsAtABlankLine) {
    EXPECT_EQ(rendered("> a\n\nb"), quote("<p>a</p>\n") + "<p>b</p>\n");
    EXPECT_EQ(rendered("> a\n  \n    b"), quote("<p>a</p>\n") + "<pre><code>b\n</code></pre>\n");
}

TEST(BlockQuote, andAnotherBehindABlankLineAreTwo) {
    EXPECT_EQ(rendered("> a\n\n> b"), quote("<p>a</p>\n") + quote("<p>b</p>\n"));
}

TEST(BlockQuote, emptyQuoteLineParts) { EXPECT_EQ(rendered("> a\n>\n> b"), quote("<p>a</p>\n<p>b</p>\n")); }

TEST(BlockQuote, endsAParagraph) { EXPECT_EQ(rendered("a\n> b"), "<p>a</p>\n" + quote("<p>b</p>\n")); }

TEST(BlockQuote, nests) {
    EXPECT_EQ(rendered("> > a\n>> b"), quote(quote("<p>a\nb</p>\n")));
    EXPECT_EQ(rendered("> a\n> > b\n>\n> c"), quote("<p>a</p>\n" + quote("<p>b</p>\n") + "<p>c</p>\n"));
}

TEST(BlockQuote, ofFewerMarkersContinuesTheDeeperOne) {
    EXPECT_EQ(rendered("> > a\n> b\nc"), quote(quote("<p>a\nb\nc</p>\n")));
}

TEST(BlockQuote, ofMoreMarkersOpensADeeperOne) {
    EXPECT_EQ(rendered("> a\n>> b"), quote("<p>a</p>\n" + quote("<p>b</p>\n")));
}

TEST(BlockQuote, keepsItsEmptyLineAtTheLevelItIsWrittenAt) {
    // The second line is blank inside the outer quote: it ends the inner one.
    EXPECT_EQ(rendered("> > a\n>\n> b"), quote(quote("<p>a</p>\n") + "<p>b</p>\n"));
    EXPECT_EQ(rendered("> > a\n> >\n> b"), quote(quote("<p>a</p>\n") + "<p>b</p>\n"));
}

TEST(BlockQuoteContinuation, needsNoMarker) {
    EXPECT_EQ(rendered("> a\nb\n  c\n> d"), quote("<p>a\nb\nc\nd</p>\n"));
}

TEST(BlockQuoteContinuation, doesNotFollowABlankQuoteLine) {
    EXPECT_EQ(rendered("> a\n>\nb"), quote("<p>a</p>\n") + "<p>b</p>\n");
    EXPECT_EQ(rendered(">\nb"), quote("") + "<p>b</p>\n");
}

TEST(BlockQuoteContinuation, mayFollowAnyBlock) {
    EXPECT_EQ(rendered("> # a\nb"), quote("<h1 id=\"a\">a</h1>\n<p>b</p>\n"));
    EXPECT_EQ(rendered("> ---\nb"), quote("<hr>\n<p>b</p>\n"));
}

TEST(BlockQuoteContinuation, isReadInsideTheQuote) {
    EXPECT_EQ(rendered("> ~~~\na"), quote("<pre><code>a\n</code></pre>\n"));
    EXPECT_EQ(rendered("> <div>\n*a*"), quote("<div>\n*a*\n"));
    EXPECT_EQ(rendered("> | a |\n> | - |\n| b |"),
              quote("<table>\n<thead>\n<tr><th>a</th></tr>\n</thead>\n<tbody>\n<tr><td>b</td></tr>\n"
                    "</tbody>\n</table>\n"));
}

TEST(BlockQuoteContinuation, mayBeIndentedCode) {
    EXPECT_EQ(rendered("> a\n    > b"), quote("<p>a\n&gt; b</p>\n"));
    EXPECT_EQ(rendered("> # a\n    b"), quote("<h1 id=\"a\">a</h1>\n<pre><code>b\n</code></pre>\n"));
}

TEST(BlockQuoteContinuation, mayBeAnItemThatDoesNotInterrupt) {
    EXPECT_EQ(rendered("> a\n2. b"), quote("<p>a\n2. b</p>\n"));
    EXPECT_EQ(rendered("> 1. a\n2. b"), quote("<ol>\n<li>a</li>\n<li>b</li>\n</ol>\n"));
    EXPECT_EQ(rendered("> - a\n-"), quote("<ul>\n<li>a</li>\n<li></li>\n</ul>\n"));
}

TEST(BlockQuoteContinuation, reachesIntoAListItem) {
    EXPECT_EQ(rendered("> - a\nb"), quote("<ul>\n<li>a\nb</li>\n</ul>\n"));
    EXPECT_EQ(rendered("> - > a\nb"),
              quote("<ul>\n<li><blockquote>\n<p>a\nb</p>\n</blockquote></li>\n</ul>\n"));
}

TEST(BlockQuoteContinuation, endsWhereAnotherBlockInterrupts) {
    EXPECT_EQ(rendered("> a\n# b"), quote("<p>a</p>\n") + "<h1 id=\"b\">b</h1>\n");
    EXPECT_EQ(rendered("> a\n***"), quote("<p>a</p>\n") + "<hr>\n");
    EXPECT_EQ(rendered("> a\n```\nb"), quote("<p>a</p>\n") + "<pre><code>b\n</code></pre>\n");
    EXPECT_EQ(rendered("> a\n- b"), quote("<p>a</p>\n") + "<ul>\n<li>b</li>\n</ul>\n");
    EXPECT_EQ(rendered("> a\n1) b"), quote("<p>a</p>\n") + "<ol>\n<li>b</li>\n</ol>\n");
    EXPECT_EQ(rendered("> a\n<b>c</b>"), quote("<p>a</p>\n") + "<b>c</b>\n");
    EXPECT_EQ(rendered("> - a\n- b"), quote("<ul>\n<li>a</li>\n</ul>\n") + "<ul>\n<li>b</li>\n</ul>\n");
}

TEST(BlockQuoteContinuation, isNotATable) {
    EXPECT_EQ(rendered("> a\n| b |\n| - |"), quote("<p>a\n| b |\n| - |</p>\n"));
}

} // namespace
} // namespace quillmar
