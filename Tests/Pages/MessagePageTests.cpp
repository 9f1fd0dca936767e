#include "Pages/MessagePage.h"

#include "Tests/Helpers/Pages.h"

#include <gtest/gtest.h>

namespace quillmar::MessagePage {
namespace {

TEST(MessagePage, showsIconTitleAndSentence) {
    const std::string page = html("a.bin", "Nothing to see.", "cid:asset-0");
    EXPECT_NE(
        page.find("<body class=\"message-page\">\n<div class=\"message\"><img src=\"cid:asset-0\" alt=\"\">"
                  "<h1>a.bin</h1><p>Nothing to see.</p></div>\n</body>"),
        std::string::npos);
}

TEST(MessagePage, withoutIconHasNoImage) {
    EXPECT_EQ(html("a", "b", std::nullopt).find("<img"), std::string::npos);
}

TEST(MessagePage, escapesTitleAndMessageOnce) {
    const std::string page = html("<a>", "b & \"c\"", std::nullopt);
    EXPECT_EQ(between(page, "<title>", "</title>"), "&lt;a&gt;");
    EXPECT_EQ(between(page, "<h1>", "</h1>"), "&lt;a&gt;");
    EXPECT_EQ(messageOf(page), "b &amp; &quot;c&quot;");
}

} // namespace
} // namespace quillmar::MessagePage
