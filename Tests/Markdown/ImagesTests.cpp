#include "Markdown/Images.h"

#include <gtest/gtest.h>

namespace quillmar::Markdown {
namespace {

std::string image(const Link& link) {
    std::string html = ">";
    appendImage(html, link, [](const std::string& path) -> std::optional<std::string> {
        if (path == "pear.png") return "cid:\"1\"&";
        return std::nullopt;
    });
    return html.substr(1);
}

TEST(PlainText, hasNoMarkupCharacters) {
    EXPECT_EQ(plainText("**a** _b_ `c` [d] ~~e~~"), "a b c d e");
    EXPECT_EQ(plainText("*_`[]~"), "");
    EXPECT_EQ(plainText("a\\!(b) \u00E9\xFF"), "a\\!(b) \u00E9\xFF");
}

TEST(Images, haveSourceAndAlternativeText) {
    EXPECT_EQ(image({.text = "A *pear*", .url = "pear.png", .title = {}}),
              "<img src=\"cid:&quot;1&quot;&amp;\" alt=\"A pear\">");
}

TEST(Images, haveTheTitleThatTheLinkHas) {
    EXPECT_EQ(image({.text = "", .url = "https://a/b.png", .title = "x \"<*y*>"}),
              "<img src=\"https://a/b.png\" alt=\"\" title=\"x &quot;&lt;*y*&gt;\">");
    EXPECT_EQ(image({.text = "", .url = "https://a/b.png", .title = ""}),
              "<img src=\"https://a/b.png\" alt=\"\" title=\"\">");
}

TEST(Images, escapeTheirText) {
    EXPECT_EQ(image({.text = "<\"'&>", .url = "https://a?b&\"", .title = {}}),
              "<img src=\"https://a?b&amp;&quot;\" alt=\"&lt;&quot;&#39;&amp;&gt;\">");
}

TEST(Images, thatAreMissingShowTheirText) {
    EXPECT_EQ(image({.text = "A <pear>_", .url = "none \"&.png", .title = "title"}),
              "<span class=\"missing-image\" title=\"none &quot;&amp;.png\">A &lt;pear&gt;</span>");
}

TEST(Images, thatAreMissingAndHaveNoTextShowAWord) {
    EXPECT_EQ(image({.text = "", .url = "none.png", .title = {}}),
              "<span class=\"missing-image\" title=\"none.png\">Image</span>");
    EXPECT_EQ(image({.text = "**", .url = "", .title = {}}),
              "<span class=\"missing-image\" title=\"\">Image</span>");
}

TEST(Images, withAnUnknownSchemeAreMissing) {
    EXPECT_EQ(image({.text = "x", .url = "javascript:x", .title = {}}),
              "<span class=\"missing-image\" title=\"javascript:x\">x</span>");
}

} // namespace
} // namespace quillmar::Markdown
