#include "Pages/TextPage.h"

#include "Tests/Helpers/Environment.h"
#include "Tests/Helpers/Pages.h"

#include <gtest/gtest.h>

namespace quillmar::TextPage {
namespace {

/// The code view of the page of \p text, as markup.
std::string codeOf(std::string_view text) {
    const std::string page = html(text, "a.c", std::nullopt, {}, false, std::nullopt);
    return between(page, "<div class=\"code-view mono\">", "</div>");
}

std::string line(std::string_view content) {
    return "<span class=\"line\">" + std::string(content) + "</span>";
}

std::string lines(std::size_t count) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) text += "x\n";
    return text;
}

TEST(TextPage, ofAnEmptyTextHasOneEmptyLine) {
    EXPECT_EQ(codeOf(""), line(" "));
    EXPECT_EQ(lineCount(""), 0);
}

TEST(TextPage, doesNotShowALineBehindTheLastLineFeed) {
    EXPECT_EQ(codeOf("a\nb\n"), line("a") + "\n" + line("b"));
    EXPECT_EQ(codeOf("a\nb"), line("a") + "\n" + line("b"));
    EXPECT_EQ(codeOf("\n"), line(" "));
    EXPECT_EQ(codeOf("a\n\n"), line("a") + "\n" + line(" "));
}

TEST(TextPage, keepsCarriageReturnsAtTheEndOfTheirLines) {
    EXPECT_EQ(codeOf("a\r\n\r\nb\rc"), line("a\r") + "\n" + line("\r") + "\n" + line("b\rc"));
}

TEST(TextPage, escapesItsLines) { EXPECT_EQ(codeOf("a<b>&'\""), line("a&lt;b&gt;&amp;&#39;&quot;")); }

TEST(TextPage, showsTenThousandLinesWithoutANotice) {
    const std::string page = html(lines(10'000), "a", std::nullopt, {}, false, std::nullopt);
    EXPECT_EQ(occurrences(page, "<span class=\"line\">"), 10'000U);
    EXPECT_EQ(page.find("<p class=\"notice\">"), std::string::npos);
}

TEST(TextPage, showsTenThousandOfMoreLinesAndSaysSo) {
    const ScopedEnvironment english({{"LC_ALL", "C"}});
    const std::string page = html(lines(10'001), "a", std::nullopt, {}, false, std::nullopt);
    EXPECT_EQ(occurrences(page, "<span class=\"line\">"), 10'000U);
    EXPECT_EQ(between(page, "<p class=\"notice\">", "</p>"), "Showing the first 10,000 lines.");
}

TEST(TextPage, showsTheCallersNoteBeforeItsOwn) {
    const ScopedEnvironment english({{"LC_ALL", "C"}});
    const std::string page = html(lines(10'001), "a", std::nullopt, {}, false, "A <note>.");
    EXPECT_NE(page.find("</header><p class=\"notice\">A &lt;note&gt;.</p>"
                        "<p class=\"notice\">Showing the first 10,000 lines.</p></div><div class=\"code-view"),
              std::string::npos);
}

TEST(TextPage, of500000EmptyLinesStaysSmall) {
    const std::string page = html(std::string(500'000, '\n'), "a", std::nullopt, {}, false, std::nullopt);
    EXPECT_EQ(occurrences(page, "<span class=\"line\">"), 10'000U);
}

TEST(TextPage, showsOneLineOf512KiB) {
    const std::string text(524'288, '<');
    const std::string page = html(text, "a", std::nullopt, {}, false, std::nullopt);
    EXPECT_EQ(occurrences(page, "&lt;"), text.size());
    EXPECT_EQ(occurrences(page, "<span class=\"line\">"), 1U);
}

TEST(TextPage, marksWrappedText) {
    EXPECT_NE(html("a", "a", std::nullopt, {}, true, std::nullopt).find("<div class=\"code-view mono wrap\">"),
              std::string::npos);
}

TEST(TextPage, isADocumentOfItsClass) {
    const std::string page = html("a", "a&b", "cid:asset-0", {"C", "1 line"}, false, std::nullopt);
    EXPECT_NE(page.find("<title>a&amp;b</title>"), std::string::npos);
    EXPECT_NE(page.find("<body class=\"text\">\n<div class=\"page\"><header class=\"header\">"),
              std::string::npos);
    EXPECT_EQ(factsOf(page), "C<span class=\"dot\">·</span>1 line");
}

TEST(TextPageLineCount, countsTheLastLineWithOrWithoutLineFeed) {
    EXPECT_EQ(lineCount("a\nb\n"), 2);
    EXPECT_EQ(lineCount("a\nb"), 2);
    EXPECT_EQ(lineCount("\n"), 1);
    EXPECT_EQ(lineCount("\n\n"), 2);
}

TEST(TextPageLineCount, doesNotCountALineFeedBehindACarriageReturn) {
    EXPECT_EQ(lineCount("a\r\nb\r\nc\r\n"), 1);
    EXPECT_EQ(lineCount("a\r\nb\n"), 1);
    EXPECT_EQ(lineCount("a\n\r\n"), 2);
    EXPECT_EQ(lineCount("a\rb"), 1);
    EXPECT_EQ(lineCount("\r\n"), 1);
    EXPECT_EQ(lineCount("\r\n\n"), 1);
}

TEST(TextPageLanguage, isNamedByTheWholeNameFirst) {
    EXPECT_EQ(language("Dockerfile"), "Dockerfile");
    EXPECT_EQ(language("Package.resolved"), "JSON");
    EXPECT_EQ(language("MAKEFILE"), "Makefile");
}

TEST(TextPageLanguage, isNamedByTheExtensionInAnyCase) {
    EXPECT_EQ(language("main.TSX"), "TypeScript (TSX)");
    EXPECT_EQ(language("a.mm"), "Objective-C++");
    EXPECT_EQ(language("yarn.lock"), "Lockfile");
}

TEST(TextPageLanguage, isUnknownOtherwise) {
    EXPECT_EQ(language("README"), std::nullopt);
    EXPECT_EQ(language(".env"), std::nullopt);
    EXPECT_EQ(language("a.unheard-of"), std::nullopt);
    EXPECT_EQ(language("my.dockerfile"), std::nullopt);
}

TEST(TextPageWraps, proseLogsAndRecords) {
    for (const char* name : {"a.txt", "a.LOG", "a.text", "a.out", "a.csv", "a.tsv", "README", ".profile"})
        EXPECT_TRUE(wraps(name)) << name;
    for (const char* name : {"a.c", "a.md", "a.txt.c"}) EXPECT_FALSE(wraps(name)) << name;
}

} // namespace
} // namespace quillmar::TextPage
