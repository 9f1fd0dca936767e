#include "Pages/FolderPage.h"

#include "Tests/Helpers/CountingIcons.h"
#include "Tests/Helpers/Environment.h"
#include "Tests/Helpers/FolderItems.h"
#include "Tests/Helpers/GoldenPages.h"
#include "Tests/Helpers/Pages.h"

#include <gtest/gtest.h>
#include <limits>
#include <ostream>

namespace quillmar::FolderPage {
namespace {

using Items = std::vector<FolderItem>;
using Strings = std::vector<std::string>;

constexpr Timestamp morning = 1'709'543'700; // 2024-03-04 09:15 UTC
constexpr auto largest = std::numeric_limits<std::int64_t>::max();

std::string page(const FolderSummary& summary) {
    PreviewAssets assets(nullptr);
    return html(summary, assets);
}

std::string page(Items items) { return page(folderSummary(std::move(items))); }

/// \p count files of a byte each, named by their number.
Items files(std::size_t count) {
    Items items;
    for (std::size_t i = 1; i <= count; ++i) items.push_back(folderItem(std::to_string(i), 1));
    return items;
}

Strings facts(const std::string& html) {
    constexpr std::string_view dot = "<span class=\"dot\">·</span>";
    Strings facts;
    std::string rest = factsOf(html).append(dot);
    for (std::size_t end = 0; (end = rest.find(dot)) != rest.npos; rest.erase(0, end + dot.size()))
        facts.push_back(rest.substr(0, end));
    return facts;
}

std::string hero(const std::string& html) { return between(html, "<div class=\"hero\"><b>", "</b>"); }

Strings notices(std::string_view html) {
    constexpr std::string_view start = "<p class=\"notice\">";
    Strings notices;
    for (std::size_t at = html.find(start); at != html.npos; at = html.find(start, at + 1))
        notices.push_back(between(html.substr(at), start, "</p>"));
    return notices;
}

/// A row of the list as it shows.
struct Row {
    std::string name, size, width, date;
    bool operator==(const Row&) const = default;
};

std::ostream& operator<<(std::ostream& output, const Row& row) {
    return output << row.name << " | " << row.size << " | " << row.width << " | " << row.date;
}

/// Without the heading and the row that counts the others.
std::vector<Row> rows(std::string_view html) {
    constexpr std::string_view start = "<div class=\"row\"><span class=\"name\">";
    std::vector<Row> rows;
    for (std::size_t at = html.find(start); at != html.npos; at = html.find(start, at + 1)) {
        const std::string_view row = html.substr(at);
        rows.push_back({.name = between(row, "<span>", "</span>"),
                        .size = between(row, "<span class=\"size\">", "<small>"),
                        .width = between(row, "<small><i style=\"width:", "\"></i></small></span>"),
                        .date = between(row, "<span class=\"date\">", "</span></div>")});
    }
    return rows;
}

Strings widths(Items items) {
    Strings widths;
    for (const Row& row : rows(page(std::move(items)))) widths.push_back(row.width);
    return widths;
}

constexpr std::string_view tooBig =
    "This folder is too big to measure completely in a preview. Sizes marked + are at least that much.";
const std::string dash = "<span class=\"muted\">—</span>";

class FolderPageTest : public testing::Test {
    ScopedEnvironment english_{{"LC_ALL", "C"}, {"TZ", "UTC0"}};
};

/// A line feed before every block, so that a long page can be read and compared by lines.
std::string inLines(std::string html) {
    for (const std::string_view start : {"<div", "<p class", "<header"})
        for (std::size_t at = 0; (at = html.find(start, at)) != html.npos; at += 2)
            if (at > 0 && html[at - 1] != '\n') html.insert(at, 1, '\n');
    return html.append("\n");
}

TEST_F(FolderPageTest, showsEverythingAtOnce) {
    FolderItem link = modified(morning, folderItem("link to <b>", 12, FileKind::other, "public.symlink"));
    FolderSummary summary = folderSummary(
        {modified(morning, partly(childFolder("Photos", 4'200'000'000))),
         modified(morning,
                  folderItem("Planner.app", 2'100'000'000, FileKind::apps, "com.apple.application-bundle")),
         childFolder(".git", 1'000'000'000),
         modified(morning, folderItem("Plan.rtfd", 525'000'000, FileKind::documents, "com.apple.rtfd")),
         modified(morning, folderItem("plan.png", 42'000'000, FileKind::images, "public.png")),
         folderItem("<img src=x onerror=\"alert(1)\"> & 'co'.png", 1'234'567, FileKind::images, "public.png"),
         folderItem(".DS_Store", 6'148),
         folderItem("花園 حديقة 🌻.txt", 1'500, FileKind::documents, "public.plain-text"),
         folderItem(std::string(251, 'w') + ".txt", 300, FileKind::documents, "public.plain-text"), link,
         folderItem("NOTICE", 1), folderItem("empty", 0),
         modified(morning, childFolder("locked", std::nullopt))});
    summary.url = FileURL::root().appendingPathComponent("Garten & <Beete>");
    summary.modified = morning;
    CountingIcons icons;
    PreviewAssets assets(&icons);
    const std::string document = html(summary, assets);
    EXPECT_EQ(between(document, "<title>", "</title>"), "Garten &amp; &lt;Beete&gt;");
    EXPECT_TRUE(sameLines(inLines(document.substr(document.find("<body"))), goldenFile("folder.html")));
}

// Header and figure

TEST_F(FolderPageTest, isNamedLikeTheFolder) {
    const std::string html = page(files(1));
    EXPECT_EQ(between(html, "<title>", "</title>"), "Garden");
    EXPECT_EQ(between(html, "<h1>", "</h1>"), "Garden");
    EXPECT_NE(html.find("<body class=\"folder\">"), std::string::npos);
}

TEST_F(FolderPageTest, namesTheRootASlash) {
    const std::string html = page(FolderSummary{.url = FileURL::root()});
    EXPECT_EQ(between(html, "<title>", "</title>"), "/");
    EXPECT_EQ(between(html, "<h1>", "</h1>"), "/");
}

TEST_F(FolderPageTest, doesNotCutTheFoldersName) {
    const std::string name(2'000, 'x');
    EXPECT_EQ(
        between(page(FolderSummary{.url = FileURL::root().appendingPathComponent(name)}), "<h1>", "</h1>"),
        name);
}

TEST_F(FolderPageTest, countsItemsAndBytes) {
    EXPECT_EQ(facts(page({folderItem("a", 4'000'000'000), folderItem("b", 200'000'000)})),
              (Strings{"2 items", "4.2 GB"}));
    EXPECT_EQ(facts(page(files(1))), (Strings{"1 item", "1 byte"}));
    EXPECT_EQ(facts(page(files(1'234))), (Strings{"1,234 items", "1 KB"}));
}

TEST_F(FolderPageTest, countsHiddenItemsApart) {
    EXPECT_EQ(facts(page({folderItem(".b", 2'000), folderItem("a", 1'000), folderItem(".c", 0)})),
              (Strings{"1 item", "3 KB", "2 hidden"}));
}

TEST_F(FolderPageTest, groupsTheDigitsOfManyHiddenItems) {
    EXPECT_EQ(facts(page(Items(1'234, folderItem(".a", 1)))).back(), "1,234 hidden");
}

TEST_F(FolderPageTest, tellsWhenTheFolderWasModified) {
    FolderSummary summary = folderSummary({folderItem("a", 1), folderItem(".b", 1)});
    summary.modified = morning;
    EXPECT_EQ(facts(page(summary)),
              (Strings{"1 item", "2 bytes", "1 hidden", "Modified Mar 4, 2024 at 9:15\u202FAM"}));
    summary.items.pop_back();
    EXPECT_EQ(facts(page(summary)), (Strings{"1 item", "2 bytes", "Modified Mar 4, 2024 at 9:15\u202FAM"}));
}

TEST_F(FolderPageTest, tellsNothingOfAModificationOutsideTheCalendar) {
    FolderSummary summary = folderSummary(files(1));
    for (const Timestamp never : {std::numeric_limits<Timestamp>::min(), largest}) {
        summary.modified = never;
        EXPECT_EQ(facts(page(summary)), (Strings{"1 item", "1 byte"}));
    }
}

TEST_F(FolderPageTest, showsTheTotalAsALargeFigure) {
    EXPECT_NE(page({folderItem("a", 4'000'000'000), folderItem(".b", 200'000'000)})
                  .find("<div class=\"hero\"><b>4.2 GB</b><span>1 item</span></div>"),
              std::string::npos);
}

TEST_F(FolderPageTest, sumsOfHugeSizesStop) {
    const std::string html =
        page({folderItem("a", largest), folderItem("b", largest), folderItem("c", largest / 2)});
    EXPECT_EQ(hero(html), "9.22 EB");
    EXPECT_EQ(rows(html), (std::vector<Row>{{"a", "9.22 EB", "100.0%", ""},
                                            {"b", "9.22 EB", "100.0%", ""},
                                            {"c", "4.61 EB", "50.0%", ""}}));
}

TEST_F(FolderPageTest, composesTheBarOfHiddenItemsToo) {
    const std::string html =
        page({folderItem(".c", 3'000, FileKind::code), folderItem("i", 1'000, FileKind::images)});
    EXPECT_NE(html.find("<div class=\"composition\"><div class=\"bar\">"
                        "<span style=\"flex-grow:75.00;background:#2A9DB0\"></span>"
                        "<span style=\"flex-grow:25.00;background:#E659AD\"></span></div>"),
              std::string::npos);
}

TEST_F(FolderPageTest, hasNoCompositionWithoutBytes) {
    EXPECT_EQ(page({folderItem("a", 0), childFolder("b", std::nullopt)}).find("class=\"composition\""),
              std::string::npos);
}

// Sizes that are not known

TEST_F(FolderPageTest, saysWhereverASizeIsALowerBound) {
    const std::string html = page({partly(childFolder("a", 4'000'000'000)), folderItem("b", 200'000'000)});
    EXPECT_EQ(facts(html), (Strings{"2 items", "At least 4.2 GB"}));
    EXPECT_EQ(hero(html), "≥ 4.2 GB");
    EXPECT_EQ(notices(html), Strings{std::string(tooBig)});
    EXPECT_EQ(rows(html), (std::vector<Row>{{"a", "4 GB+", "100.0%", ""}, {"b", "200 MB", "5.0%", ""}}));
}

TEST_F(FolderPageTest, saysNothingOfTheKindOfAFolderMeasuredToTheEnd) {
    const std::string html = page({childFolder("a", 4'000'000'000), folderItem("b", 200'000'000)});
    const std::string body = html.substr(html.find("<body"));
    EXPECT_EQ(notices(body), Strings{});
    for (const char* mark : {"At least", "≥", "+"}) EXPECT_EQ(body.find(mark), std::string::npos) << mark;
}

TEST_F(FolderPageTest, putsTheNoticeBetweenTheBarAndTheList) {
    EXPECT_NE(page({partly(childFolder("a", 1))})
                  .find(std::string("</div></div><p class=\"notice\">")
                            .append(tooBig)
                            .append("</p><div class=\"list\">")),
              std::string::npos);
}

TEST_F(FolderPageTest, isIncompleteForTheSakeOfAHiddenFolder) {
    const std::string html = page({folderItem("a", 2'000), partly(childFolder(".b", 1'000))});
    EXPECT_EQ(hero(html), "≥ 3 KB");
    EXPECT_EQ(notices(html).size(), 1U);
    EXPECT_EQ(rows(html), (std::vector<Row>{{"a", "2 KB", "100.0%", ""}}));
}

TEST_F(FolderPageTest, showsADashForAFolderThatWasNotMeasured) {
    EXPECT_EQ(rows(page({folderItem("a", 1), childFolder("b", std::nullopt)})),
              (std::vector<Row>{{"a", "1 byte", "100.0%", ""}, {"b", dash, "0%", ""}}));
}

TEST_F(FolderPageTest, showsDashesAloneWhereNothingWasMeasured) {
    const std::string html = page({childFolder("a", std::nullopt), childFolder("b", std::nullopt)});
    EXPECT_EQ(hero(html), "≥ Zero KB");
    EXPECT_EQ(rows(html), (std::vector<Row>{{"a", dash, "0%", ""}, {"b", dash, "0%", ""}}));
}

TEST_F(FolderPageTest, marksAFolderOfWhichNothingWasCountedYet) {
    EXPECT_EQ(rows(page({partly(childFolder("a", 0))})), (std::vector<Row>{{"a", "Zero KB+", "0.0%", ""}}));
}

// Empty folders

TEST_F(FolderPageTest, saysThatAFolderIsEmpty) {
    const std::string html = page(Items{});
    EXPECT_EQ(facts(html), (Strings{"0 items", "Zero KB"}));
    EXPECT_EQ(hero(html), "Zero KB");
    EXPECT_TRUE(html.ends_with("<p class=\"notice\">This folder is empty.</p></div>\n</body>\n</html>"));
    EXPECT_EQ(html.find("<div class=\"list\""), std::string::npos);
}

TEST_F(FolderPageTest, callsAFolderOfHiddenItemsEmptyAndCountsThem) {
    const std::string html =
        page({folderItem(".a", 3'000, FileKind::code), folderItem(".b", 1'000, FileKind::code)});
    EXPECT_EQ(facts(html), (Strings{"0 items", "4 KB", "2 hidden"}));
    EXPECT_EQ(hero(html), "4 KB");
    EXPECT_NE(html.find("Code<b>4 KB</b>"), std::string::npos);
    EXPECT_EQ(notices(html), Strings{"This folder is empty."});
    EXPECT_EQ(html.find("<div class=\"list\""), std::string::npos);
}

TEST_F(FolderPageTest, saysBothOfAFolderOfHiddenItemsMeasuredInPart) {
    EXPECT_EQ(notices(page({childFolder(".a", std::nullopt)})),
              (Strings{std::string(tooBig), "This folder is empty."}));
}

// Rows

TEST_F(FolderPageTest, drawsRowsUnderAHeading) {
    EXPECT_NE(
        page({modified(morning, folderItem("a.c", 1'500, FileKind::code))})
            .find(
                "<div class=\"list\"><div class=\"row heading\"><span>Name</span>"
                "<span class=\"size\">Size</span><span class=\"date\">Modified</span></div>"
                "<div class=\"row\"><span class=\"name\"><span class=\"spacer\"></span><span>a.c</span></span>"
                "<span class=\"size\">2 KB<small><i style=\"width:100.0%\"></i></small></span>"
                "<span class=\"date\">Mar 4, 2024 at 9:15\u202FAM</span></div></div></div>\n</body>"),
        std::string::npos);
}

TEST_F(FolderPageTest, keepsTheOrderOfTheSummary) {
    const auto shown =
        rows(page({folderItem("z", 3), folderItem(".h", 2), folderItem("B", 1), folderItem("a", 1)}));
    ASSERT_EQ(shown.size(), 3U);
    EXPECT_EQ(shown[0].name + shown[1].name + shown[2].name, "zBa");
}

TEST_F(FolderPageTest, drawsBarsInProportionToTheLargest) {
    EXPECT_EQ(
        widths({folderItem("a", 8'000), folderItem("b", 4'000), folderItem("c", 3'000), folderItem("d", 1)}),
        (Strings{"100.0%", "50.0%", "37.5%", "0.0%"}));
    EXPECT_EQ(widths({folderItem("a", 3'000), folderItem("b", 2'000), folderItem("c", 1'000)}),
              (Strings{"100.0%", "66.7%", "33.3%"}));
}

TEST_F(FolderPageTest, measuresTheBarsByTheLargestThatIsShown) {
    EXPECT_EQ(widths({folderItem(".a", 8'000), folderItem("b", 4'000), folderItem("c", 1'000)}),
              (Strings{"100.0%", "25.0%"}));
}

TEST_F(FolderPageTest, drawsNoBarsForFilesWithoutBytes) {
    EXPECT_EQ(widths({folderItem("a", 0), folderItem("b", 0)}), (Strings{"0.0%", "0.0%"}));
    EXPECT_EQ(widths({folderItem("a", 1), folderItem("b", 0)}), (Strings{"100.0%", "0.0%"}));
}

TEST_F(FolderPageTest, leavesTheDateEmptyWhereThereIsNone) {
    EXPECT_EQ(rows(page({modified(morning, folderItem("a", 1)), folderItem("b", 1),
                         modified(largest, folderItem("c", 1))})),
              (std::vector<Row>{{"a", "1 byte", "100.0%", "Mar 4, 2024 at 9:15\u202FAM"},
                                {"b", "1 byte", "100.0%", ""},
                                {"c", "1 byte", "100.0%", ""}}));
}

TEST_F(FolderPageTest, escapesNames) {
    EXPECT_EQ(rows(page({folderItem("<a href=\"x\">'&", 1)})).at(0).name,
              "&lt;a href=&quot;x&quot;&gt;&#39;&amp;");
}

TEST_F(FolderPageTest, cutsNamesAtTheir1024thCharacter) {
    std::string name;
    for (int i = 0; i < 1'024; ++i) name += "漢";
    EXPECT_EQ(rows(page({folderItem(name, 1)})).at(0).name, name);
    EXPECT_EQ(rows(page({folderItem(name + "字", 1)})).at(0).name, name + "…");
}

TEST_F(FolderPageTest, keepsNamesOfEveryScript) {
    for (const char* name :
         {"花園", "حديقة", "גן", "बगीचा", "🌻👩‍🌾", "\u202Etxt.exe", "a\nb", "e\u0301", "\uFFFD"})
        EXPECT_EQ(rows(page({folderItem(name, 1)})).at(0).name, name);
}

TEST_F(FolderPageTest, listsAThousandItems) {
    const std::string html = page(files(1'000));
    EXPECT_EQ(rows(html).size(), 1'000U);
    EXPECT_EQ(html.find("<span class=\"muted\">and "), std::string::npos);
}

TEST_F(FolderPageTest, doesNotTakeHiddenItemsForRowsLeftOut) {
    Items items = files(1'000);
    items.insert(items.begin(), 5, folderItem(".a", 2));
    const std::string html = page(items);
    EXPECT_EQ(rows(html).size(), 1'000U);
    EXPECT_EQ(html.find("<span class=\"muted\">and "), std::string::npos);
}

TEST_F(FolderPageTest, countsTheItemsAfterTheThousandth) {
    const std::string one = page(files(1'001));
    EXPECT_EQ(rows(one).size(), 1'000U);
    EXPECT_EQ(rows(one).back().name, "1000");
    EXPECT_TRUE(
        one.ends_with("<div class=\"row\"><span class=\"muted\">and 1 more item</span></div></div></div>"
                      "\n</body>\n</html>"));
    const std::string many = page(files(2'500));
    EXPECT_EQ(rows(many).size(), 1'000U);
    EXPECT_NE(many.find("<span class=\"muted\">and 1,500 more items</span></div></div></div>\n"),
              std::string::npos);
    EXPECT_EQ(facts(many).front(), "2,500 items");
}

// Locales

TEST_F(FolderPageTest, writesNumbersAndDatesOfTheLocaleAndOurOwnWordsInEnglish) {
    const ScopedEnvironment german({{"LC_ALL", "de_DE.UTF-8"}});
    Items items(1'001, modified(morning, partly(childFolder("a", 1'500'000))));
    items.insert(items.end(), 1'200, folderItem(".h", 0));
    const std::string html = page(items);
    EXPECT_EQ(facts(html), (Strings{"1.001 items", "At least 1,5 GB", "1.200 hidden"}));
    EXPECT_EQ(hero(html), "≥ 1,5 GB");
    EXPECT_EQ(notices(html), Strings{std::string(tooBig)});
    EXPECT_EQ(rows(html).at(0), (Row{"a", "1,5 MB+", "100.0%", "4. März 2024, 09:15"}));
}

TEST_F(FolderPageTest, writesPointsIntoStylesInEveryLocale) {
    for (const char* locale :
         {"de_DE.UTF-8", "fr_FR.UTF-8", "ar_EG.UTF-8", "fa_IR.UTF-8", "hi_IN.UTF-8@numbers=deva"}) {
        const ScopedEnvironment theirs({{"LC_ALL", locale}});
        EXPECT_EQ(widths({folderItem("a", 8'000), folderItem("b", 3'000)}), (Strings{"100.0%", "37.5%"}))
            << locale;
    }
}

} // namespace
} // namespace quillmar::FolderPage
