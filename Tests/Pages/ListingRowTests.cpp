#include "Pages/ListingRow.h"

#include <gtest/gtest.h>

namespace quillmar::ListingRow {
namespace {

std::string shown(std::string_view name) {
    std::string html = "before ";
    appendName(html, name);
    return html.substr(7);
}

std::string repeated(const std::string& part, std::size_t times) {
    std::string text;
    for (std::size_t i = 0; i < times; ++i) text += part;
    return text;
}

TEST(ListingRow, iconIsAnEscapedImage) {
    EXPECT_EQ(iconTag("cid:asset-0"), "<img src=\"cid:asset-0\" alt=\"\">");
    EXPECT_EQ(iconTag("\"&"), "<img src=\"&quot;&amp;\" alt=\"\">");
}

TEST(ListingRow, missingIconIsASpacer) { EXPECT_EQ(iconTag(std::nullopt), "<span class=\"spacer\"></span>"); }

TEST(ListingRow, nameIsEscaped) { EXPECT_EQ(shown("<a & \"b\">'"), "&lt;a &amp; &quot;b&quot;&gt;&#39;"); }

TEST(ListingRow, emptyNameIsEmpty) { EXPECT_EQ(shown(""), ""); }

TEST(ListingRow, longNameIsCutAtItsFirst1024Characters) {
    EXPECT_EQ(shown(repeated("x", 1'024)), repeated("x", 1'024));
    EXPECT_EQ(shown(repeated("x", 1'025)), repeated("x", 1'024) + "…");
    EXPECT_EQ(shown(repeated("x", 1'000'000)), repeated("x", 1'024) + "…");
}

TEST(ListingRow, nameIsCountedInCharactersNotInBytes) {
    EXPECT_EQ(shown(repeated("漢", 1'024)), repeated("漢", 1'024));
    EXPECT_EQ(shown(repeated("漢", 1'025)), repeated("漢", 1'024) + "…");
    EXPECT_EQ(shown(repeated("😀", 1'025)), repeated("😀", 1'024) + "…");
}

TEST(ListingRow, everyCombiningMarkIsACharacter) {
    EXPECT_EQ(shown("e" + repeated("\u0301", 1'024)), "e" + repeated("\u0301", 1'023) + "…");
}

TEST(ListingRow, nameIsCutBeforeItIsEscaped) {
    EXPECT_EQ(shown(repeated("&", 1'024)), repeated("&amp;", 1'024));
    EXPECT_EQ(shown(repeated("<", 1'025)), repeated("&lt;", 1'024) + "…");
}

TEST(ListingRow, nameThatIsNoUTF8IsCutToo) {
    EXPECT_EQ(shown(repeated("\xFF", 1'025)), repeated("\xFF", 1'024) + "…");
    EXPECT_EQ(shown(repeated("x", 1'023) + "\xF0\x9F"), repeated("x", 1'023) + "\xF0\x9F");
}

} // namespace
} // namespace quillmar::ListingRow
