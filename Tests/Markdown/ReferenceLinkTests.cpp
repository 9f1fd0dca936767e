#include "Tests/Helpers/Markdown.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

const std::string linked = "<p><a href=\"b\">a</a></p>\n";

/// The document with \p definition, a blank line and a reference to "a".
std::string defined(const std::string& definition) { return rendered(definition + "\n\n[a]"); }

TEST(ReferenceLink, isFullCollapsedOrAShortcut) {
    EXPECT_EQ(rendered("[a]: b\n\n[*c*][a]"), "<p><a href=\"b\"><em>c</em></a></p>\n");
    EXPECT_EQ(rendered("[a]: b\n\n[a][]"), linked);
    EXPECT_EQ(rendered("[a]: b\n\n[a]"), linked);
    EXPECT_EQ(rendered("[a]: b\n\n[a]()"), "<p><a href=\"\">a</a></p>\n");
}

TEST(ReferenceLink, mayStandBeforeItsDefinition) { EXPECT_EQ(rendered("[a]\n\n[a]: b"), linked); }

TEST(ReferenceLink, hasTheTitleOfItsDefinition) {
    EXPECT_EQ(defined("[a]: b \"c <&\""), "<p><a href=\"b\" title=\"c &lt;&amp;\">a</a></p>\n");
    EXPECT_EQ(defined("[a]: b \"\""), "<p><a href=\"b\" title=\"\">a</a></p>\n");
}

TEST(ReferenceLink, labelIsComparedWithoutCaseAndRunsOfWhiteSpace) {
    EXPECT_EQ(rendered("[Foo  BAR]: b\n\n[x][ fOO\n\u00A0bar ]"), "<p><a href=\"b\">x</a></p>\n");
    EXPECT_EQ(rendered("[ΑΓΩΣ]: b\n\n[αγως]"), "<p><a href=\"b\">αγως</a></p>\n");
    EXPECT_EQ(rendered("[ẞ]: b\n\n[ß] [SS]"), "<p><a href=\"b\">ß</a> [SS]</p>\n");
    EXPECT_EQ(rendered("[foobar]: b\n\n[foo bar]"), "<p>[foo bar]</p>\n");
}

TEST(ReferenceLink, labelIsComparedByCanonicalEquivalence) {
    EXPECT_EQ(rendered("[\u00E9]: b\n\n[E\u0301]"), "<p><a href=\"b\">E\u0301</a></p>\n");
    EXPECT_EQ(rendered("[\u1E69]: b\n\n[s\u0307\u0323]"), "<p><a href=\"b\">s\u0307\u0323</a></p>\n");
}

TEST(ReferenceLink, labelIsRawText) {
    EXPECT_EQ(rendered("[*a*]: b\n\n[*a*] [a]"), "<p><a href=\"b\"><em>a</em></a> [a]</p>\n");
    EXPECT_EQ(rendered("[a\\*]: b\n\n[a\\*] [c][a*]"), "<p><a href=\"b\">a*</a> [c][a*]</p>\n");
}

TEST(ReferenceLink, fullLabelEndsAtTheFirstBracket) {
    EXPECT_EQ(rendered("[a]: b\n[c\\]: d\n\n[x][c\\]"), "<p><a href=\"d\">x</a></p>\n");
    EXPECT_EQ(rendered("[[a]: b\n\n[x][[a]"), "<p><a href=\"b\">x</a></p>\n");
}

TEST(ReferenceLink, withoutDefinitionIsText) {
    EXPECT_EQ(rendered("[a] [a][] [b][a]"), "<p>[a] [a][] [b][a]</p>\n");
}

TEST(ReferenceLink, failedFullReferenceIsNoShortcut) {
    EXPECT_EQ(rendered("[a]: b\n\n[a][c]"), "<p>[a][c]</p>\n");
    EXPECT_EQ(rendered("[a]: b\n\n[a][c"), "<p>[a][c</p>\n");
    EXPECT_EQ(rendered("[a]: b\n\n[c][a][d]"), "<p><a href=\"b\">c</a>[d]</p>\n");
    EXPECT_EQ(rendered("[a]: b\n\n[c][d][a]"), "<p>[c]<a href=\"b\">d</a></p>\n");
}

