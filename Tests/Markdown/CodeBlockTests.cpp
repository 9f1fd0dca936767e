#include "Tests/Helpers/Markdown.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

using namespace std::string_literals;

/// A code block without a language.
std::string code(std::string_view content) {
    std::string html = "<pre><code>";
    html += content;
    return html += "</code></pre>\n";
}

TEST(FencedCode, standsBetweenRunsOfBackticksOrTildes) {
    EXPECT_EQ(rendered("```\na\n  b\n```\nc"), code("a\n  b\n") + "<p>c</p>\n");
    EXPECT_EQ(rendered("~~~\na\n~~~"), code("a\n"));
}

TEST(FencedCode, needsThreeCharacters) {
    EXPECT_EQ(rendered("``\na\n``"), "<p><code>a</code></p>\n");
    EXPECT_EQ(rendered("~~\na\n~~"), "<p>~~\na\n~~</p>\n");
}

TEST(FencedCode, isEscapedAndNothingElse) {
    EXPECT_EQ(rendered("```\n<a href=\"x\">&amp; '*b*' \\* https://x.y\n```"),
              code("&lt;a href=&quot;x&quot;&gt;&amp;amp; &#39;*b*&#39; \\* https://x.y\n"));
}

TEST(FencedCode, withoutClosingFenceHoldsTheRestOfTheDocument) {
    EXPECT_EQ(rendered("```\na\n\n# b"), code("a\n\n# b\n"));
    EXPECT_EQ(rendered("```\na\n"), code("a\n\n")); // the line behind the last line break is empty
}

TEST(FencedCode, withoutClosingFenceEndsWithItsQuote) {
    EXPECT_EQ(rendered("> ```\n> a\n\nb"), "<blockquote>\n" + code("a\n") + "</blockquote>\n<p>b</p>\n");
}

TEST(FencedCode, withoutClosingFenceEndsWithItsListItem) {
    EXPECT_EQ(rendered("- ```\n  a\n- b"), "<ul>\n<li><pre><code>a\n</code></pre></li>\n<li>b</li>\n</ul>\n");
    EXPECT_EQ(rendered("- ```\n  a\n\nb"), "<ul>\n<li><pre><code>a\n</code></pre></li>\n</ul>\n<p>b</p>\n");
}

TEST(FencedCode, mayBeEmpty) {
    EXPECT_EQ(rendered("```\n```"), code(""));
    EXPECT_EQ(rendered("```"), code(""));
    EXPECT_EQ(rendered("```\n"), code(""));
    EXPECT_EQ(rendered("```\n\n```"), code(""));
    EXPECT_EQ(rendered("```\n\n\n```"), code("\n\n"));
}

TEST(FencedCode, isClosedByALongerRunOfTheSameCharacterOnly) {
    EXPECT_EQ(rendered("````\n```\n~~~~\n```` a\n`````\nb"), code("```\n~~~~\n```` a\n") + "<p>b</p>\n");
    EXPECT_EQ(rendered("~~~~\n~~~\n````\n~~~~~~"), code("~~~\n````\n"));
}

TEST(FencedCode, closingFenceMayBeIndentedByThreeSpacesAndFollowedByWhiteSpace) {
    EXPECT_EQ(rendered("```\na\n   ```  \nb"), code("a\n") + "<p>b</p>\n");
    EXPECT_EQ(rendered("```\na\n\u00A0```\u00A0\nb"), code("a\n") + "<p>b</p>\n");
    EXPECT_EQ(rendered("```\na\n    ```"), code("a\n    ```\n"));
}

TEST(FencedCode, losesTheIndentationOfItsOpeningFence) {
    EXPECT_EQ(rendered("  ```\n   a\n  b\n c\nd\n  ```"), code(" a\nb\nc\nd\n"));
    EXPECT_EQ(rendered("   ~~~\n      \n  \na\n~~~"), code("   \n\na\n"));
}

TEST(FencedCode, isNotOpenedByAnIndentedOrSpacedFence) {
    EXPECT_EQ(rendered("    ```\na"), code("```\n") + "<p>a</p>\n");
    EXPECT_EQ(rendered("\u00A0```"), "<p>```</p>\n");
}

TEST(FencedCode, hasTheFirstWordBehindItsFenceAsLanguage) {
    EXPECT_EQ(rendered("```js extra words\na\n```"), "<pre><code class=\"language-js\">a\n</code></pre>\n");
    EXPECT_EQ(rendered("~~~   C++  \n~~~"), "<pre><code class=\"language-C++\"></code></pre>\n");
    EXPECT_EQ(rendered("``` *a*\n```"), "<pre><code class=\"language-*a*\"></code></pre>\n");
}

TEST(FencedCode, languageEndsAtASpaceOnly) {
    EXPECT_EQ(rendered("```a\tb\u00A0c d\n```"), "<pre><code class=\"language-a\tb\u00A0c\"></code></pre>\n");
}

TEST(FencedCode, languageIsEscaped) {
    EXPECT_EQ(rendered("~~~ \"><script>&'\n~~~"),
              "<pre><code class=\"language-&quot;&gt;&lt;script&gt;&amp;&#39;\"></code></pre>\n");
}

TEST(FencedCode, ofBackticksHasNoBacktickInItsInfoString) {
    EXPECT_EQ(rendered("``` a`b"), "<p>``` a`b</p>\n");
    EXPECT_EQ(rendered("```a```\nb"), "<p><code>a</code>\nb</p>\n");
}

