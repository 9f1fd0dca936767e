#include "Tests/Helpers/Markdown.h"

#include <gtest/gtest.h>

// Paragraphs of about 200 KB, as in HostileMarkdownTests.cpp.

namespace quillmar {
namespace {

constexpr std::size_t many = 100'000;

std::string paragraph(std::string_view html) {
    std::string text = "<p>";
    text += html;
    return text += "</p>\n";
}

/// A text that is shown as it stands.
void expectText(const std::string& markdown) { EXPECT_TRUE(sameText(rendered(markdown), paragraph(markdown))); }

TEST(HostileInline, bracketsWithoutPartnerAreText) {
    for (const std::string_view piece :
         {"[", "![", "]", "[a", "a]", "[]", "[a]", "[a][", "[a](", "[x][y", "[[]", "[]]"})
        expectText(repeated(piece, 2 * many / piece.size()));
    expectText(repeated("[", many) + repeated("]", many));
    expectText(repeated("[a", many) + repeated("b]", many / 2));
    expectText(repeated("[", many) + repeated("][", many));
}

TEST(HostileInline, bracketsThatAddressesHideFromEachOtherAreText) {
    // From each bracket on, the backtick in the address seems to begin code that holds the next bracket.
    const std::string address = "<a href=\"#\">aa:`</a>";
    std::string pair = "[";
    pair.append(address).append("]");
    std::string html = "x [";
    html.append(address).append(repeated(pair, many / 5));
    EXPECT_TRUE(sameText(rendered("x [<aa:`>" + repeated("[<aa:`>]", many / 5)), paragraph(html)));
}

TEST(HostileInline, unfinishedDestinationsAreText) {
    for (const std::string_view piece :
         {"[a](b", "[a](b(", "[a](b (c", "[a]( ", "[a](b\n", "[](", "[a](b c) "}) {
        std::string markdown = repeated(piece, 2 * many / piece.size());
        while (markdown.back() == ' ' || markdown.back() == '\n') markdown.pop_back();
        markdown += "x";
        expectText(markdown);
    }
    expectText("[a](" + repeated("(", many) + repeated(")", many));
    expectText("[a](" + repeated(" ", many) + "b c)");
    expectText("[a](b" + repeated(" ", many) + "c)");
}

TEST(HostileInline, unfinishedTitlesAreText) {
    EXPECT_TRUE(
        sameText(rendered(repeated("[a](b \"", many / 4)), paragraph(repeated("[a](b &quot;", many / 4))));
    EXPECT_TRUE(
        sameText(rendered(repeated("[a](b '", many / 4)), paragraph(repeated("[a](b &#39;", many / 4))));
    EXPECT_TRUE(sameText(rendered(repeated("[a](b \"'(", many / 5) + "c"),
                         paragraph(repeated("[a](b &quot;&#39;(", many / 5) + "c")));
}

TEST(HostileInline, unfinishedAngleBracketDestinationsAreText) {
    EXPECT_TRUE(sameText(rendered(repeated("[a](<", many / 4)), paragraph(repeated("[a](&lt;", many / 4))));
    EXPECT_TRUE(sameText(rendered(repeated("[a](<b", many / 4) + ">"),
                         paragraph(repeated("[a](&lt;b", many / 4 - 1) + "[a](<b>")));
    EXPECT_TRUE(sameText(rendered(repeated("[a](<b>", many / 4)), paragraph(repeated("[a](<b>", many / 4))));
}

TEST(HostileInline, destinationHoldsManyParentheses) {
    const std::string url = repeated("(", many) + repeated(")", many);
    EXPECT_TRUE(sameText(rendered("[a](" + url + ")"), paragraph("<a href=\"" + url + "\">a</a>")));
}

TEST(HostileInline, linksNestWithoutLimit) {
    EXPECT_TRUE(sameText(rendered(repeated("[", many / 2) + "a" + repeated("](b)", many / 2)),
                         paragraph(repeated("<a href=\"b\">", many / 2) + "a" + repeated("</a>", many / 2))));
    EXPECT_TRUE(sameText(rendered("[c]: b\n\n" + repeated("[", many / 2) + "a" + repeated("][c]", many / 2)),
                         paragraph(repeated("<a href=\"b\">", many / 2) + "a" + repeated("</a>", many / 2))));
}

TEST(HostileInline, onlyTheInnermostBracketsAreAReference) {
    EXPECT_TRUE(sameText(rendered("[a]: b\n\n" + repeated("[", many) + "a" + repeated("]", many)),
                         paragraph(repeated("[", many - 1) + "<a href=\"b\">a</a>" + repeated("]", many - 1))));
    EXPECT_TRUE(sameText(rendered(repeated("[a", many) + "](b)"),
                         paragraph(repeated("[a", many - 1) + "<a href=\"b\">a</a>")));
}

TEST(HostileInline, imagesNestAsOneAlternativeText) {
    EXPECT_TRUE(sameText(rendered(repeated("![", many / 3) + "a" + repeated("](b)", many / 3)),
                         paragraph("<span class=\"missing-image\" title=\"b\">" + repeated("!", many / 3 - 1) +
                                   "a" + repeated("(b)", many / 3 - 1) + "</span>")));
}

TEST(HostileInline, linksAndImagesNestInEachOther) {
    // Each image hides the links in its text.
    EXPECT_TRUE(sameText(rendered(repeated("[![", many / 4) + "a" + repeated("](b)](c)", many / 4)),
                         paragraph("<a href=\"c\"><span class=\"missing-image\" title=\"b\">" +
                                   repeated("!", many / 4 - 1) + "a" + repeated("(b)(c)", many / 4 - 1) +
                                   "</span></a>")));
}

TEST(HostileInline, manyLinksStandSideBySide) {
    EXPECT_TRUE(
        sameText(rendered(repeated("[a](b)", many / 3)), paragraph(repeated("<a href=\"b\">a</a>", many / 3))));
    EXPECT_TRUE(sameText(rendered("[a]: b\n\n" + repeated("[a] ", many / 2) + "x"),
                         paragraph(repeated("<a href=\"b\">a</a> ", many / 2) + "x")));
}

TEST(HostileInline, emphasisInLinksInEmphasisNestsWithoutLimit) {
    EXPECT_TRUE(
        sameText(rendered(repeated("*[", many / 4) + "a" + repeated("](b)*", many / 4)),
                 paragraph(repeated("<em><a href=\"b\">", many / 4) + "a" + repeated("</a></em>", many / 4))));
}

TEST(HostileInline, backticksWithoutPartnerAreText) {
    std::string growing = "a";
    std::string shrinking = "a";
    for (std::size_t length = 1; length <= 600; ++length) {
        growing += repeated("`", length) + "a";
        shrinking += repeated("`", 601 - length) + "a";
    }
    expectText(growing);
    expectText(shrinking);
    expectText("[" + growing + "](b");
    expectText("a" + repeated("`", 2 * many));
}

TEST(HostileInline, backticksInBracketsHideThem) {
    EXPECT_TRUE(sameText(rendered(repeated("[`a", many)), paragraph(repeated("[<code>a[</code>a", many / 2))));
    EXPECT_TRUE(sameText(rendered(repeated("[``", many / 2) + "a`b"),
                         paragraph(repeated("[<code>[</code>", many / 4) + "a`b")));
}

TEST(HostileInline, codeHoldsManyRuns) {
    EXPECT_TRUE(sameText(rendered("``" + repeated("a`", many) + "b``"),
                         paragraph("<code>" + repeated("a`", many) + "b</code>")));
    EXPECT_TRUE(sameText(rendered("a " + repeated("`b` ", many / 2) + "c"),
                         paragraph("a " + repeated("<code>b</code> ", many / 2) + "c")));
}

TEST(HostileInline, backslashesEscapeEachOther) {
    EXPECT_TRUE(sameText(rendered(repeated("\\", 2 * many)), paragraph(repeated("\\", many))));
    EXPECT_TRUE(sameText(rendered(repeated("[\\]", many)), paragraph(repeated("[]", many))));
    EXPECT_TRUE(sameText(rendered(repeated("\\a", many)), paragraph(repeated("\\a", many))));
}

TEST(HostileInline, delimitersWithoutPartnerAreText) {
    for (const std::string_view piece :
         {"*a ", "a* ", "_a ", "**a ", "~~a ", "*a _b ", "*a **b ", "a_ b* ", "~a ", "~~~a ", "* ", "_"})
        expectText("x" + repeated(piece, 2 * many / piece.size()) + "x");
    expectText("x " + repeated("*", 2 * many));
    expectText("x " + repeated("~", 2 * many));
    expectText(repeated("_a ", many / 2) + repeated("b* ", many / 2) + "c");
    expectText(repeated("~~a ", many / 2) + repeated("b* ", many / 2) + "c");
    expectText(repeated("*a ", many / 2) + repeated("b_ ", many / 2) + "c");
}

TEST(HostileInline, emphasisNestsWithoutLimit) {
    EXPECT_TRUE(sameText(rendered(repeated("*a ", many / 2) + "b" + repeated(" a*", many / 2)),
                         paragraph(repeated("<em>a ", many / 2) + "b" + repeated(" a</em>", many / 2))));
    EXPECT_TRUE(sameText(rendered(repeated("~~a ", many / 3) + "b" + repeated(" a~~", many / 3)),
                         paragraph(repeated("<del>a ", many / 3) + "b" + repeated(" a</del>", many / 3))));
    EXPECT_TRUE(
        sameText(rendered(repeated("*a _b ", many / 4) + "c" + repeated(" d_ e*", many / 4)),
                 paragraph(repeated("<em>a <em>b ", many / 4) + "c" + repeated(" d</em> e</em>", many / 4))));
}

TEST(HostileInline, longRunsAreManyElements) {
    EXPECT_TRUE(
        sameText(rendered("x " + repeated("*", many) + "a" + repeated("*", many)),
                 paragraph("x " + repeated("<strong>", many / 2) + "a" + repeated("</strong>", many / 2))));
    EXPECT_TRUE(sameText(rendered("x " + repeated("_", many + 1) + "a" + repeated("_", many + 1)),
                         paragraph("x <em>" + repeated("<strong>", many / 2) + "a" +
                                   repeated("</strong>", many / 2) + "</em>")));
}

TEST(HostileInline, longRunIsSharedByManyShortOnes) {
    EXPECT_TRUE(sameText(rendered("x " + repeated("*", many / 2) + "a" + repeated(" b*", many / 2)),
                         paragraph("x " + repeated("<em>", many / 2) + "a" + repeated(" b</em>", many / 2))));
    EXPECT_TRUE(sameText(rendered(repeated("*a ", many / 2) + "b" + repeated("*", many / 2)),
                         paragraph(repeated("<em>a ", many / 2) + "b" + repeated("</em>", many / 2))));
    EXPECT_TRUE(
        sameText(rendered("x " + repeated("*", many) + "a" + repeated(" b**", many / 2)),
                 paragraph("x " + repeated("<strong>", many / 2) + "a" + repeated(" b</strong>", many / 2))));
}

TEST(HostileInline, runsThatOpenAndCloseFormPairs) {
    EXPECT_TRUE(
        sameText(rendered(repeated("a*", many) + "a"), paragraph(repeated("a<em>a</em>", many / 2) + "a")));
    EXPECT_TRUE(sameText(rendered(repeated("a**", many / 2) + "a"),
                         paragraph(repeated("a<strong>a</strong>", many / 4) + "a")));
    expectText(repeated("a_", many) + "a");
}

TEST(HostileInline, lessThanSignsAreText) {
    EXPECT_TRUE(sameText(rendered("x " + repeated("<", many)), paragraph("x " + repeated("&lt;", many))));
    EXPECT_TRUE(sameText(rendered("x " + repeated("<a ", many) + "b"),
                         paragraph("x " + repeated("&lt;a ", many) + "b")));
    EXPECT_TRUE(sameText(rendered("x " + repeated("<a ", many) + "1>"),
                         paragraph("x " + repeated("&lt;a ", many) + "1&gt;")));
    EXPECT_TRUE(
        sameText(rendered("x " + repeated("<!--", many / 2)), paragraph("x " + repeated("&lt;!--", many / 2))));
    EXPECT_TRUE(sameText(rendered("x " + repeated("</", many)), paragraph("x " + repeated("&lt;/", many))));
    EXPECT_TRUE(sameText(rendered("x" + repeated("><", many)), paragraph("x" + repeated("&gt;&lt;", many))));
}

TEST(HostileInline, unfinishedAutolinksAreText) {
    EXPECT_TRUE(sameText(rendered("x " + repeated("<aa:", many / 2) + " >"),
                         paragraph("x " + repeated("&lt;aa:", many / 2) + " &gt;")));
    EXPECT_TRUE(sameText(rendered("x " + repeated("<", many) + "@. >"),
                         paragraph("x " + repeated("&lt;", many) + "@. &gt;")));
    EXPECT_TRUE(sameText(rendered("x " + repeated("<a@b.c", many / 4)),
                         paragraph("x " + repeated("&lt;a@b.c", many / 4))));
    EXPECT_TRUE(sameText(rendered("x " + repeated("<", many) + "a@bc>"),
                         paragraph("x " + repeated("&lt;", many) + "a@bc&gt;")));
}

TEST(HostileInline, autolinkTakesEverythingUpToItsEnd) {
    const std::string content = "aa:" + repeated("<aa:", many / 2);
    EXPECT_TRUE(sameText(rendered("x <" + content + ">"),
                         paragraph("x <a href=\"#\">aa:" + repeated("&lt;aa:", many / 2) + "</a>")));
}

TEST(HostileInline, tagHasManyAttributes) {
    for (const std::string_view attribute : {" a", " a=b", " a=\"b\"", "  a  =  'b'", "\ta"})
        expectText("x <b" + repeated(attribute, 2 * many / attribute.size()) + ">");
}

TEST(HostileInline, almostATagIsText) {
    const std::string space = repeated(" ", many);
    EXPECT_TRUE(sameText(rendered("x <a" + space + "!>"), paragraph("x &lt;a" + space + "!&gt;")));
    EXPECT_TRUE(sameText(rendered("x <a b" + space + "!>"), paragraph("x &lt;a b" + space + "!&gt;")));
    EXPECT_TRUE(sameText(rendered("x <a b" + space + "=" + space + ">"),
                         paragraph("x &lt;a b" + space + "=" + space + "&gt;")));
    EXPECT_TRUE(sameText(rendered("x <a" + repeated(" b", many / 2) + "!>"),
                         paragraph("x &lt;a" + repeated(" b", many / 2) + "!&gt;")));
    EXPECT_TRUE(sameText(rendered("x <" + repeated("a", 2 * many) + "!>"),
                         paragraph("x &lt;" + repeated("a", 2 * many) + "!&gt;")));
}

TEST(HostileInline, manyTagsAndComments) {
    expectText("x " + repeated("<b>", many / 2));
    EXPECT_TRUE(sameText(rendered("x" + repeated("<!-- a -->", many / 5)), paragraph("x")));
    EXPECT_TRUE(sameText(rendered("x" + repeated("<!-->", many / 3) + "-->"), paragraph("x")));
}

TEST(HostileInline, bareURLsRunTogether) {
    const std::string schemes = repeated("https://", many / 4);
    EXPECT_TRUE(sameText(rendered(schemes), paragraph("<a href=\"" + schemes + "\">" + schemes + "</a>")));
    const std::string hosts = repeated("www.", many / 2 - 1) + "www";
    EXPECT_TRUE(
        sameText(rendered(hosts + "."), paragraph("<a href=\"https://" + hosts + "\">" + hosts + "</a>.")));
    expectText(repeated("http:/", many / 3));
    expectText(repeated("h", many) + repeated("w", many));
    EXPECT_TRUE(sameText(rendered("https://" + repeated(".", 2 * many)),
                         paragraph("<a href=\"https://\">https://</a>" + repeated(".", 2 * many))));
    EXPECT_TRUE(sameText(rendered(repeated("www.!? ", many / 4) + "a"),
                         paragraph(repeated("<a href=\"https://www\">www</a>.!? ", many / 4) + "a")));
}

TEST(HostileInline, manyLineBreaks) {
    EXPECT_TRUE(
        sameText(rendered(repeated("a  \n", many / 2) + "a"), paragraph(repeated("a<br>\n", many / 2) + "a")));
    EXPECT_TRUE(sameText(rendered(repeated("\\\n", many) + "a"), paragraph(repeated("<br>\n", many) + "a")));
    EXPECT_TRUE(sameText(rendered("a" + repeated(" ", 2 * many) + "\nb"), paragraph("a<br>\nb")));
    EXPECT_TRUE(
        sameText(rendered("a" + repeated(" ", many) + "b"), paragraph("a" + repeated(" ", many) + "b")));
}

} // namespace
} // namespace quillmar
