#include "Tests/Helpers/Markdown.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

TEST(NestedList, isIndentedToTheContentOfItsItem) {
    EXPECT_EQ(rendered("- a\n  - b\n    - c\n- d"), "<ul>\n<li>a\n<ul>\n<li>b\n<ul>\n<li>c</li>\n</ul></li>\n"
                                                    "</ul></li>\n<li>d</li>\n</ul>\n");
}

TEST(NestedList, mayBeIndentedFurther) {
    EXPECT_EQ(rendered("- a\n    - b\n        - c"),
              "<ul>\n<li>a\n<ul>\n<li>b\n<ul>\n<li>c</li>\n</ul></li>\n</ul></li>\n</ul>\n");
    EXPECT_EQ(rendered("- a\n\t- b\n\t\t- c"), rendered("- a\n    - b\n        - c"));
}

TEST(NestedList, fourColumnsBehindTheContentIsText) {
    EXPECT_EQ(rendered("- a\n      - b"), "<ul>\n<li>a\n- b</li>\n</ul>\n");
}

TEST(NestedList, mayBeLessIndentedThanTheContentByTwoSpacesAtLeast) {
    EXPECT_EQ(rendered("1. a\n  - b"), "<ol>\n<li>a\n<ul>\n<li>b</li>\n</ul></li>\n</ol>\n");
    EXPECT_EQ(rendered(" - a\n  - b"), "<ul>\n<li>a\n<ul>\n<li>b</li>\n</ul></li>\n</ul>\n");
    EXPECT_EQ(rendered("100. a\n  1. b\n  2. c"),
              "<ol start=\"100\">\n<li>a\n<ol>\n<li>b</li>\n<li>c</li>\n</ol></li>\n</ol>\n");
}

TEST(NestedList, lessIndentedBehindABlankLineDoesNotLoosenTheOuterOne) {
    EXPECT_EQ(rendered("1. a\n\n  - b"), "<ol>\n<li>a\n<ul>\n<li>b</li>\n</ul></li>\n</ol>\n");
    EXPECT_EQ(rendered("1. a\n\n   - b"), "<ol>\n<li><p>a</p>\n<ul>\n<li>b</li>\n</ul></li>\n</ol>\n");
}

TEST(NestedList, lessIndentedDoesNotBecomeACodeBlock) {
    EXPECT_EQ(rendered("10000. a\n     - b"),
              "<ol start=\"10000\">\n<li>a\n<ul>\n<li>b</li>\n</ul></li>\n</ol>\n");
}

TEST(NestedList, lessIndentedThatDoesNotInterruptIsText) {
    EXPECT_EQ(rendered("100. a\n   2. b"), "<ol start=\"100\">\n<li>a\n2. b</li>\n</ol>\n");
}

TEST(NestedList, ofOneSpaceIsAnotherListWhateverItsKind) {
    EXPECT_EQ(rendered("1. a\n - b"), "<ol>\n<li>a</li>\n</ol>\n<ul>\n<li>b</li>\n</ul>\n");
}

TEST(NestedList, isTightOrLooseByItself) {
    EXPECT_EQ(rendered("- a\n  - b\n\n    c\n- d"),
              "<ul>\n<li><p>a</p>\n<ul>\n<li><p>b</p>\n<p>c</p></li>\n</ul></li>\n<li><p>d</p></li>\n</ul>\n");
    EXPECT_EQ(rendered("- a\n  - b\n\n- c"),
              "<ul>\n<li><p>a</p>\n<ul>\n<li>b</li>\n</ul></li>\n<li><p>c</p></li>\n</ul>\n");
    EXPECT_EQ(rendered("- a\n  - b\n  - c\n\n\n- d"),
              "<ul>\n<li><p>a</p>\n<ul>\n<li>b</li>\n<li>c</li>\n</ul></li>\n<li><p>d</p></li>\n</ul>\n");
}

TEST(NestedList, thatIsLooseLoosensTheOuterOne) {
    EXPECT_EQ(rendered("- a\n  - b\n\n  - c"),
              "<ul>\n<li><p>a</p>\n<ul>\n<li><p>b</p></li>\n<li><p>c</p></li>\n</ul></li>\n</ul>\n");
}

TEST(NestedList, beginsOnTheLineOfItsItem) {
    EXPECT_EQ(rendered("- - a\n  - b\n- c"),
              "<ul>\n<li><ul>\n<li>a</li>\n<li>b</li>\n</ul></li>\n<li>c</li>\n</ul>\n");
    EXPECT_EQ(rendered("1. - 2) a"), "<ol>\n<li><ul>\n<li><ol start=\"2\">\n<li>a</li>\n</ol></li>\n"
                                     "</ul></li>\n</ol>\n");
    EXPECT_EQ(rendered("+ + +"), "<ul>\n<li><ul>\n<li><ul>\n<li></li>\n</ul></li>\n</ul></li>\n</ul>\n");
}

