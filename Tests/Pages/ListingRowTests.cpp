#include "Pages/ListingRow.h"

#include "Tests/Helpers/Environment.h"

#include <gtest/gtest.h>
#include <limits>

namespace quillmar::ListingRow {
namespace {

std::string dateOf(std::optional<Timestamp> date) {
    const ScopedEnvironment english({{"LC_ALL", "C"}, {"TZ", "UTC0"}});
    std::string html = "before ";
    appendDate(html, date);
    return html.substr(7);
}

std::string omitted(std::int64_t count) {
    const ScopedEnvironment english({{"LC_ALL", "C"}});
    std::string html = "before ";
    appendOmitted(html, count);
    return html.substr(7);
}

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

TEST(ListingRow, headingNamesTheColumns) {
    EXPECT_EQ(heading, "<div class=\"row heading\"><span>Name</span><span class=\"size\">Size</span>"
                       "<span class=\"date\">Modified</span></div>");
}

TEST(ListingRow, dateShowsDayAndMinute) {
    EXPECT_EQ(dateOf(1'709'543'759), "Mar 4, 2024 at 9:15\u202FAM"); // 09:15:59
}

TEST(ListingRow, missingDateIsEmpty) { EXPECT_EQ(dateOf(std::nullopt), ""); }

TEST(ListingRow, dateOutsideTheCalendarIsEmpty) {
    EXPECT_EQ(dateOf(std::numeric_limits<Timestamp>::max()), "");
    EXPECT_EQ(dateOf(std::numeric_limits<Timestamp>::min()), "");
}

TEST(ListingRow, dateFollowsTheLocale) {
    const ScopedEnvironment british({{"LC_ALL", "en_GB.UTF-8"}, {"TZ", "UTC0"}});
    std::string html;
    appendDate(html, 1'709'543'700);
    EXPECT_EQ(html, "4 Mar 2024 at 09:15");
}

TEST(ListingRow, nothingOmittedIsNoRow) { EXPECT_EQ(omitted(0), ""); }

TEST(ListingRow, lastRowCountsWhatIsOmitted) {
    EXPECT_EQ(omitted(1), "<div class=\"row\"><span class=\"muted\">and 1 more item</span></div>");
    EXPECT_EQ(omitted(1'500), "<div class=\"row\"><span class=\"muted\">and 1,500 more items</span></div>");
}

TEST(ListingRow, omittedCountFollowsTheLocale) {
    const ScopedEnvironment german({{"LC_ALL", "de_DE.UTF-8"}});
    std::string html;
    appendOmitted(html, 1'500);
    EXPECT_EQ(html, "<div class=\"row\"><span class=\"muted\">and 1.500 more items</span></div>");
}

} // namespace
} // namespace quillmar::ListingRow