TEST(ReferenceLink, labelOfWhiteSpaceIsNotTheText) {
    EXPECT_EQ(rendered("[a]: b\n\n[a][ ]"), "<p>[a][ ]</p>\n");
}

TEST(ReferenceLink, failedDestinationIsNoShortcut) {
    EXPECT_EQ(rendered("[a]: b\n\n[a](c"), "<p>[a](c</p>\n");
    EXPECT_EQ(rendered("[a]: b\n\n[a](c d)"), "<p>[a](c d)</p>\n");
    EXPECT_EQ(rendered("[a]: b\n\n[a] (c)"), "<p><a href=\"b\">a</a> (c)</p>\n");
}

TEST(ReferenceLink, innerBracketsAreTriedWhenTheOuterFail) {
    EXPECT_EQ(rendered("[a]: b\n\n[[a]]"), "<p>[<a href=\"b\">a</a>]</p>\n");
    EXPECT_EQ(rendered("[a]: b\n\n[x [a]](c)"), "<p><a href=\"c\">x <a href=\"b\">a</a></a></p>\n");
}

TEST(ReferenceLink, ofADangerousDestinationLeadsNowhere) {
    EXPECT_EQ(defined("[a]: javascript:b"), "<p><a href=\"#\">a</a></p>\n");
    EXPECT_EQ(defined("[a]: <javascript:b>"), "<p><a href=\"#\">a</a></p>\n");
}

TEST(ReferenceLink, mayStandInEveryInlineText) {
    EXPECT_EQ(
        rendered("# [a]\n> - [a]\n\n|[a]|\n|-|\n\n[a]: b"),
        "<h1 id=\"a\"><a href=\"b\">a</a></h1>\n<blockquote>\n<ul>\n<li><a href=\"b\">a</a></li>\n</ul>\n"
        "</blockquote>\n<table>\n<thead>\n<tr><th><a href=\"b\">a</a></th></tr>\n</thead>\n<tbody>\n</tbody>\n"
        "</table>\n");
}

TEST(Definition, isNoPartOfTheText) {
    EXPECT_EQ(rendered("[a]: b"), "");
    EXPECT_EQ(rendered("x\n[a]: b\ny"), "<p>x\ny</p>\n"); // it does not even part a paragraph
    EXPECT_EQ(rendered("x\n\n[a]: b\n\ny"), "<p>x</p>\n<p>y</p>\n");
}

TEST(Definition, hasManyForms) {
    for (const std::string line :
         {"[a]: b", "[a]:b", "   [a]: b", "[a]: <b>", "[A]:\t b  ", "[ a ]: b", "[a]:\u00A0b", "[a]: b\u2028"})
        EXPECT_EQ(defined(line), linked) << line;
}

TEST(Definition, titleHasManyForms) {
    const std::string html = "<p><a href=\"b\" title=\"c\">a</a></p>\n";
    for (const std::string line :
         {"[a]: b \"c\"", "[a]: b 'c'", "[a]: b (c)", "[a]: b \"c)", "[a]: b\t'c\" ", "[a]: b  (c'"})
        EXPECT_EQ(defined(line), html) << line;
}

TEST(Definition, titleEndsAtTheLastClosingCharacter) {
    EXPECT_EQ(defined("[a]: b \"c\" 'd'"), "<p><a href=\"b\" title=\"c&quot; &#39;d\">a</a></p>\n");
    EXPECT_EQ(defined("[a]: b \"c\"d\""), "<p><a href=\"b\" title=\"c&quot;d\">a</a></p>\n");
}

TEST(Definition, titleNeedsWhiteSpaceBeforeIt) {
    EXPECT_EQ(defined("[a]: b\"c\""), "<p><a href=\"b&quot;c&quot;\">a</a></p>\n");
    EXPECT_EQ(defined("[a]: \"c\""), "<p><a href=\"&quot;c&quot;\">a</a></p>\n");
}

TEST(Definition, isNothingElse) {
    for (const std::string line :
         {"[a]:", "[a]: ", "[a] : b", "[]: b", "[a]: b c", "[a]: b \"c", "[a]: b \"c\" d", "[a]: <b c>",
          "x [a]: b", "\\[a]: b", "[a]]: b", "\u00A0[a]: b"})
        EXPECT_EQ(defined(line).find("href"), std::string::npos) << line;
}

