#include "Tests/Helpers/Markdown.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

/// The address that a link to \p destination gets, as markup; the whole paragraph when it is no link.
std::string href(const std::string& destination) {
    std::string html = rendered("[a](" + destination + ")");
    const std::string start = "<p><a href=\"";
    const std::string end = "\">a</a></p>\n";
    if (html.size() < start.size() + end.size() || html.substr(0, start.size()) != start) return html;
    return html.substr(start.size(), html.size() - start.size() - end.size());
}

TEST(Link, hasATextAndADestination) {
    expectParagraphs(
        {{"[a](b)", "<a href=\"b\">a</a>"}, {"x [a b](c/d.md#e) y", "x <a href=\"c/d.md#e\">a b</a> y"}});
}

TEST(Link, mayHaveATitle) {
    expectParagraphs({{"[a](b \"c d\")", "<a href=\"b\" title=\"c d\">a</a>"},
                      {"[a](b 'c')", "<a href=\"b\" title=\"c\">a</a>"},
                      {"[a](b (c))", "<a href=\"b\" title=\"c\">a</a>"},
                      {"[a](b \"\")", "<a href=\"b\" title=\"\">a</a>"},
                      {"[a](b \"c'(d)<&\")", "<a href=\"b\" title=\"c&#39;(d)&lt;&amp;\">a</a>"},
                      {"[a](<b> \t'c' )", "<a href=\"b\" title=\"c\">a</a>"}});
}

TEST(Link, titleEndsAtTheFirstClosingCharacter) {
    expectParagraphs({{"[a](b \"c\"d\")", "[a](b &quot;c&quot;d&quot;)"},
                      {"[a](b \"c\\\"d\")", "[a](b &quot;c&quot;d&quot;)"},
                      {"[a](b 'c\\')", "<a href=\"b\" title=\"c\\\">a</a>"},
                      {"[a](b (c(d)))", "<a href=\"b\" title=\"c(d\">a</a>)"}});
}

TEST(Link, titleMaySpanLines) {
    expectParagraphs({{"[a](b 'c\nd')", "<a href=\"b\" title=\"c\nd\">a</a>"},
                      {"[a](b\n'c')", "<a href=\"b\" title=\"c\">a</a>"}});
}

TEST(Link, titleStandsBehindWhiteSpace) {
    expectParagraphs({{"[a](b\"c\")", "<a href=\"b&quot;c&quot;\">a</a>"},
                      {"[a](<b>\"c\")", "[a](<b>&quot;c&quot;)"},
                      {"[a](b\u00A0\"c\")", "<a href=\"b\" title=\"c\">a</a>"}});
}

TEST(Link, mayHaveWhiteSpaceInItsParentheses) {
    expectParagraphs({{"[a]( b )", "<a href=\"b\">a</a>"},
                      {"[a](\n  b\n)", "<a href=\"b\">a</a>"},
                      {"[a](\u00A0\tb\u3000)", "<a href=\"b\">a</a>"},
                      {"[a]( \"b\" )", "<a href=\"&quot;b&quot;\">a</a>"}});
}

TEST(Link, mayBeEmpty) {
    expectParagraphs({{"[]()", "<a href=\"\"></a>"},
                      {"[a]()", "<a href=\"\">a</a>"},
                      {"[](b)", "<a href=\"b\"></a>"},
                      {"[a]( )", "<a href=\"\">a</a>"},
                      {"[a](<>)", "<a href=\"\">a</a>"}});
}

TEST(Link, destinationMayHoldBalancedParentheses) {
    EXPECT_EQ(href("b(c)(d(e))"), "b(c)(d(e))");
    EXPECT_EQ(href("b\\)c\\("), "b\\)c\\(");
    expectParagraphs(
        {{"[a](b))", "<a href=\"b\">a</a>)"}, {"[a](b(c)", "[a](b(c)"}, {"[a](b(c d)", "[a](b(c d)"}});
}

TEST(Link, destinationInAngleBracketsIsTakenAsWritten) {
    EXPECT_EQ(href("<b c)\\(\"'>"), "b%20c)\\(&quot;&#39;");
    EXPECT_EQ(href("<b\nc>"), "b\nc");
    EXPECT_EQ(href("< b >"), "b");
    expectParagraphs({{"[a](<b) [c](d>)", "<a href=\"b)%20[c](d\">a</a>"}, {"[a](<b>c)", "[a](<b>c)"}});
}

