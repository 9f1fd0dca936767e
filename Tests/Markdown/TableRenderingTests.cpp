#include "Tests/Helpers/Markdown.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace quillmar {
namespace {

using Cells = std::initializer_list<std::string_view>;

std::string row(std::string_view tag, Cells cells) {
    std::string html = "<tr>";
    for (const std::string_view cell : cells) {
        html.append("<").append(tag).append(">").append(cell);
        html.append("</").append(tag).append(">");
    }
    return html += "</tr>\n";
}

/// A table without alignments.
std::string table(Cells header, std::initializer_list<Cells> rows) {
    std::string html = "<table>\n<thead>\n" + row("th", header) + "</thead>\n<tbody>\n";
    for (const Cells& cells : rows) html += row("td", cells);
    return html += "</tbody>\n</table>\n";
}

/// The cells of the row \p line in a table of \p columns.
std::string bodyRow(std::string_view line, std::size_t columns) {
    const std::string head = repeated("|h", columns) + "\n" + repeated("|-", columns) + "\n";
    const std::string html = rendered(head + std::string(line));
    const std::size_t from = html.find("<tbody>\n") + 8;
    return html.substr(from, html.find("</tbody>") - from);
}

TEST(PipeTable, hasAHeaderADelimiterAndRows) {
    EXPECT_EQ(rendered("| a | b |\n| --- | --- |\n| c | d |\n| e | f |"),
              table({"a", "b"}, {{"c", "d"}, {"e", "f"}}));
}

TEST(PipeTable, needsNoOuterPipes) {
    EXPECT_EQ(rendered("a | b\n- | -\nc | d"), table({"a", "b"}, {{"c", "d"}}));
    EXPECT_EQ(rendered("|a|b\n-|-|\nc|d|"), table({"a", "b"}, {{"c", "d"}}));
}

TEST(PipeTable, mayHaveOneColumn) {
    EXPECT_EQ(rendered("| a |\n| - |\n| b |"), table({"a"}, {{"b"}}));
    EXPECT_EQ(rendered("|a\n-"), table({"a"}, {})); // the delimiter needs no pipe
    EXPECT_EQ(rendered("a|\n---\nb|"), table({"a"}, {{"b"}}));
    EXPECT_EQ(rendered("|\n-|"), table({""}, {}));
}

TEST(PipeTable, withoutRowsHasAnEmptyBody) {
    EXPECT_EQ(rendered("| a |\n| - |"),
              "<table>\n<thead>\n<tr><th>a</th></tr>\n</thead>\n<tbody>\n</tbody>\n</table>\n");
}

TEST(PipeTable, headerHasAsManyCellsAsTheDelimiter) {
    EXPECT_EQ(rendered("| a | b | c |\n| - | - |"), "<p>| a | b | c |\n| - | - |</p>\n");
    EXPECT_EQ(rendered("| a |\n| - | - |"), "<p>| a |\n| - | - |</p>\n");
    EXPECT_EQ(rendered("a\n|-|"), "<p>a\n|-|</p>\n");
    EXPECT_EQ(rendered("a | b\n---"), "<h2 id=\"a--b\">a | b</h2>\n");
}

TEST(PipeTable, delimiterCellsAreHyphensAndColons) {
    for (const std::string line :
         {"| - - |", "| :-:- |", "| a |", "||", "| : |", "| :: |", "|=|", "|—|", "|:--x|"})
        EXPECT_EQ(rendered("| a |\n" + line), "<p>| a |\n" + line + "</p>\n");
    EXPECT_EQ(rendered("|a|b|\n|-||"), "<p>|a|b|\n|-||</p>\n");
}

TEST(PipeTable, delimiterGivesTheAlignmentOfEveryCellOfItsColumn) {
    EXPECT_EQ(rendered("a|b|c|d\n:-|:-:|---:|-\ne|f|g|h"),
              "<table>\n<thead>\n<tr><th style=\"text-align:left\">a</th><th style=\"text-align:center\">b</th>"
              "<th style=\"text-align:right\">c</th><th>d</th></tr>\n</thead>\n<tbody>\n"
              "<tr><td style=\"text-align:left\">e</td><td style=\"text-align:center\">f</td>"
              "<td style=\"text-align:right\">g</td><td>h</td></tr>\n</tbody>\n</table>\n");
}

TEST(PipeTable, alignsTheCellsThatItAddsToo) {
    EXPECT_EQ(rendered("a|b\n-|-:\nc|"),
              "<table>\n<thead>\n<tr><th>a</th><th style=\"text-align:right\">b</th></tr>\n</thead>\n<tbody>\n"
              "<tr><td>c</td><td style=\"text-align:right\"></td></tr>\n</tbody>\n</table>\n");
}

TEST(PipeTable, delimiterMayBeIndented) {
    EXPECT_EQ(rendered("  | a |\n        | - |\n      | b |"), table({"a"}, {{"b"}}));
    EXPECT_EQ(rendered("    | a |\n| - |"), "<pre><code>| a |\n</code></pre>\n<p>| - |</p>\n");
}

TEST(PipeTable, isTriedAfterEveryOtherBlock) {
    EXPECT_EQ(rendered("# a | b\n- | -"), "<h1 id=\"a--b\">a | b</h1>\n<ul>\n<li>| -</li>\n</ul>\n");
    EXPECT_EQ(rendered("- a |\n-|"), "<ul>\n<li><table>\n<thead>\n<tr><th>a</th></tr>\n</thead>\n<tbody>\n"
                                     "</tbody>\n</table></li>\n</ul>\n");
    EXPECT_EQ(rendered("> a |\n-|"), "<blockquote>\n" + table({"a"}, {}) + "</blockquote>\n");
    EXPECT_EQ(rendered("<b>|\n-|"), "<b>|\n-|\n");
}

TEST(PipeTable, doesNotEndAParagraph) { EXPECT_EQ(rendered("a\n|b|\n|-|"), "<p>a\n|b|\n|-|</p>\n"); }

TEST(PipeTable, endsAtABlankLine) {
    EXPECT_EQ(rendered("|a|\n|-|\n|b|\n\t\n|c|"), table({"a"}, {{"b"}}) + "<p>|c|</p>\n");
}

TEST(PipeTable, endsAtALineWithoutAPipe) {
    EXPECT_EQ(rendered("|a|\n|-|\n|b|\nc\n|d|"), table({"a"}, {{"b"}}) + "<p>c\n|d|</p>\n");
}

TEST(PipeTable, endsWhereAnotherBlockInterrupts) {
    EXPECT_EQ(rendered("|a|\n|-|\n# b|"), table({"a"}, {}) + "<h1 id=\"b\">b|</h1>\n");
    EXPECT_EQ(rendered("|a|\n|-|\n> b|"), table({"a"}, {}) + "<blockquote>\n<p>b|</p>\n</blockquote>\n");
    EXPECT_EQ(rendered("|a|\n|-|\n- b|"), table({"a"}, {}) + "<ul>\n<li>b|</li>\n</ul>\n");
    EXPECT_EQ(rendered("|a|\n|-|\n1. b|"), table({"a"}, {}) + "<ol>\n<li>b|</li>\n</ol>\n");
    EXPECT_EQ(rendered("|a|\n|-|\n<b>|</b>"), table({"a"}, {}) + "<b>|</b>\n");
    EXPECT_EQ(rendered("|a|\n|-|\n~~~|\nb"),
              table({"a"}, {}) + "<pre><code class=\"language-|\">b\n</code></pre>\n");
}

TEST(PipeTable, doesNotEndWhereNothingInterrupts) {
    EXPECT_EQ(rendered("|a|\n|-|\n2. b|\n    # c|\n    - d|\n-|"),
              table({"a"}, {{"2. b"}, {"# c"}, {"- d"}, {"-"}}));
}

TEST(PipeTable, rowsMayLookLikeDelimiters) { EXPECT_EQ(rendered("|a|\n|-|\n|:-:|"), table({"a"}, {{":-:"}})); }

TEST(PipeTable, mayFollowAnotherBlockDirectly) {
    EXPECT_EQ(rendered("# a\n|b|\n|-|"), "<h1 id=\"a\">a</h1>\n" + table({"b"}, {}));
}

TEST(PipeTableRow, isFilledUpWithEmptyCells) {
    EXPECT_EQ(bodyRow("a|", 3), row("td", {"a", "", ""}));
    EXPECT_EQ(bodyRow("|", 3), row("td", {"", "", ""}));
}

TEST(PipeTableRow, losesSurplusCells) { EXPECT_EQ(bodyRow("a|b|c|d", 2), row("td", {"a", "b"})); }

TEST(PipeTableRow, cellsAreTrimmed) {
    EXPECT_EQ(bodyRow("|  a  |\u00A0b\u3000|\tc\t|", 3), row("td", {"a", "b", "c"}));
    EXPECT_EQ(bodyRow("\u00A0| a | \u00A0", 1), row("td", {"a"}));
}

TEST(PipeTableRow, cellsMayBeEmpty) {
    EXPECT_EQ(bodyRow("||a||", 3), row("td", {"", "a", ""}));
    EXPECT_EQ(bodyRow("a||", 2), row("td", {"a", ""}));
}

TEST(PipeTableRow, cellsGoThroughTheInlineParser) {
    EXPECT_EQ(bodyRow("*a* `b` <c> & | [d](e) ![](f) \\*", 2),
              row("td", {"<em>a</em> <code>b</code> <c> &amp;",
                         "<a href=\"e\">d</a> <span class=\"missing-image\" title=\"f\">Image</span> *"}));
}

TEST(PipeTableRow, cellsAreInlineTextsOfTheirOwn) {
    EXPECT_EQ(bodyRow("*a | b*", 2), row("td", {"*a", "b*"}));
    EXPECT_EQ(bodyRow("[a|b](c)", 2), row("td", {"[a", "b](c)"}));
    EXPECT_EQ(bodyRow("a\\ | b", 2), row("td", {"a\\", "b"}));
}

TEST(PipeTableRow, escapedPipeIsAPipe) {
    EXPECT_EQ(bodyRow("a \\| b | c", 2), row("td", {"a | b", "c"}));
    EXPECT_EQ(bodyRow("\\|", 2), row("td", {"|", ""}));
    EXPECT_EQ(bodyRow("| a \\|", 2), row("td", {"a |", ""}));
}

TEST(PipeTableRow, escapedPipeLosesOneBackslash) {
    EXPECT_EQ(bodyRow("a \\\\| b", 2), row("td", {"a | b", ""})); // "\|" goes on to the inline parser
    EXPECT_EQ(bodyRow("a \\\\\\| b", 2), row("td", {"a \\| b", ""}));
}

TEST(PipeTableRow, pipeInCodeDoesNotPart) {
    EXPECT_EQ(bodyRow("`a|b` | c", 2), row("td", {"<code>a|b</code>", "c"}));
    EXPECT_EQ(bodyRow("`a\\|b` | c", 2), row("td", {"<code>a|b</code>", "c"}));
    EXPECT_EQ(bodyRow("``a`|`` | b", 2), row("td", {"<code>a`|</code> | b", ""})); // an odd number
}

TEST(PipeTableRow, backtickWithoutPartnerHidesAllPipesBehindIt) {
    EXPECT_EQ(bodyRow("a | ` | b | c", 3), row("td", {"a", "` | b | c", ""}));
    EXPECT_EQ(bodyRow("\\` | a", 2), row("td", {"` | a", ""})); // an escaped one, too
    EXPECT_EQ(bodyRow("a | `b |", 2), row("td", {"a", "`b"}));  // the last pipe falls before that
}

TEST(PipeTable, ofAHeaderWithABacktickWithoutPartnerHasOneColumn) {
    EXPECT_EQ(rendered("a ` | b\n-|-"), "<p>a ` | b\n-|-</p>\n");
    EXPECT_EQ(rendered("a ` | b\n-|"), table({"a ` | b"}, {}));
}

TEST(PipeTable, headerGoesThroughTheInlineParser) {
    EXPECT_EQ(rendered("| **a** | \\| |\n|-|-|"), table({"<strong>a</strong>", "|"}, {}));
}

TEST(PipeTable, losesReferenceDefinitionsAndGoesOn) {
    EXPECT_EQ(rendered("|a|\n|-|\n[b]: c\n|[b]|"), table({"a"}, {{"<a href=\"c\">b</a>"}}));
}

TEST(PipeTable, twoInARowNeedABlankLine) {
    EXPECT_EQ(rendered("|a|\n|-|\n|b|\n|-|"), table({"a"}, {{"b"}, {"-"}}));
    EXPECT_EQ(rendered("|a|\n|-|\n\n|b|\n|-|"), table({"a"}, {}) + table({"b"}, {}));
}

} // namespace
} // namespace quillmar