TEST(Definition, titleHasNoLineTerminator) {
    EXPECT_EQ(defined("[a]: b \"c\u2028d\""), "<p>[a]: b &quot;c\u2028d&quot;</p>\n<p>[a]</p>\n");
}

TEST(Definition, indentedByFourSpacesIsCode) {
    EXPECT_EQ(defined("    [a]: b"), "<pre><code>[a]: b\n</code></pre>\n<p>[a]</p>\n");
    EXPECT_EQ(defined("x\n\t[a]: b"), "<p>x\n[a]: b</p>\n<p>[a]</p>\n");
}

TEST(Definition, firstOneOfALabelCounts) {
    EXPECT_EQ(defined("[a]: b\n[A]: c\n[a]: d 'e'"), linked);
    EXPECT_EQ(rendered("[\u00E9]: b\n[e\u0301]: c\n\n[\u00E9]"), "<p><a href=\"b\">\u00E9</a></p>\n");
}

TEST(Definition, destinationInAngleBracketsIsStoredWithoutThem) {
    EXPECT_EQ(defined("[a]: <>"), "<p><a href=\"\">a</a></p>\n");
    EXPECT_EQ(defined("[a]: <b"), "<p><a href=\"&lt;b\">a</a></p>\n");
    EXPECT_EQ(defined("[a]: <<b>>"), "<p><a href=\"&lt;b&gt;\">a</a></p>\n");
}

TEST(Definition, ofAFootnoteStaysInTheText) {
    EXPECT_EQ(rendered("x[^1]\n\n[^1]: note\n[ ^2]: note"), "<p>x[^1]</p>\n<p>[^1]: note\n[ ^2]: note</p>\n");
}

TEST(Definition, labelMayBeWhiteSpace) {
    EXPECT_EQ(rendered("[ ]: b\n\n[ ] c\n\n- [ ] d"),
              "<p><a href=\"b\"> </a> c</p>\n<ul class=\"tasks\">\n"
              "<li class=\"task\"><input type=\"checkbox\" disabled> d</li>\n</ul>\n");
}

TEST(Definition, inAFenceIsCode) {
    EXPECT_EQ(defined("```\n[a]: b\n```"), "<pre><code>[a]: b\n</code></pre>\n<p>[a]</p>\n");
    EXPECT_EQ(defined("   ~~~~ x`\n[a]: b\n~~~\n[a]: c\n    ~~~~\n~~~~"),
              "<pre><code class=\"language-x`\">[a]: b\n~~~\n[a]: c\n ~~~~\n</code></pre>\n<p>[a]</p>\n");
    EXPECT_EQ(rendered("[a]\n```\n[a]: b"), "<p>[a]</p>\n<pre><code>[a]: b\n</code></pre>\n");
}

TEST(Definition, behindWhatIsNoFenceIsOne) {
    EXPECT_EQ(defined("``` `\n[a]: b"), "<p>``` `</p>\n" + linked);
    EXPECT_EQ(defined("    ```\n[a]: b"), "<pre><code>```\n</code></pre>\n" + linked);
}

TEST(Definition, inAQuoteIsText) {
    EXPECT_EQ(defined("> [a]: b"), "<blockquote>\n<p>[a]: b</p>\n</blockquote>\n<p>[a]</p>\n");
    EXPECT_EQ(defined("> x\n[a]: b\n> y"), "<blockquote>\n<p>x\ny</p>\n</blockquote>\n" + linked);
}

TEST(Definition, behindAListMarkerIsText) {
    EXPECT_EQ(defined("- [a]: b"), "<ul>\n<li>[a]: b</li>\n</ul>\n<p>[a]</p>\n");
    EXPECT_EQ(defined("- x\n  [a]: b"), "<ul>\n<li>x</li>\n</ul>\n" + linked);
}

TEST(Definition, fencesInListItemsAreSeenByTheirIndentationOnly) {
    // The line that opens this fence begins with a bullet, so the one that closes it seems to open one.
    EXPECT_EQ(defined("- ```\n  [a]: b\n  ```\n\n[c]: d"),
              "<ul>\n<li><pre><code></code></pre></li>\n</ul>\n<p>[c]: d</p>\n" + linked);
}

} // namespace
} // namespace quillmar