TEST(Link, destinationWithoutClosingAngleBracketIsAnOrdinaryOne) {
    EXPECT_EQ(href("<b"), "&lt;b");
    expectParagraphs({{"[a](<b c)", "[a](&lt;b c)"}});
}

TEST(Link, destinationKeepsBackslashes) { EXPECT_EQ(href("b\\*\\_c\\d"), "b\\*\\_c\\d"); }

TEST(Link, destinationIsEscaped) { EXPECT_EQ(href("b?c=d&e='\"<f"), "b?c=d&amp;e=&#39;&quot;&lt;f"); }

TEST(Link, unfinishedIsText) {
    expectParagraphs({{"[a", "[a"},
                      {"[a]", "[a]"},
                      {"a]", "a]"},
                      {"[a](", "[a]("},
                      {"[a](b", "[a](b"},
                      {"[a](b c)", "[a](b c)"},
                      {"[a](b \"c)", "[a](b &quot;c)"},
                      {"[a](b \"c\" d)", "[a](b &quot;c&quot; d)"},
                      {"[a](b\\)", "[a](b)"},
                      {"[a] (b)", "[a] (b)"},
                      {"[a]\n(b)", "[a]\n(b)"}});
}

TEST(LinkText, mayHoldBalancedBrackets) {
    expectParagraphs({{"[a [b] c](d)", "<a href=\"d\">a [b] c</a>"},
                      {"[a\\]b\\[](c)", "<a href=\"c\">a]b[</a>"},
                      {"[a [b](c)", "[a <a href=\"c\">b</a>"},
                      {"[a] b](c)", "[a] b](c)"}});
}

TEST(LinkText, hidesBracketsInCode) {
    expectParagraphs({{"[`]`](a)", "<a href=\"a\"><code>]</code></a>"},
                      {"[``a]`b`` c](d)", "<a href=\"d\"><code>a]`b</code> c</a>"},
                      {"[a` b](c)", "<a href=\"c\">a` b</a>"}}); // a backtick without partner is text
}

TEST(LinkText, goesThroughTheInlineParser) {
    expectParagraphs({{"[*a* `b` <c>](d)", "<a href=\"d\"><em>a</em> <code>b</code> <c></a>"},
                      {"[https://a](b)", "<a href=\"b\"><a href=\"https://a\">https://a</a></a>"},
                      {"[<a](b>c)", "<a href=\"b&gt;c\">&lt;a</a>"}});
}

TEST(LinkText, mayHoldLinks) {
    expectParagraphs({{"[a [b](c) d](e)", "<a href=\"e\">a <a href=\"c\">b</a> d</a>"},
                      {"[[a](b)](c)", "<a href=\"c\"><a href=\"b\">a</a></a>"}});
}

TEST(LinkScheme, isOneOfSix) {
    for (const std::string url : {"http://b", "https://b", "mailto:b@c.d", "ftp://b", "tel:+1-2",
                                  "x-apple.systempreferences:b", "HTTPS://B", "MailTo:b"})
        EXPECT_EQ(href(url), url);
}

TEST(LinkScheme, ofAnotherKindLeadsNowhere) {
    for (const std::string url :
         {"javascript:b", "JavaScript:b()", "vbscript:b", "data:text/html,b", "data:image/png,b", "file:///b",
          "b:c", ":b", "<java\nscript:b>", "<java script:b>", "< javascript:b>", "\x01javascript:b",
          "javascript:\u0301b", "javascript\u0600:b", "about:", "\\javascript:b", "http\u200B:b", "httр:b",
          "%68ttp:b"})
        EXPECT_EQ(href(url), "#") << url;
}

TEST(LinkScheme, isNoneBehindASlashAHashSignOrAQuestionMark) {
    for (const std::string url : {"/b:c", "b/c:d", "./b:c", "#b:c", "?b:c", "b?javascript:c", "//b:c"})
        EXPECT_EQ(href(url), url);
}

TEST(LinkScheme, needsAnASCIIColon) {
    EXPECT_EQ(href("javascript\uFF1Ab"), "javascript\uFF1Ab");
    EXPECT_EQ(href("javascript&colon;b"), "javascript&amp;colon;b");
    EXPECT_EQ(href("javascript%3Ab"), "javascript%3Ab");
}

TEST(LinkDestination, hasPercentSignsForSpaces) {
    EXPECT_EQ(href("<b c  d>"), "b%20c%20%20d");
    EXPECT_EQ(href("<b\u00A0c\td>"), "b\u00A0c\td"); // and for nothing else
    EXPECT_EQ(href("b%20c%"), "b%20c%");
}

} // namespace
} // namespace quillmar
