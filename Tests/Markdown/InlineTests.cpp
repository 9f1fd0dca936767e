#include "Tests/Helpers/Markdown.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

std::string paragraph(std::string_view html) {
    std::string text = "<p>";
    text += html;
    return text += "</p>\n";
}

TEST(InlineText, isEscaped) {
    EXPECT_EQ(rendered("a & b < c > d \" e ' f"), paragraph("a &amp; b &lt; c &gt; d &quot; e &#39; f"));
}

TEST(InlineText, isEscapedInsideCombiningSequences) {
    EXPECT_EQ(rendered("a <\u0301b>\u0301 &\u20DD \u0600\"c"),
              paragraph("a &lt;\u0301b&gt;\u0301 &amp;\u20DD \u0600&quot;c"));
}

TEST(InlineText, hasNoCharacterReferences) {
    EXPECT_EQ(rendered("&amp; &copy; &#35; &lt;b&gt;"),
              paragraph("&amp;amp; &amp;copy; &amp;#35; &amp;lt;b&amp;gt;"));
}

TEST(InlineText, ofAnyScriptIsCopied) {
    EXPECT_EQ(rendered("日本語 עברית العربية 👩‍👩‍👧 \u202Ea\u202C e\u0301\u0323"),
              paragraph("日本語 עברית العربية 👩‍👩‍👧 \u202Ea\u202C e\u0301\u0323"));
}

TEST(Escape, showsEveryASCIIPunctuationMark) {
    EXPECT_EQ(rendered("\\!\\\"\\#\\$\\%\\&\\'\\(\\)\\*\\+\\,\\-\\.\\/"
                       "\\:\\;\\<\\=\\>\\?\\@\\[\\\\\\]\\^\\_\\`\\{\\|\\}\\~"),
              paragraph("!&quot;#$%&amp;&#39;()*+,-./:;&lt;=&gt;?@[\\]^_`{|}~"));
}

TEST(Escape, isABackslashBeforeAnythingElse) {
    EXPECT_EQ(rendered("\\a \\0 \\é \\« \\  \\\u0301 \\\t\\"),
              paragraph("\\a \\0 \\é \\« \\  \\\u0301 \\\t\\"));
}

TEST(Escape, hidesMarkup) {
    EXPECT_EQ(rendered("\\*a* \\_b_ \\[c](d) \\<e> \\`f` \\~~g~~ \\!"),
              paragraph("*a* _b_ [c](d) &lt;e&gt; `f` ~~g~~ !"));
    EXPECT_EQ(rendered("\\# a"), paragraph("# a"));
    EXPECT_EQ(rendered("\\- a"), paragraph("- a"));
    EXPECT_EQ(rendered("1\\. a"), paragraph("1. a"));
    EXPECT_EQ(rendered("\\> a"), paragraph("&gt; a"));
    EXPECT_EQ(rendered("\\---"), paragraph("---"));
}

TEST(Escape, mayBeEscaped) { EXPECT_EQ(rendered("\\\\*a*"), paragraph("\\<em>a</em>")); }

TEST(CodeSpan, standsBetweenEqualRuns) {
    EXPECT_EQ(rendered("`a` ``b`` `````c`````"), paragraph("<code>a</code> <code>b</code> <code>c</code>"));
}

TEST(CodeSpan, mayHoldRunsOfOtherLengths) {
    EXPECT_EQ(rendered("``a`b``"), paragraph("<code>a`b</code>"));
    EXPECT_EQ(rendered("`a``b```c`"), paragraph("<code>a``b```c</code>"));
    EXPECT_EQ(rendered("`` ` ``"), paragraph("<code>`</code>"));
}

TEST(CodeSpan, withoutEndIsText) {
    EXPECT_EQ(rendered("`a"), paragraph("`a"));
    EXPECT_EQ(rendered("``"), paragraph("``"));
    EXPECT_EQ(rendered("``a`"), paragraph("``a`"));
    EXPECT_EQ(rendered("a ```b``"), paragraph("a ```b``"));
    EXPECT_EQ(rendered("``a `b`"), paragraph("``a <code>b</code>"));
    EXPECT_EQ(rendered("`a\n\nb`"), paragraph("`a") + paragraph("b`"));
}

TEST(CodeSpan, losesOneSpaceAtBothEnds) {
    EXPECT_EQ(rendered("` a `"), paragraph("<code>a</code>"));
    EXPECT_EQ(rendered("`  a  `"), paragraph("<code> a </code>"));
    EXPECT_EQ(rendered("` a`"), paragraph("<code> a</code>"));
    EXPECT_EQ(rendered("`a `"), paragraph("<code>a </code>"));
    EXPECT_EQ(rendered("`\u00A0a\u00A0`"), paragraph("<code>\u00A0a\u00A0</code>"));
}

TEST(CodeSpan, ofSpacesOnlyKeepsThem) {
    EXPECT_EQ(rendered("` `"), paragraph("<code> </code>"));
    EXPECT_EQ(rendered("`   `"), paragraph("<code>   </code>"));
    EXPECT_EQ(rendered("a `\n` b"), paragraph("a <code> </code> b"));
}

TEST(CodeSpan, hasSpacesForLineBreaks) {
    EXPECT_EQ(rendered("`a\nb  \nc`"), paragraph("<code>a b   c</code>"));
    EXPECT_EQ(rendered("`\na\n`"), paragraph("<code>a</code>")); // and they count as such at both ends
}

TEST(CodeSpan, isEscapedAndNothingElse) {
    EXPECT_EQ(rendered("`<a> & \"*b*\" \\* [c](d) https://e`"),
              paragraph("<code>&lt;a&gt; &amp; &quot;*b*&quot; \\* [c](d) https://e</code>"));
}

TEST(CodeSpan, mayEndInABackslash) { EXPECT_EQ(rendered("`a\\` b`"), paragraph("<code>a\\</code> b`")); }

TEST(CodeSpan, isNotOpenedByAnEscapedBacktick) {
    EXPECT_EQ(rendered("\\`a`"), paragraph("`a`"));
    EXPECT_EQ(rendered("\\`a`b`"), paragraph("`a<code>b</code>"));
    EXPECT_EQ(rendered("\\``a`"), paragraph("`<code>a</code>"));
}

TEST(CodeSpan, comesBeforeEmphasisAndLinks) {
    EXPECT_EQ(rendered("*a`*`"), paragraph("*a<code>*</code>"));
    EXPECT_EQ(rendered("[a`](b)`"), paragraph("[a<code>](b)</code>"));
    EXPECT_EQ(rendered("[`a`](b)"), paragraph("<a href=\"b\"><code>a</code></a>"));
}

TEST(Inline, constructsStandSideBySide) {
    EXPECT_EQ(rendered("*a***b**`c`<d>[e](f)~~g~~\\*h"),
              paragraph("<em>a</em><strong>b</strong><code>c</code><d><a href=\"f\">e</a><del>g</del>*h"));
}

TEST(Inline, endsWithItsBlock) {
    EXPECT_EQ(rendered("*a\n\nb*"), paragraph("*a") + paragraph("b*"));
    EXPECT_EQ(rendered("- **a\n- b**"), "<ul>\n<li>**a</li>\n<li>b**</li>\n</ul>\n");
    EXPECT_EQ(rendered("# [a\nb](c)"), "<h1 id=\"a\">[a</h1>\n" + paragraph("b](c)"));
}

} // namespace
} // namespace quillmar
