#include "Pages/PageTemplate.h"

#include "Pages/Stylesheet.h"
#include "Tests/Helpers/Environment.h"
#include "Tests/Helpers/Pages.h"

#include <gtest/gtest.h>
#include <limits>

namespace quillmar::PageTemplate {
namespace {

class PageTemplateTest : public testing::Test {
    ScopedEnvironment english_{{"LC_ALL", "C"}};
};

TEST_F(PageTemplateTest, documentIsOnePageWithItsStylesheet) {
    EXPECT_EQ(document("A & B", "text", "<p>body</p>"),
              "<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n"
              "<meta name=\"color-scheme\" content=\"light dark\">\n<title>A &amp; B</title>\n<style>" +
                  std::string(stylesheet) +
                  "</style>\n</head>\n<body class=\"text\">\n<p>body</p>\n</body>\n</html>");
}

TEST_F(PageTemplateTest, documentDoesNotEscapeTheBodyClass) {
    EXPECT_NE(document("", "a&b", "").find("<body class=\"a&b\">"), std::string::npos);
}

TEST_F(PageTemplateTest, stylesheetStandsWhole) {
    EXPECT_TRUE(stylesheet.starts_with(":root {"));
    EXPECT_TRUE(stylesheet.ends_with("}"));
    EXPECT_NE(stylesheet.find(".message p {"), std::string_view::npos);
    EXPECT_EQ(stylesheet.find("</"), std::string_view::npos);
}

TEST_F(PageTemplateTest, headerShowsIconTitleFactsAndBadges) {
    EXPECT_EQ(header("cid:asset-0", "notes", {"C", "2 lines"}, {"zip", "locked"}),
              "<header class=\"header\">\n<img class=\"icon\" src=\"cid:asset-0\" alt=\"\">\n"
              "<div class=\"titles\">\n<h1>notes<span class=\"badge\">zip</span>"
              "<span class=\"badge\">locked</span></h1>\n"
              "<p class=\"facts\">C<span class=\"dot\">·</span>2 lines</p>\n</div>\n</header>");
}

TEST_F(PageTemplateTest, headerWithoutIconShowsThePlaceholder) {
    const std::string html = header(std::nullopt, "notes", {"a"}, {});
    EXPECT_NE(html.find("<div class=\"icon placeholder\"></div>"), std::string::npos);
    EXPECT_EQ(html.find("<img"), std::string::npos);
}

TEST_F(PageTemplateTest, headerWithoutFactsKeepsTheEmptyParagraph) {
    EXPECT_NE(header(std::nullopt, "a", {}, {}).find("<p class=\"facts\"></p>"), std::string::npos);
}

TEST_F(PageTemplateTest, headerEscapesEverything) {
    const std::string html = header("\"&", "<b>", {"'f'"}, {"&"});
    EXPECT_NE(html.find("src=\"&quot;&amp;\""), std::string::npos);
    EXPECT_NE(html.find("<h1>&lt;b&gt;<span class=\"badge\">&amp;</span></h1>"), std::string::npos);
    EXPECT_EQ(factsOf(html), "&#39;f&#39;");
}

TEST_F(PageTemplateTest, statsPutTheLabelAboveTheValue) {
    EXPECT_EQ(stats({{"Files", "1,234"}, {"<", ">"}}),
              "<div class=\"stats\"><div><span>Files</span><b>1,234</b></div>"
              "<div><span>&lt;</span><b>&gt;</b></div></div>");
}

TEST_F(PageTemplateTest, heroEscapesValueAndCaption) {
    EXPECT_EQ(hero("≥ 1 KB", "a<b"), "<div class=\"hero\"><b>≥ 1 KB</b><span>a&lt;b</span></div>");
}

TEST_F(PageTemplateTest, noticeIsAnEscapedParagraph) {
    EXPECT_EQ(notice("“a<b” isn't \"c\" & more."),
              "<p class=\"notice\">“a&lt;b” isn&#39;t &quot;c&quot; &amp; more.</p>");
}

TEST_F(PageTemplateTest, documentInTwoHalvesIsTheSame) {
    for (const std::size_t room : {std::size_t{0}, std::size_t{100'000}})
        EXPECT_EQ(documentStart("A & B", "folder", room).append("<p>body</p>").append(documentEnd),
                  document("A & B", "folder", "<p>body</p>"));
}

TEST_F(PageTemplateTest, compositionShowsSharesAndLegend) {
    EXPECT_EQ(composition({{FileKind::code, 3'000, 2}, {FileKind::images, 1'000, 1}}),
              "<div class=\"composition\"><div class=\"bar\">"
              "<span style=\"flex-grow:75.00;background:#2A9DB0\"></span>"
              "<span style=\"flex-grow:25.00;background:#E659AD\"></span></div>"
              "<div class=\"legend\">"
              "<span class=\"legend-item\"><i style=\"background:#2A9DB0\"></i>Code<b>3 KB</b></span>"
              "<span class=\"legend-item\"><i style=\"background:#E659AD\"></i>Images<b>1 KB</b></span>"
              "</div></div>");
}

TEST_F(PageTemplateTest, compositionOfNothingIsEmpty) {
    EXPECT_EQ(composition({}), "");
    EXPECT_EQ(composition({{FileKind::code, 0, 2}, {FileKind::images, 0, 1}}), "");
    EXPECT_EQ(composition({{FileKind::code, -5, 1}}), "");
    EXPECT_EQ(composition({{FileKind::code, 5, 1}, {FileKind::other, -5, 1}}), "");
}

TEST_F(PageTemplateTest, compositionOfSevenKindsHasSixLegendEntries) {
    std::vector<CompositionPart> parts;
    for (std::size_t i = 0; i < 7; ++i) parts.push_back({allFileKinds[i], 100, 1});
    const std::string html = composition(parts);
    EXPECT_EQ(occurrences(html, "flex-grow"), 7U);
    EXPECT_EQ(occurrences(html, "legend-item"), 6U);
}

TEST_F(PageTemplateTest, compositionKeepsATinyKindVisible) {
    const std::string html = composition({{FileKind::video, 999, 1}, {FileKind::code, 1, 1}});
    EXPECT_NE(html.find("flex-grow:99.90;"), std::string::npos);
    EXPECT_NE(html.find("flex-grow:0.60;"), std::string::npos);
}

TEST_F(PageTemplateTest, compositionOfSizesThatOverflowStopsAtTheLimit) {
    constexpr auto largest = std::numeric_limits<std::int64_t>::max();
    const std::string html = composition({{FileKind::video, largest, 1}, {FileKind::code, largest, 1}});
    EXPECT_EQ(occurrences(html, "flex-grow:100.00;"), 2U);
}

TEST_F(PageTemplateTest, compositionWritesPointsInEveryLocale) {
    const ScopedEnvironment german({{"LC_ALL", "de_DE.UTF-8"}});
    const std::string html = composition({{FileKind::video, 1'500'000, 1}, {FileKind::code, 1'500'000, 1}});
    EXPECT_NE(html.find("flex-grow:50.00;"), std::string::npos);
    EXPECT_NE(html.find("<b>1,5 MB</b>"), std::string::npos);
}

} // namespace
} // namespace quillmar::PageTemplate
