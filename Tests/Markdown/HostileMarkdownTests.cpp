#include "Tests/Helpers/Markdown.h"

#include <gtest/gtest.h>

// Documents of about 200 KB that make a careless parser recurse too deep or work in proportion to the square of
// their length. What they should give is put together from their parts.

namespace quillmar {
namespace {

constexpr std::size_t many = 100'000;

std::string paragraph(std::string_view html) {
    std::string text = "<p>";
    text += html;
    return text += "</p>\n";
}

/// A list in a list in a list; \p inner stands in the innermost item.
std::string nestedLists(std::size_t depth, std::string_view inner, std::string_view tag = "ul") {
    const std::string name(tag);
    std::string html = repeated("<" + name + ">\n<li>", depth);
    html += inner;
    html += repeated("</li>\n</" + name + ">", depth);
    return html += "\n";
}

std::string nestedQuotes(std::size_t depth, std::string_view inner) {
    std::string html = repeated("<blockquote>\n", depth);
    html += inner;
    return html += repeated("</blockquote>\n", depth);
}

TEST(HostileMarkdown, quotesNestWithoutLimit) {
    EXPECT_TRUE(sameText(rendered(repeated(">", many)), nestedQuotes(many, "")));
    EXPECT_TRUE(sameText(rendered(repeated("> ", many) + "a"), nestedQuotes(many, paragraph("a"))));
}

TEST(HostileMarkdown, lazyLineReachesTheInnermostQuote) {
    EXPECT_TRUE(sameText(rendered(repeated(">", many) + "a" + repeated("\nb", many)),
                         nestedQuotes(many, paragraph("a" + repeated("\nb", many)))));
    EXPECT_TRUE(sameText(rendered(repeated(">", many) + "a\n\nb"),
                         nestedQuotes(many, paragraph("a")) + paragraph("b")));
}

TEST(HostileMarkdown, quotesOfFewerAndFewerMarkersAreOneParagraph) {
    constexpr std::size_t depth = 600;
    std::string markdown;
    for (std::size_t markers = depth; markers > 0; --markers) markdown += repeated(">", markers) + " a\n";
    markdown.pop_back();
    EXPECT_TRUE(sameText(rendered(markdown), nestedQuotes(depth, paragraph("a" + repeated("\na", depth - 1)))));
}

TEST(HostileMarkdown, quotesOfMoreAndMoreMarkersNest) {
    constexpr std::size_t depth = 600;
    std::string markdown;
    for (std::size_t markers = 1; markers <= depth; ++markers) markdown += repeated(">", markers) + " a\n";
    EXPECT_TRUE(sameText(rendered(markdown),
                         repeated("<blockquote>\n<p>a</p>\n", depth) + repeated("</blockquote>\n", depth)));
}

TEST(HostileMarkdown, deepQuotesOfManyLinesKeepTheirLines) {
    EXPECT_TRUE(sameText(rendered(repeated(repeated("> ", 300) + "a\n", 300)),
                         nestedQuotes(300, paragraph("a" + repeated("\na", 299)))));
    EXPECT_TRUE(sameText(rendered(repeated(repeated(">", 300) + "\n", 300)), nestedQuotes(300, "")));
}

TEST(HostileMarkdown, listsNestWithoutLimit) {
    EXPECT_TRUE(sameText(rendered(repeated("- ", many) + "a"), nestedLists(many, "a")));
    EXPECT_TRUE(sameText(rendered(repeated("1. ", many) + "a"), nestedLists(many, "a", "ol")));
    EXPECT_TRUE(sameText(rendered(repeated("+ ", many)), nestedLists(many, "")));
    EXPECT_TRUE(sameText(rendered(repeated("-    ", many / 2) + "a"), nestedLists(many / 2, "a")));
}

TEST(HostileMarkdown, bulletsAloneAreAThematicBreak) {
    EXPECT_TRUE(sameText(rendered(repeated("- ", many)), "<hr>\n"));
    EXPECT_TRUE(sameText(rendered(repeated("*", many)), "<hr>\n"));
    EXPECT_TRUE(sameText(rendered(repeated("a\n" + repeated("_ ", 100) + "\n", 1000)),
                         repeated("<p>a</p>\n<hr>\n", 1000)));
}

TEST(HostileMarkdown, thematicBreakStandsInTheInnermostItem) {
    EXPECT_TRUE(
        sameText(rendered(repeated("+ ", many / 2) + repeated("* ", many / 2)), nestedLists(many / 2, "<hr>")));
}

TEST(HostileMarkdown, lazyLineReachesTheInnermostItem) {
    EXPECT_TRUE(sameText(rendered(repeated("- ", many) + "a" + repeated("\nb", many)),
                         nestedLists(many, "a" + repeated("\nb", many))));
}

TEST(HostileMarkdown, listsAndQuotesNestInEachOther) {
    EXPECT_TRUE(sameText(rendered(repeated("> - ", many / 2) + "a\nb"),
                         repeated("<blockquote>\n<ul>\n<li>", many / 2) + "a\nb" +
                             repeated("</li>\n</ul>\n</blockquote>", many / 2) + "\n"));
    EXPECT_TRUE(sameText(rendered(repeated("- > ", many / 2) + "a"),
                         repeated("<ul>\n<li><blockquote>\n", many / 2) + paragraph("a") +
                             repeated("</blockquote></li>\n</ul>\n", many / 2)));
}

TEST(HostileMarkdown, listsNestByIndentation) {
    constexpr std::size_t depth = 450;
    std::string markdown;
    std::string empty;
    for (std::size_t level = 0; level < depth; ++level) {
        markdown += repeated("  ", level) + "- a\n";
        empty += repeated("  ", level) + "-\n";
    }
    EXPECT_TRUE(sameText(rendered(markdown), repeated("<ul>\n<li>a\n", depth - 1) + "<ul>\n<li>a</li>\n</ul>" +
                                                 repeated("</li>\n</ul>", depth - 1) + "\n"));
    EXPECT_TRUE(sameText(rendered(empty), nestedLists(depth, "")));
}

TEST(HostileMarkdown, blankLinesBehindADeepListBelongToNobody) {
    EXPECT_TRUE(sameText(rendered(repeated("- ", many) + "a" + repeated("\n", many)), nestedLists(many, "a")));
    EXPECT_TRUE(sameText(rendered(repeated("- ", many) + "a" + repeated("\n", many) + "b"),
                         nestedLists(many, "a") + paragraph("b")));
}

TEST(HostileMarkdown, blankLinesInADeepItemLoosenIt) {
    constexpr std::size_t depth = 50'000;
    EXPECT_TRUE(
        sameText(rendered(repeated("- ", depth) + "a" + repeated("\n", depth) + repeated("  ", depth) + "b"),
                 nestedLists(depth, "<p>a</p>\n<p>b</p>")));
}

TEST(HostileMarkdown, deepItemsOfManyLinesKeepTheirLines) {
    EXPECT_TRUE(sameText(rendered(repeated("- ", 300) + "a\n" + repeated(repeated("  ", 300) + "a\n", 300)),
                         nestedLists(300, "a" + repeated("\na", 300))));
}

TEST(HostileMarkdown, listsHaveManyItems) {
    EXPECT_TRUE(
        sameText(rendered(repeated("- a\n", many)), "<ul>\n" + repeated("<li>a</li>\n", many) + "</ul>\n"));
    EXPECT_TRUE(
        sameText(rendered(repeated("-\n", many)), "<ul>\n" + repeated("<li></li>\n", many) + "</ul>\n"));
    EXPECT_TRUE(sameText(rendered(repeated("2. a\n\n", many / 2)),
                         "<ol start=\"2\">\n" + repeated("<li><p>a</p></li>\n", many / 2) + "</ol>\n"));
    EXPECT_TRUE(
        sameText(rendered(repeated("- a\n* a\n", many / 4)), repeated("<ul>\n<li>a</li>\n</ul>\n", many / 2)));
    EXPECT_TRUE(
        sameText(rendered(repeated("- a\n\n\n", many / 4) + "* b"),
                 "<ul>\n" + repeated("<li><p>a</p></li>\n", many / 4) + "</ul>\n<ul>\n<li>b</li>\n</ul>\n"));
}

TEST(HostileMarkdown, tasksNestWithoutLimit) {
    EXPECT_TRUE(sameText(
        rendered(repeated("- [ ] ", many / 3) + "a"),
        repeated("<ul class=\"tasks\">\n<li class=\"task\"><input type=\"checkbox\" disabled> ", many / 3) +
            "a" + repeated("</li>\n</ul>", many / 3) + "\n"));
}

TEST(HostileMarkdown, longParagraphIsOne) {
    EXPECT_TRUE(sameText(rendered(repeated("a\n", many)), paragraph("a" + repeated("\na", many - 1))));
    EXPECT_TRUE(
        sameText(rendered(repeated("2. a\n", many / 2) + "\nb"),
                 "<ol start=\"2\">\n" + repeated("<li>a</li>\n", many / 2) + "</ol>\n" + paragraph("b")));
    EXPECT_TRUE(sameText(rendered("a\n" + repeated("*\n", many)), paragraph("a" + repeated("\n*", many))));
    EXPECT_TRUE(sameText(rendered(repeated("|\n", many)), paragraph("|" + repeated("\n|", many - 1))));
}

TEST(HostileMarkdown, longParagraphBecomesAHeading) {
    EXPECT_TRUE(sameText(rendered(repeated("a\n", many) + "="),
                         "<h1 id=\"" + repeated("a", many) + "\">a" + repeated("\na", many - 1) + "</h1>\n"));
}

TEST(HostileMarkdown, headingsOfOneTextAreNumbered) {
    std::string html = "<h1 id=\"a\">a</h1>\n";
    for (std::size_t i = 1; i < many / 2; ++i) html += "<h1 id=\"a-" + std::to_string(i) + "\">a</h1>\n";
    EXPECT_TRUE(sameText(rendered(repeated("# a\n", many / 2)), html));
}

TEST(HostileMarkdown, headingMayBeAllHashSigns) {
    EXPECT_TRUE(sameText(rendered("# " + repeated("#", many)), "<h1 id=\"\"></h1>\n"));
    EXPECT_TRUE(
        sameText(rendered("# a" + repeated(" #", many)),
                 "<h1 id=\"a" + repeated("-", many - 1) + "\">a" + repeated(" #", many - 1) + "</h1>\n"));
    EXPECT_TRUE(sameText(rendered("# a" + repeated(" ", many) + "b"),
                         "<h1 id=\"a" + repeated("-", many) + "b\">a" + repeated(" ", many) + "b</h1>\n"));
}

TEST(HostileMarkdown, blankDocumentIsEmpty) {
    for (const std::string_view text : {"\n", "\r", " ", "\t", " \n", "\r\n"})
        EXPECT_TRUE(sameText(rendered(repeated(text, many)), ""));
}

TEST(HostileMarkdown, tabsAreFourColumnsEach) {
    EXPECT_TRUE(sameText(rendered(repeated("\t", many) + "a"),
                         "<pre><code>" + repeated("    ", many - 1) + "a\n</code></pre>\n"));
}

TEST(HostileMarkdown, codeHasManyLines) {
    EXPECT_TRUE(sameText(rendered("    a" + repeated("\n", many) + "    b"),
                         "<pre><code>a" + repeated("\n", many) + "b\n</code></pre>\n"));
    EXPECT_TRUE(
        sameText(rendered(repeated("    a\n\n", many / 4) + "b"),
                 "<pre><code>a" + repeated("\n\na", many / 4 - 1) + "\n</code></pre>\n" + paragraph("b")));
    EXPECT_TRUE(sameText(rendered(repeated("```\n", many)), repeated("<pre><code></code></pre>\n", many / 2)));
    EXPECT_TRUE(sameText(rendered(repeated("`", many) + "\n" + repeated("```\n", many / 2)),
                         "<pre><code>" + repeated("```\n", many / 2) + "\n</code></pre>\n"));
}

TEST(HostileMarkdown, fencesEndWithTheirQuotes) {
    EXPECT_TRUE(sameText(rendered(repeated("> ```\n\n", many / 4)),
                         repeated("<blockquote>\n<pre><code></code></pre>\n</blockquote>\n", many / 4)));
}

TEST(HostileMarkdown, htmlBlockHasManyLines) {
    EXPECT_TRUE(sameText(rendered("<p>\n" + repeated("*\n", many)), "<p>\n" + repeated("*\n", many)));
    EXPECT_TRUE(sameText(rendered("<!--\n" + repeated("\n", many)), "<!--\n" + repeated("\n", many) + "\n"));
    EXPECT_TRUE(sameText(rendered(repeated("<p>\n\n", many / 4)), repeated("<p>\n", many / 4)));
}

TEST(HostileMarkdown, commentOpenedAgainAndAgainIsOne) {
    EXPECT_TRUE(sameText(rendered(repeated("<!--", many / 2)), repeated("<!--", many / 2) + "\n"));
    EXPECT_TRUE(
        sameText(rendered(repeated("<!--\n", many / 2) + "-->"), repeated("<!--\n", many / 2) + "-->\n"));
}

TEST(HostileMarkdown, blockedElementsAreRemoved) {
    EXPECT_TRUE(sameText(rendered("<p>" + repeated("<script>", many / 4)), "<p>\n"));
    EXPECT_TRUE(sameText(rendered("<p>" + repeated("<form>a</form>", many / 8)), "<p>\n"));
    EXPECT_TRUE(
        sameText(rendered("<p>" + repeated("</form>a", many / 4)), "<p>" + repeated("a", many / 4) + "\n"));
}

TEST(HostileMarkdown, almostBlockedMarkupIsKept) {
    for (const std::string_view piece :
         {"<script_", "<img ", "<img", "</form", " on", " onx", " href", "href=", "src = '", "<imgs src=\"a\">",
          "javascript:", "<", "</", "<img src='", "<input ", "=\"'"}) {
        const std::string markdown = "<p>" + repeated(piece, 2 * many / piece.size());
        EXPECT_TRUE(sameText(rendered(markdown), markdown + "\n")) << piece;
    }
}

TEST(HostileMarkdown, whiteSpaceInTagsIsKept) {
    const std::string space = repeated(" ", many);
    for (const std::string& markdown :
         {"<p" + space + "x>", "<p on" + repeated("a", many) + space + ">",
          "<p href" + space + "=" + space + "x>", "<p onx" + space + ">",
          "<img" + space + "src" + space + "=" + space + ">", "<p>" + space + "onx"})
        EXPECT_TRUE(sameText(rendered(markdown), markdown + "\n"));
}

TEST(HostileMarkdown, manyImageTagsAreRewritten) {
    const auto found = [](const std::string&) { return std::optional<std::string>("b"); };
    EXPECT_TRUE(sameText(rendered("<p>" + repeated("<img src=\"a\">", many / 8), found),
                         "<p>" + repeated("<img src=\"b\">", many / 8) + "\n"));
    EXPECT_TRUE(sameText(rendered("<p>" + repeated("<img src=\"a\">", many / 8)), "<p>\n"));
    EXPECT_TRUE(sameText(rendered("<img" + repeated(" src=\"", many / 3) + ">", found),
                         "<img src=\"b\"" + repeated(" src=\"", many / 3 - 2) + ">\n"));
}

TEST(HostileMarkdown, frontMatterHasManyRows) {
    EXPECT_TRUE(sameText(rendered("---\n" + repeated("a: b\n", many / 2) + "---\n"),
                         "<table class=\"front-matter\">\n<tr><th>a</th><td>b</td></tr>" +
                             repeated("\n<tr><th>a</th><td>b</td></tr>", many / 2 - 1) + "\n</table>\n"));
    EXPECT_TRUE(
        sameText(rendered("---\n" + repeated("a\n", many) + "..."),
                 "<pre class=\"front-matter\"><code>a" + repeated("\na", many - 1) + "</code></pre>\n"));
    EXPECT_TRUE(sameText(rendered(repeated("---\n", many / 2)),
                         "<table class=\"front-matter\">\n\n</table>\n" + repeated("<hr>\n", many / 2 - 2)));
}

} // namespace
} // namespace quillmar
