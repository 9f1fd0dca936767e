#include "Tests/Helpers/Markdown.h"

#include "Markdown/MarkdownLimits.h"

#include <gtest/gtest.h>

// What a small text could repeat without end is bounded; see MarkdownLimits.h. And documents of about 200 KB,
// as in HostileMarkdownTests.cpp.

namespace quillmar {
namespace {

constexpr std::size_t many = 100'000;

std::string paragraph(std::string_view html) {
    std::string text = "<p>";
    text += html;
    return text += "</p>\n";
}

std::string cells(std::size_t count) { return repeated("<td></td>", count); }

/// What stands around the body rows of a table of \p columns.
std::string table(std::size_t columns, std::string_view rows) {
    std::string html = "<table>\n<thead>\n<tr>" + repeated("<th></th>", columns) + "</tr>\n</thead>\n<tbody>\n";
    html += rows;
    return html += "</tbody>\n</table>\n";
}

std::string header(std::size_t columns) {
    return repeated("|", columns + 1) + "\n" + repeated("|-", columns) + "|\n";
}

TEST(HostileTable, paddingCellsAreLimited) {
    ASSERT_EQ(MarkdownLimits::maxPaddingCells, 256U * 1024U);
    EXPECT_TRUE(sameText(rendered(header(1025) + repeated("a|\n", 1000)),
                         table(1025, repeated("<tr><td>a</td>" + cells(1024) + "</tr>\n", 256) +
                                         repeated("<tr><td>a</td></tr>\n", 744))));
}

TEST(HostileTable, rowThatNeedsTooMuchPaddingLeavesItForOthers) {
    // 1,024 cells remain.
    const std::string first = header(1025) + repeated("a|\n", 255) + "\n";
    const std::string html = table(1025, repeated("<tr><td>a</td>" + cells(1024) + "</tr>\n", 255));
    EXPECT_TRUE(sameText(rendered(first + header(1026) + "a|\na|b|\na|b\n"),
                         html + table(1026, "<tr><td>a</td></tr>\n<tr><td>a</td><td>b</td>" + cells(1024) +
                                                "</tr>\n<tr><td>a</td><td>b</td></tr>\n")));
}

TEST(HostileTable, paddingIsLimitedByTheDocument) {
    const std::string bomb = header(1025) + repeated("a|\n", 128) + "\n";
    const std::string html = table(1025, repeated("<tr><td>a</td>" + cells(1024) + "</tr>\n", 128));
    EXPECT_TRUE(sameText(rendered(bomb + bomb + header(2) + "a|\na|b\n"),
                         html + html + table(2, "<tr><td>a</td></tr>\n<tr><td>a</td><td>b</td></tr>\n")));
}

TEST(HostileTable, paddingStartsAfreshWithEveryDocument) {
    const MarkdownRenderer renderer{};
    const std::string markdown = header(1025) + repeated("a|\n", 256);
    const std::string html = table(1025, repeated("<tr><td>a</td>" + cells(1024) + "</tr>\n", 256));
    EXPECT_TRUE(sameText(renderer.render(markdown), html));
    EXPECT_TRUE(sameText(renderer.render(markdown), html));
}

TEST(HostileTable, rowsWithTheirCellsNeedNoPadding) {
    EXPECT_TRUE(sameText(rendered(header(100) + repeated(repeated("|", 101) + "\n", 2000)),
                         table(100, repeated("<tr>" + cells(100) + "</tr>\n", 2000))));
    EXPECT_TRUE(sameText(rendered(header(1) + repeated("|", many)), table(1, "<tr><td></td></tr>\n")));
    EXPECT_TRUE(sameText(rendered(header(1) + repeated("|\n", many)),
                         table(1, repeated("<tr><td></td></tr>\n", many))));
}

TEST(HostileTable, isAsWideAsItsHeader) {
    EXPECT_TRUE(sameText(rendered(header(many)), table(many, "")));
    EXPECT_TRUE(sameText(rendered(repeated("|", many) + "\n" + repeated("|-", many) + "|"),
                         paragraph(repeated("|", many) + "\n" + repeated("|-", many) + "|")));
}

TEST(HostileTable, manyTablesAndAlmostTables) {
    EXPECT_TRUE(sameText(rendered(repeated("|\n|--\n\n", many / 4)),
                         repeated("<table>\n<thead>\n<tr><th></th></tr>\n</thead>\n"
                                  "<tbody>\n</tbody>\n</table>\n",
                                  many / 4)));
    EXPECT_TRUE(
        sameText(rendered(repeated("|a|b|\n|-\n\n", many / 5)), repeated("<p>|a|b|\n|-</p>\n", many / 5)));
    EXPECT_TRUE(sameText(rendered(repeated("a|\n\n", many / 2)), repeated("<p>a|</p>\n", many / 2)));
}

TEST(HostileTable, backslashesBeforePipes) {
    EXPECT_TRUE(sameText(rendered(header(1) + repeated("\\|", many)),
                         table(1, "<tr><td>" + repeated("|", many) + "</td></tr>\n")));
    EXPECT_TRUE(sameText(rendered(header(2) + "a" + repeated("`|", many)),
                         table(2, "<tr><td>a<code>|</code></td><td><code>|</code></td></tr>\n")));
}

TEST(HostileReference, bytesOfResolvedReferencesAreLimited) {
    ASSERT_EQ(MarkdownLimits::maxResolvedReferenceBytes, 64U * 65'536U);
    const std::string url = "/" + repeated("a", 65'535);
    const std::string link = "<a href=\"" + url + "\">a</a> ";
    EXPECT_TRUE(sameText(rendered("[a]: " + url + "\n[b]: c\n\n" + repeated("[a] ", 1000) + "[b]"),
                         paragraph(repeated(link, 64) + repeated("[a] ", 936) + "[b]")));
}

TEST(HostileReference, referenceThatDoesNotFitLeavesRoomForOthers) {
    const std::string url = "/" + repeated("a", 65'536);
    const std::string link = "<a href=\"" + url + "\">a</a> ";
    EXPECT_TRUE(sameText(rendered("[a]: " + url + "\n[b]: c\n\n" + repeated("[a] ", 64) + "[b]"),
                         paragraph(repeated(link, 63) + "[a] <a href=\"c\">b</a>")));
}

TEST(HostileReference, titlesCount) {
    const std::string title = repeated("t", 65'535);
    const std::string link = "<a href=\"u\" title=\"" + title + "\">a</a> ";
    EXPECT_TRUE(sameText(rendered("[a]: u '" + title + "'\n\n" + repeated("[a] ", 65) + "x"),
                         paragraph(repeated(link, 64) + "[a] x")));
}

TEST(HostileReference, imagesCount) {
    const std::string url = "https://" + repeated("a", 65'528);
    const std::string image = "<img src=\"" + url + "\" alt=\"a\"> ";
    EXPECT_TRUE(sameText(rendered("[a]: " + url + "\n\n" + repeated("![a] ", 65) + "x"),
                         paragraph(repeated(image, 64) + "![a] x")));
}

TEST(HostileReference, bytesAreCountedBeforeTheyAreEscaped) {
    const std::string url = repeated("&", 65'536);
    const std::string link = "<a href=\"" + repeated("&amp;", 65'536) + "\">a</a> ";
    EXPECT_TRUE(sameText(rendered("[a]: " + url + "\n\n" + repeated("[a] ", 65) + "x"),
                         paragraph(repeated(link, 64) + "[a] x")));
}

TEST(HostileReference, limitIsTheDocuments) {
    const std::string url = "/" + repeated("a", 65'535);
    const std::string link = "<a href=\"" + url + "\">a</a>";
    const std::string markdown = "[a]: " + url + "\n\n" + repeated("- [a]\n", 65);
    const std::string html = "<ul>\n" + repeated("<li>" + link + "</li>\n", 64) + "<li>[a]</li>\n</ul>\n";
    const MarkdownRenderer renderer{};
    EXPECT_TRUE(sameText(renderer.render(markdown), html));
    EXPECT_TRUE(sameText(renderer.render(markdown), html));
}

TEST(HostileReference, manyDefinitions) {
    std::string markdown;
    std::string html;
    for (std::size_t i = 0; i < 10'000; ++i) {
        const std::string number = std::to_string(i);
        markdown.append("[k").append(number).append("]: /u").append(number).append("\n");
        html.append("<a href=\"/u").append(number).append("\">k").append(number).append("</a> ");
    }
    markdown += "\n";
    for (std::size_t i = 0; i < 10'000; ++i) markdown.append("[k").append(std::to_string(i)).append("] ");
    html.pop_back();
    EXPECT_TRUE(sameText(rendered(markdown), paragraph(html)));
    EXPECT_TRUE(sameText(rendered(repeated("[a]: b\n", many / 3) + "[a]"), paragraph("<a href=\"b\">a</a>")));
}

TEST(HostileReference, longLabels) {
    const std::string label = repeated("a", many);
    EXPECT_TRUE(sameText(rendered("[" + label + "]: b\n\n[" + label + "]"),
                         paragraph("<a href=\"b\">" + label + "</a>")));
    EXPECT_TRUE(
        sameText(rendered("[a" + repeated(" ", many) + "b]: c\n\n[a b]"), paragraph("<a href=\"c\">a b</a>")));
    // A text above the limit of canonical equivalence is equal only to the same bytes.
    const std::string composed = repeated("\u00E9", 600);
    EXPECT_TRUE(sameText(rendered("[" + composed + "]: b\n\n[" + composed + "]"),
                         paragraph("<a href=\"b\">" + composed + "</a>")));
    const std::string decomposed = repeated("e\u0301", 600);
    EXPECT_TRUE(
        sameText(rendered("[" + composed + "]: b\n\n[" + decomposed + "]"), paragraph("[" + decomposed + "]")));
}

TEST(HostileReference, almostDefinitionsAreText) {
    for (const std::string& markdown :
         {"[a]:" + repeated(" ", many), "[" + repeated("a", many) + "] :b",
          "[a]: b" + repeated(" ", many) + "c", "[a]: b (" + repeated(")", many) + "c",
          "[a]: b (" + repeated(") ", many / 2) + "c",
          repeated("[", many) + "]:", "[a]: " + repeated("b", many) + " c", "[]: " + repeated("a", many)}) {
        std::string text = markdown;
        while (text.back() == ' ') text.pop_back();
        EXPECT_TRUE(sameText(rendered(markdown), paragraph(text)));
    }
}

} // namespace
} // namespace quillmar
