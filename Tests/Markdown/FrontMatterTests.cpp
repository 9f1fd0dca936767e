#include "Markdown/FrontMatter.h"

#include <gtest/gtest.h>

namespace quillmar::Markdown {
namespace {

/// The HTML of the front matter of \p text and, behind a "|", what follows it.
std::string parsed(std::string_view text) {
    const std::optional<FrontMatter> found = frontMatter(text);
    if (!found) return "none";
    if (found->length > text.size()) return "too long";
    return std::string(found->html).append("|").append(text.substr(found->length));
}

constexpr std::string_view emptyTable = "<table class=\"front-matter\">\n\n</table>\n";

TEST(FrontMatter, becomesATableOfKeysAndValues) {
    EXPECT_EQ(parsed("---\ntitle: On pears\n---\n# Text"),
              "<table class=\"front-matter\">\n<tr><th>title</th><td>On pears</td></tr>\n</table>\n|# Text");
}

TEST(FrontMatter, hasARowForEveryLineThatIsNotBlank) {
    EXPECT_EQ(parsed("---\na: 1\n\n  \nb:2\n---\n"),
              "<table class=\"front-matter\">\n<tr><th>a</th><td>1</td></tr>\n<tr><th>b</th><td>2</td></tr>\n"
              "</table>\n|");
}

TEST(FrontMatter, splitsAtTheFirstColonAndTrimsTheValueOnly) {
    EXPECT_EQ(
        parsed("---\nkey : \t\u00A0a: b \u3000\n:\n---"),
        "<table class=\"front-matter\">\n<tr><th>key </th><td>a: b</td></tr>\n<tr><th></th><td></td></tr>\n"
        "</table>\n|");
}

TEST(FrontMatter, isEscaped) {
    EXPECT_EQ(parsed("---\n<b>: \"<script>\n---\n"),
              "<table class=\"front-matter\">\n<tr><th>&lt;b&gt;</th><td>&quot;&lt;script&gt;</td></tr>\n"
              "</table>\n|");
    EXPECT_EQ(parsed("---\n<b>\n---\n"), "<pre class=\"front-matter\"><code>&lt;b&gt;</code></pre>\n|");
}

TEST(FrontMatter, isShownAsItStandsWhenALineIsIndented) {
    EXPECT_EQ(parsed("---\ntags:\n  - a & b: c\n\n---\nText"),
              "<pre class=\"front-matter\"><code>tags:\n  - a &amp; b: c\n</code></pre>\n|Text");
}

TEST(FrontMatter, isShownAsItStandsWhenALineHasNoColon) {
    EXPECT_EQ(parsed("---\n- a\n---\n"), "<pre class=\"front-matter\"><code>- a</code></pre>\n|");
    EXPECT_EQ(parsed("---\na: 1\n\u00A0\n---\n"),
              "<pre class=\"front-matter\"><code>a: 1\n\u00A0</code></pre>\n|");
}

TEST(FrontMatter, isATableWithoutRowsWhenEmpty) {
    EXPECT_EQ(parsed("---\n---\nText"), std::string(emptyTable).append("|Text"));
    EXPECT_EQ(parsed("---\n\n \n---\nText"), std::string(emptyTable).append("|Text"));
}

TEST(FrontMatter, endsAtThreeHyphensOrFullStops) {
    EXPECT_EQ(parsed("---\na: 1\n...\n---\n"),
              "<table class=\"front-matter\">\n<tr><th>a</th><td>1</td></tr>\n</table>\n|---\n");
    EXPECT_EQ(parsed("---\n     --- \u00A0\nText"), std::string(emptyTable).append("|Text"));
}

TEST(FrontMatter, mayEndWithTheDocument) {
    EXPECT_EQ(parsed("---\n---"), std::string(emptyTable).append("|"));
    EXPECT_EQ(parsed("---\n...  "), std::string(emptyTable).append("|"));
}

TEST(FrontMatter, isNotClosedByALongerOrShorterLine) {
    EXPECT_EQ(parsed("---\na: 1\n----\n"), "none");
    EXPECT_EQ(parsed("---\na: 1\n--\n"), "none");
    EXPECT_EQ(parsed("---\na: 1\n....\n"), "none");
    EXPECT_EQ(parsed("---\na: 1\n--- x\n"), "none");
}

TEST(FrontMatter, needsAClosingLine) {
    EXPECT_EQ(parsed("---\na: 1\n"), "none");
    EXPECT_EQ(parsed("---\n"), "none");
    EXPECT_EQ(parsed("---"), "none");
    EXPECT_EQ(parsed(""), "none");
}

TEST(FrontMatter, beginsWithThreeHyphensAloneInTheFirstLine) {
    EXPECT_EQ(parsed("--- \na: 1\n---\n"), "none");
    EXPECT_EQ(parsed(" ---\na: 1\n---\n"), "none");
    EXPECT_EQ(parsed("----\na: 1\n---\n"), "none");
    EXPECT_EQ(parsed("\n---\na: 1\n---\n"), "none");
    EXPECT_EQ(parsed("...\na: 1\n...\n"), "none");
}

TEST(FrontMatter, copiesBytesThatAreNotUTF8) {
    EXPECT_EQ(parsed("---\n\xFF: \xED\xA0\x80 \n---\n"),
              "<table class=\"front-matter\">\n<tr><th>\xFF</th><td>\xED\xA0\x80</td></tr>\n</table>\n|");
}

} // namespace
} // namespace quillmar::Markdown
