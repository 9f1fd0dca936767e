#include "Tests/Helpers/Markdown.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

std::string table(std::string_view rows) {
    std::string html = "<table class=\"front-matter\">\n";
    html += rows;
    return html += "\n</table>\n";
}

std::string verbatim(std::string_view lines) {
    std::string html = "<pre class=\"front-matter\"><code>";
    html += lines;
    return html += "</code></pre>\n";
}

TEST(DocumentFrontMatter, isATableOfKeysAndValues) {
    EXPECT_EQ(rendered("---\nkey:  value \n---\n# a"),
              table("<tr><th>key</th><td>value</td></tr>") + "<h1 id=\"a\">a</h1>\n");
    EXPECT_EQ(rendered("---\na: b\nc: d\n---"),
              table("<tr><th>a</th><td>b</td></tr>\n<tr><th>c</th><td>d</td></tr>"));
}

TEST(DocumentFrontMatter, mayEndWithThreeFullStops) {
    EXPECT_EQ(rendered("---\na: b\n...\nc"), table("<tr><th>a</th><td>b</td></tr>") + "<p>c</p>\n");
}

TEST(DocumentFrontMatter, closingLineMayHaveWhiteSpaceAroundIt) {
    EXPECT_EQ(rendered("---\na: b\n     --- \nc"), table("<tr><th>a</th><td>b</td></tr>") + "<p>c</p>\n");
    EXPECT_EQ(rendered("---\na: b\n\u00A0...\t\nc"), table("<tr><th>a</th><td>b</td></tr>") + "<p>c</p>\n");
}

TEST(DocumentFrontMatter, endsAtTheFirstClosingLine) {
    EXPECT_EQ(rendered("---\na: b\n---\nc: d\n---"),
              table("<tr><th>a</th><td>b</td></tr>") + "<h2 id=\"c-d\">c: d</h2>\n");
    EXPECT_EQ(rendered("---\na: b\n----\n...."), "<hr>\n<h2 id=\"a-b\">a: b</h2>\n<p>....</p>\n");
}

TEST(DocumentFrontMatter, openingLineIsThreeHyphensAndNothingElse) {
    EXPECT_EQ(rendered("--- \na: b\n---"), "<hr>\n<h2 id=\"a-b\">a: b</h2>\n");
    EXPECT_EQ(rendered(" ---\na: b\n..."), "<hr>\n<p>a: b\n...</p>\n");
    EXPECT_EQ(rendered("----\na: b\n..."), "<hr>\n<p>a: b\n...</p>\n");
    EXPECT_EQ(rendered("\n---\na: b\n..."), "<hr>\n<p>a: b\n...</p>\n");
    EXPECT_EQ(rendered("\uFEFF---\na: b\n..."), "<p>\uFEFF---\na: b\n...</p>\n");
    EXPECT_EQ(rendered("...\na: b\n..."), "<p>...\na: b\n...</p>\n");
}

TEST(DocumentFrontMatter, withoutClosingLineIsMarkdown) {
    EXPECT_EQ(rendered("---\n# a\nb: c"), "<hr>\n<h1 id=\"a\">a</h1>\n<p>b: c</p>\n");
    EXPECT_EQ(rendered("---"), "<hr>\n");
    EXPECT_EQ(rendered("---\n"), "<hr>\n");
}

TEST(DocumentFrontMatter, withoutLinesIsATableWithoutRows) {
    EXPECT_EQ(rendered("---\n---"), table(""));
    EXPECT_EQ(rendered("---\n\n  \n...\na"), table("") + "<p>a</p>\n");
}

TEST(DocumentFrontMatter, keyEndsAtTheFirstColonAndIsNotTrimmed) {
    EXPECT_EQ(rendered("---\na b : c: d\n---"), table("<tr><th>a b </th><td>c: d</td></tr>"));
    EXPECT_EQ(
        rendered("---\n: a\nb:\n# c: d\n---"),
        table("<tr><th></th><td>a</td></tr>\n<tr><th>b</th><td></td></tr>\n<tr><th># c</th><td>d</td></tr>"));
    EXPECT_EQ(rendered("---\n\u00A0a:\u00A0b\u00A0\n---"), table("<tr><th>\u00A0a</th><td>b</td></tr>"));
}

TEST(DocumentFrontMatter, isEscapedAndNothingElse) {
    EXPECT_EQ(rendered("---\n<a>&: \"*b*\" 'c' [d](e) https://f\n---"),
              table("<tr><th>&lt;a&gt;&amp;</th><td>&quot;*b*&quot; &#39;c&#39; [d](e) https://f</td></tr>"));
}

TEST(DocumentFrontMatter, mayHoldBlankLines) {
    EXPECT_EQ(rendered("---\n\na: b\n   \nc: d\n\n---"),
              table("<tr><th>a</th><td>b</td></tr>\n<tr><th>c</th><td>d</td></tr>"));
}

TEST(DocumentFrontMatter, withAnIndentedLineIsShownAsItStands) {
    EXPECT_EQ(rendered("---\na:\n  - <b>\n\nc: 'd'\n---\ne"),
              verbatim("a:\n  - &lt;b&gt;\n\nc: &#39;d&#39;") + "<p>e</p>\n");
    EXPECT_EQ(rendered("---\n a: b\n---"), verbatim(" a: b"));
    EXPECT_EQ(rendered("---\n\ta: b\n---"), verbatim("    a: b"));
}

TEST(DocumentFrontMatter, withALineWithoutColonIsShownAsItStands) {
    EXPECT_EQ(rendered("---\na: b\n- c\n---"), verbatim("a: b\n- c"));
    EXPECT_EQ(rendered("---\n# a\n---"), verbatim("# a"));
    EXPECT_EQ(rendered("---\n\u00A0\n---"), verbatim("\u00A0")); // not blank
}

TEST(DocumentFrontMatter, hasNoDefinitionsAndNoFences) {
    EXPECT_EQ(rendered("---\n[a]: b\n---\n[a]"), table("<tr><th>[a]</th><td>b</td></tr>") + "<p>[a]</p>\n");
    EXPECT_EQ(rendered("---\n```: b\n---\n[a]: c\n\n[a]"),
              table("<tr><th>```</th><td>b</td></tr>") + "<p><a href=\"c\">a</a></p>\n");
}

TEST(DocumentFrontMatter, mayHaveAnyLineBreaks) {
    EXPECT_EQ(rendered("---\r\na: b\r\n---\r\nc"), table("<tr><th>a</th><td>b</td></tr>") + "<p>c</p>\n");
    EXPECT_EQ(rendered("---\ra: b\r---\rc"), table("<tr><th>a</th><td>b</td></tr>") + "<p>c</p>\n");
}

} // namespace
} // namespace quillmar