TEST(NestedList, needsNoMarkerOfItsOwnLevelToGoOn) {
    EXPECT_EQ(rendered("- a\n  - b\nc"), "<ul>\n<li>a\n<ul>\n<li>b\nc</li>\n</ul></li>\n</ul>\n");
    EXPECT_EQ(rendered("- a\n  - b\n\n  c\n\n    d"),
              "<ul>\n<li><p>a</p>\n<ul>\n<li>b</li>\n</ul>\n<p>c</p>\n<p>d</p></li>\n</ul>\n");
}

TEST(NestedList, ofTheOtherKindBelongsToTheItem) {
    EXPECT_EQ(rendered("1. a\n   - b\n     1. c\n2. d"),
              "<ol>\n<li>a\n<ul>\n<li>b\n<ol>\n<li>c</li>\n</ol></li>\n</ul></li>\n<li>d</li>\n</ol>\n");
}

TEST(NestedList, ofAnotherNumberBelowTextIsText) {
    EXPECT_EQ(rendered("- a\n  2. b"), "<ul>\n<li>a\n2. b</li>\n</ul>\n");
    EXPECT_EQ(rendered("- a\n\n  2. b"),
              "<ul>\n<li><p>a</p>\n<ol start=\"2\">\n<li>b</li>\n</ol></li>\n</ul>\n");
}

TEST(NestedList, emptyItemBelowTextUnderlinesIt) {
    EXPECT_EQ(rendered("- a\n  -"), "<ul>\n<li><h2 id=\"a\">a</h2></li>\n</ul>\n");
    EXPECT_EQ(rendered("- a\n  *\n  b"), "<ul>\n<li>a\n*\nb</li>\n</ul>\n");
    EXPECT_EQ(rendered("-\n  -\n    -"),
              "<ul>\n<li><ul>\n<li><ul>\n<li></li>\n</ul></li>\n</ul></li>\n</ul>\n");
}

TEST(NestedList, endsWithTheOuterOne) {
    EXPECT_EQ(rendered("- a\n  - b\n\nc"), "<ul>\n<li>a\n<ul>\n<li>b</li>\n</ul></li>\n</ul>\n<p>c</p>\n");
    EXPECT_EQ(rendered("- a\n  - b\n* c"),
              "<ul>\n<li>a\n<ul>\n<li>b</li>\n</ul></li>\n</ul>\n<ul>\n<li>c</li>\n</ul>\n");
}

TEST(NestedBlocks, quotesInListsInQuotes) {
    EXPECT_EQ(rendered("> - a\n>   > b\n>   > - c\n>\n> d"),
              "<blockquote>\n<ul>\n<li>a\n<blockquote>\n<p>b</p>\n<ul>\n<li>c</li>\n</ul>\n</blockquote></li>\n"
              "</ul>\n<p>d</p>\n</blockquote>\n");
}

TEST(NestedBlocks, paragraphsOfAQuoteInATightListStayParagraphs) {
    EXPECT_EQ(rendered("- > a\n  >\n  > b"),
              "<ul>\n<li><blockquote>\n<p>a</p>\n<p>b</p>\n</blockquote></li>\n</ul>\n");
}

TEST(NestedBlocks, lazyLineGoesToTheInnermostBlock) {
    EXPECT_EQ(rendered("1. > - > a\nb"),
              "<ol>\n<li><blockquote>\n<ul>\n<li><blockquote>\n<p>a\nb</p>\n</blockquote></li>\n</ul>\n"
              "</blockquote></li>\n</ol>\n");
}

TEST(NestedBlocks, quoteMarkerBelowAListItemEndsTheList) {
    EXPECT_EQ(
        rendered("- > a\n> b"),
        "<ul>\n<li><blockquote>\n<p>a</p>\n</blockquote></li>\n</ul>\n<blockquote>\n<p>b</p>\n</blockquote>\n");
}

TEST(NestedBlocks, itemsInAQuoteAreSeparatedByItsEmptyLines) {
    EXPECT_EQ(rendered("> - a\n>\n> - b"),
              "<blockquote>\n<ul>\n<li><p>a</p></li>\n<li><p>b</p></li>\n</ul>\n</blockquote>\n");
}

TEST(NestedBlocks, tableInAListItem) {
    EXPECT_EQ(rendered("- a\n\n  | b | c |\n  | - | - |\n  | d | e |"),
              "<ul>\n<li><p>a</p>\n<table>\n<thead>\n<tr><th>b</th><th>c</th></tr>\n</thead>\n<tbody>\n"
              "<tr><td>d</td><td>e</td></tr>\n</tbody>\n</table></li>\n</ul>\n");
}

TEST(NestedBlocks, codeInAQuoteInAListItem) {
    EXPECT_EQ(rendered("- > ```c\n  > a\n  >\n  > b\n  > ```\n  c"),
              "<ul>\n<li><blockquote>\n<pre><code class=\"language-c\">a\n\nb\n</code></pre>\n<p>c</p>\n"
              "</blockquote></li>\n</ul>\n");
}

} // namespace
} // namespace quillmar