TEST(FencedCode, ofTildesMayHaveABacktickInItsInfoString) {
    EXPECT_EQ(rendered("~~~ a`b ~\nc\n~~~"), "<pre><code class=\"language-a`b\">c\n</code></pre>\n");
}

TEST(FencedCode, endsAParagraph) {
    EXPECT_EQ(rendered("a\n```\nb\n```\nc"), "<p>a</p>\n" + code("b\n") + "<p>c</p>\n");
    EXPECT_EQ(rendered("a\n    ```\nb"), "<p>a\n```\nb</p>\n");
}

TEST(FencedCode, inAQuoteTakesLazyLines) {
    EXPECT_EQ(rendered("> ```\n> a\nb\n> c"), "<blockquote>\n" + code("a\nb\nc\n") + "</blockquote>\n");
}

TEST(FencedCode, inAListItemTakesLazyLinesTrimmed) {
    EXPECT_EQ(rendered("- ```\n  a\n b \n  c"), "<ul>\n<li><pre><code>a\nb\nc\n</code></pre></li>\n</ul>\n");
}

TEST(FencedCode, inAListItemMayHoldBlankLines) {
    EXPECT_EQ(rendered("1. ```\n   a\n\n   b\n   ```"),
              "<ol>\n<li><pre><code>a\n\nb\n</code></pre></li>\n</ol>\n");
}

TEST(FencedCode, inAListItemIsCutByAFenceLessIndented) {
    EXPECT_EQ(rendered("- ```\n  a\n```\nb"),
              "<ul>\n<li><pre><code>a\n</code></pre></li>\n</ul>\n" + code("b\n"));
}

TEST(FencedCode, hasItsLeadingTabsAsSpaces) {
    EXPECT_EQ(rendered("```\n\ta\n \tb\nc\td\n```"), code("    a\n    b\nc\td\n"));
}

TEST(FencedCode, keepsControlCharacters) {
    EXPECT_EQ(rendered("```\na\0\x1B[1m\x7F\n```"s), code("a\0\x1B[1m\x7F\n"s));
}

TEST(IndentedCode, hasFourSpaces) {
    EXPECT_EQ(rendered("    a\n      b"), code("a\n  b\n"));
    EXPECT_EQ(rendered("   a"), "<p>a</p>\n");
}

TEST(IndentedCode, isEscapedAndNothingElse) {
    EXPECT_EQ(rendered("    *a* <b> # c\n    - d"), code("*a* &lt;b&gt; # c\n- d\n"));
}

TEST(IndentedCode, mayBeIndentedByTabs) {
    EXPECT_EQ(rendered("\ta\n\t\tb"), code("a\n    b\n"));
    EXPECT_EQ(rendered("  \ta"), code("a\n")); // the next tab stop
    EXPECT_EQ(rendered("   \t a"), code(" a\n"));
}

TEST(IndentedCode, keepsTabsBehindItsText) { EXPECT_EQ(rendered("    a\tb"), code("a\tb\n")); }

TEST(IndentedCode, holdsBlankLinesBetweenItsLines) {
    EXPECT_EQ(rendered("    a\n\n  \n      \n    b"), code("a\n\n\n  \nb\n"));
}

TEST(IndentedCode, hasNoBlankLinesAtItsEnd) {
    EXPECT_EQ(rendered("    a\n\n      \n\t\nb"), code("a\n") + "<p>b</p>\n");
    EXPECT_EQ(rendered("\n\n    a\n\n"), code("a\n"));
}

TEST(IndentedCode, endsAtALineLessIndented) {
    EXPECT_EQ(rendered("    a\n   b"), code("a\n") + "<p>b</p>\n");
    EXPECT_EQ(rendered("    a\n\n- b"), code("a\n") + "<ul>\n<li>b</li>\n</ul>\n");
}

TEST(IndentedCode, doesNotEndAParagraph) { EXPECT_EQ(rendered("a\n    b"), "<p>a\nb</p>\n"); }

TEST(IndentedCode, mayFollowAHeading) {
    EXPECT_EQ(rendered("# a\n    b"), "<h1 id=\"a\">a</h1>\n" + code("b\n"));
}

TEST(IndentedCode, hidesEveryOtherBlock) {
    for (const std::string line : {"# a", "---", "> a", "- a", "1. a", "```", "<div>", "| a |", "[a]: b"})
        EXPECT_EQ(rendered("    " + line), rendered("~~~\n" + line + "\n~~~")) << line;
}

TEST(IndentedCode, inAListItemStandsFourColumnsBehindItsContent) {
    EXPECT_EQ(rendered("-     a"), "<ul>\n<li><pre><code>a\n</code></pre></li>\n</ul>\n");
    EXPECT_EQ(rendered("- a\n\n      b"), "<ul>\n<li><p>a</p>\n<pre><code>b\n</code></pre></li>\n</ul>\n");
    EXPECT_EQ(rendered("1.  a\n\n        b"), "<ol>\n<li><p>a</p>\n<pre><code>b\n</code></pre></li>\n</ol>\n");
}

TEST(IndentedCode, inAQuoteStandsFiveColumnsBehindItsMarker) {
    EXPECT_EQ(rendered(">     a"), "<blockquote>\n" + code("a\n") + "</blockquote>\n");
    EXPECT_EQ(rendered(">    a"), "<blockquote>\n<p>a</p>\n</blockquote>\n");
}

TEST(IndentedCode, inAQuoteTakesLazyLines) {
    EXPECT_EQ(rendered(">     a\n    b"), "<blockquote>\n" + code("a\nb\n") + "</blockquote>\n");
}

} // namespace
} // namespace quillmar
