#include "Pages/ArchivePage.h"

#include "Archives/ArchiveLimits.h"
#include "Tests/Helpers/ArchiveEntries.h"
#include "Tests/Helpers/CountingIcons.h"
#include "Tests/Helpers/Environment.h"
#include "Tests/Helpers/Pages.h"

#include <gtest/gtest.h>
#include <limits>

namespace quillmar::ArchivePage {
namespace {

using Strings = std::vector<std::string>;
using Entries = std::vector<ArchiveEntry>;

const FileURL place = FileURL::standardized("/home/me/garden.zip", FileURL::root());

ArchiveListing listing(Entries entries, ArchiveFormat format = ArchiveFormat::zip) {
    return {.format = format, .entries = std::move(entries)};
}

std::string page(const ArchiveListing& listing, std::int64_t archiveSize = 1'000) {
    PreviewAssets assets(nullptr);
    return html(listing, place, archiveSize, assets);
}

ArchiveEntry packed(std::string path, std::int64_t size, std::int64_t compressedSize) {
    ArchiveEntry entry = file(std::move(path), size);
    entry.compressedSize = compressedSize;
    return entry;
}

/// \p count files in the folder \p path.
Entries files(const std::string& path, int count) {
    Entries entries;
    for (int i = 0; i < count; ++i) entries.push_back(file(path + "/" + std::to_string(i), 1));
    return entries;
}

/// The value of a figure, by its label.
std::string figure(const std::string& html, const std::string& label) {
    return between(html, "<span>" + label + "</span><b>", "</b>");
}

std::string sizeFact(const std::string& html) {
    const std::string facts = factsOf(html);
    return facts.substr(facts.rfind("</span>") + std::string_view("</span>").size());
}

bool listsNothing(const std::string& html) { return html.find("<div class=\"list") == html.npos; }

class ArchivePageTest : public testing::Test {
    ScopedEnvironment english_{{"LC_ALL", "C"}, {"TZ", "UTC0"}};
};

TEST_F(ArchivePageTest, isOneDocument) {
    const std::string html = page(listing({packed("a.c", 3'000, 1'000)}));
    EXPECT_TRUE(html.starts_with("<!DOCTYPE html>\n"));
    EXPECT_EQ(between(html, "<title>", "</title>"), "garden.zip");
    const std::string body = html.substr(html.find("<body"));
    EXPECT_EQ(body, "<body class=\"archive\">\n<div class=\"page\"><header class=\"header\">\n"
                    "<div class=\"icon placeholder\"></div>\n<div class=\"titles\">\n<h1>garden.zip</h1>\n"
                    "<p class=\"facts\">ZIP archive<span class=\"dot\">·</span>1 file in 0 folders"
                    "<span class=\"dot\">·</span>1 KB → 3 KB extracted</p>\n</div>\n</header>"
                    "<div class=\"stats\"><div><span>Unpacked</span><b>3 KB</b></div>"
                    "<div><span>Compressed</span><b>1 KB</b></div><div><span>Items</span><b>1</b></div></div>"
                    "<div class=\"composition\"><div class=\"bar\">"
                    "<span style=\"flex-grow:100.00;background:#2A9DB0\"></span></div><div class=\"legend\">"
                    "<span class=\"legend-item\"><i style=\"background:#2A9DB0\"></i>Code<b>3 KB</b></span>"
                    "</div></div>"
                    "<div class=\"list tree\"><div class=\"row heading\"><span>Name</span>"
                    "<span class=\"size\">Size</span><span class=\"date\">Modified</span></div>"
                    "<div class=\"row\"><span class=\"name\" style=\"--depth:0\"><span class=\"spacer\"></span>"
                    "<span class=\"spacer\"></span><span>a.c</span></span><span class=\"size\">3 KB</span>"
                    "<span class=\"date\"></span></div></div></div>\n</body>\n</html>");
}

// Header

TEST_F(ArchivePageTest, showsTheArchivesOwnIcon) {
    CountingIcons icons;
    PreviewAssets assets(&icons);
    const std::string html = ArchivePage::html(listing({}), place, 1, assets);
    EXPECT_NE(html.find("<img class=\"icon\" src=\"cid:asset-0\" alt=\"\">"), std::string::npos);
    EXPECT_EQ(icons.askedFiles, Strings{"/home/me/garden.zip"});
}

TEST_F(ArchivePageTest, fallsBackToTheIconOfArchives) {
    CountingIcons icons;
    icons.hasFileIcons = false;
    PreviewAssets assets(&icons);
    ArchivePage::html(listing({}), place, 1, assets);
    EXPECT_EQ(icons.askedTypes, Strings{"public.archive"});
}

TEST_F(ArchivePageTest, countsFilesAndFolders) {
    Entries entries = files("a", 1'200);
    entries.push_back(folder("b"));
    const std::string html = page(listing(entries));
    EXPECT_NE(factsOf(html).find("1,200 files in 2 folders"), std::string::npos);
    EXPECT_EQ(figure(html, "Items"), "1,202");
    EXPECT_NE(factsOf(page(listing({file("a/b")}))).find("1 file in 1 folder<"), std::string::npos);
}

TEST_F(ArchivePageTest, showsWhatAZipGrowsTo) {
    EXPECT_EQ(sizeFact(page(listing({packed("a", 25'000'000, 9'900'000)}), 10'000'000)),
              "10 MB → 25 MB extracted");
}

TEST_F(ArchivePageTest, showsNoArrowForAStoredZip) {
    EXPECT_EQ(sizeFact(page(listing({packed("a", 25'000'000, 25'000'000)}))), "25 MB extracted");
    EXPECT_EQ(sizeFact(page(listing({packed("a", 25'000'000, 26'000'000)}))), "25 MB extracted");
    EXPECT_EQ(sizeFact(page(listing({packed("a", 25'000'000, 0)}))), "25 MB extracted");
    EXPECT_EQ(sizeFact(page(listing({packed("a", 25'000'000, -5)}))), "25 MB extracted");
}

TEST_F(ArchivePageTest, showsNoArrowForATar) {
    for (const auto format : {ArchiveFormat::tar, ArchiveFormat::tarGzip, ArchiveFormat::tarXz})
        EXPECT_EQ(sizeFact(page(listing({packed("a", 25'000'000, 9'900'000)}, format))), "25 MB extracted");
}

TEST_F(ArchivePageTest, carriesABadgeWhenAnythingIsEncrypted) {
    ArchiveEntry secret = file("a/b/secret", 1);
    secret.isEncrypted = true;
    EXPECT_NE(
        page(listing({secret, file("c")})).find("garden.zip<span class=\"badge\">Password protected</span>"),
        std::string::npos);
    EXPECT_EQ(page(listing({file("c")})).find("class=\"badge\""), std::string::npos);
}

TEST_F(ArchivePageTest, escapesTheArchivesName) {
    PreviewAssets assets(nullptr);
    const auto url = FileURL::root().appendingPathComponent("<b>&.zip");
    const std::string html = ArchivePage::html(listing({}), url, 1, assets);
    EXPECT_EQ(between(html, "<title>", "</title>"), "&lt;b&gt;&amp;.zip");
    EXPECT_EQ(between(html, "<h1>", "</h1>"), "&lt;b&gt;&amp;.zip");
}

TEST_F(ArchivePageTest, doesNotCutTheArchivesName) {
    PreviewAssets assets(nullptr);
    const std::string name(2'000, 'x');
    EXPECT_EQ(between(ArchivePage::html(listing({}), FileURL::root().appendingPathComponent(name), 1, assets),
                      "<h1>", "</h1>"),
              name);
}

// Figures

TEST_F(ArchivePageTest, takesTheFilesSizeForCompressedWhereNothingElseIsKnown) {
    EXPECT_EQ(figure(page(listing({file("a", 5'000)}, ArchiveFormat::tarGzip), 1'234'567), "Compressed"),
              "1.2 MB");
    EXPECT_EQ(figure(page(listing({packed("a", 5'000, 2'000)}), 1'234'567), "Compressed"), "2 KB");
}

TEST_F(ArchivePageTest, sumsOfHugeSizesStop) {
    constexpr auto largest = std::numeric_limits<std::int64_t>::max();
    const std::string html =
        page(listing({packed("a.c", largest, largest), packed("b.png", largest, largest)}));
    EXPECT_EQ(figure(html, "Unpacked"), "9.22 EB");
    EXPECT_EQ(figure(html, "Compressed"), "9.22 EB");
}

TEST_F(ArchivePageTest, hasNoCompositionWithoutBytes) {
    EXPECT_EQ(page(listing({file("a.c", 0)})).find("class=\"composition\""), std::string::npos);
}

// What the Finder adds

TEST_F(ArchivePageTest, leavesOutWhatTheFinderAdds) {
    const std::string html =
        page(listing({folder("__MACOSX"), file("__MACOSX/._a.txt"), file("/__MACOSX/b/c"),
                      file("dir/.DS_Store"), file("dir/._b"), file(".DS_Store"), folder("._d/")}));
    EXPECT_TRUE(listsNothing(html));
    EXPECT_EQ(figure(html, "Items"), "0");
}

TEST_F(ArchivePageTest, keepsWhatOnlyResemblesIt) {
    const std::string html =
        page(listing({file("dir/__MACOSX/z"), file(".DS_Store.bak"), file("__macosx/a"), file(".ds_store"),
                      file("._x/y"), file(".DS_Store/z"), file("a._b"), file("__MACOSX2")}));
    for (const char* name : {"__MACOSX", "z", ".DS_Store.bak", "__macosx", ".ds_store", "._x", "y", ".DS_Store",
                             "a._b", "__MACOSX2"})
        EXPECT_NE(html.find("<span>" + std::string(name) + "</span>"), std::string::npos) << name;
}

TEST_F(ArchivePageTest, passesOverPathsOfSlashes) {
    EXPECT_TRUE(listsNothing(page(listing({file(""), file("/"), file("///")}))));
}

// Notices

TEST_F(ArchivePageTest, saysThatAnArchiveIsEmpty) {
    for (const Entries& entries : {Entries{}, Entries{file("__MACOSX/a"), file("__MACOSX/b")}}) {
        const std::string html = page(listing(entries));
        EXPECT_NE(html.find("<p class=\"notice\">This archive is empty.</p></div>\n</body>"),
                  std::string::npos);
        EXPECT_TRUE(listsNothing(html));
        EXPECT_EQ(figure(html, "Items"), "0");
    }
}

TEST_F(ArchivePageTest, saysHowMuchOfAnIncompleteListingItShows) {
    ArchiveListing part = listing(files("a", 499));
    part.entries.push_back(file("__MACOSX/a")); // counts as read
    part.isComplete = false;
    EXPECT_NE(
        page(part).find("<p class=\"notice\">Showing the first 500 items. The rest of the archive couldn&#39;t "
                        "be read in time, or is damaged.</p><div class=\"list tree\">"),
        std::string::npos);
    part.entries.resize(1);
    EXPECT_NE(page(part).find("Showing the first 1 item. "), std::string::npos);
}

TEST_F(ArchivePageTest, saysBothOfAnEmptyIncompleteListing) {
    ArchiveListing part = listing({});
    part.isComplete = false;
    const std::string html = page(part);
    EXPECT_NE(html.find("Showing the first 0 items. "), std::string::npos);
    EXPECT_NE(html.find("damaged.</p><p class=\"notice\">This archive is empty.</p>"), std::string::npos);
}

TEST_F(ArchivePageTest, saysNothingOfACompleteListing) {
    EXPECT_EQ(page(listing({file("a")})).find("class=\"notice\""), std::string::npos);
}

TEST_F(ArchivePageTest, leavesOutEverythingFromTheEntryOnThatIsTooMuchForTheTree) {
    std::string deep;
    for (std::size_t i = 0; i < ArchiveLimits::maxNodes; ++i) deep += "d/";
    const std::string html = page(listing({file("a", 1), file(".DS_Store", 1), file(deep, 1), file("b", 1)}));
    EXPECT_NE(html.find("Showing the first 2 items. "), std::string::npos); // as read, before the filter
    EXPECT_EQ(figure(html, "Items"), "1");
    EXPECT_EQ(html.find("<span>b</span>"), std::string::npos);
}

// The tree

TEST_F(ArchivePageTest, opensEveryFolderOfEightyItems) {
    // Four folders and their files; the top level is not short.
    const auto tree = [](int filesInLast) {
        Entries entries{file("a/x"), file("b/x"), file("c/x")};
        for (const ArchiveEntry& entry : files("d", filesInLast)) entries.push_back(entry);
        return page(listing(entries));
    };
    EXPECT_EQ(occurrences(tree(73), "<details open>"), 4U); // 4 folders, 76 files
    EXPECT_EQ(occurrences(tree(74), "<details open>"), 0U);
    EXPECT_EQ(occurrences(tree(74), "<details>"), 4U);
}

TEST_F(ArchivePageTest, opensAShortTopLevelOfEightyOneItems) {
    Entries entries = files("a/b", 76);
    entries.push_back(file("c/d/x"));
    EXPECT_EQ(figure(page(listing(entries)), "Items"), "81");
    EXPECT_EQ(occurrences(page(listing(entries)), "<details open>"), 2U); // a and c
    EXPECT_EQ(occurrences(page(listing(entries)), "<details>"), 2U);      // b and d
}

TEST_F(ArchivePageTest, opensAChainOfSingleFoldersHoweverManyItems) {
    EXPECT_EQ(occurrences(page(listing(files("a/b", 500))), "<details open>"), 2U);
}

TEST_F(ArchivePageTest, namesTheNumberOfItemsThatAreLeftOut) {
    EXPECT_EQ(page(listing(files("a", 2'999))).find("<span class=\"muted\">and "), std::string::npos);
    EXPECT_NE(
        page(listing(files("a", 3'000)))
            .find("</details><div class=\"row\"><span class=\"muted\">and 1 more item</span></div></div>"),
        std::string::npos);
    EXPECT_NE(page(listing(files("a", 4'249))).find("and 1,250 more items</span></div></div></div>\n</body>"),
              std::string::npos);
}

TEST_F(ArchivePageTest, drawsAMillionNodes) {
    Entries entries;
    std::string path = "x";
    for (int k = 0; k < 49; ++k) path += "/y";
    for (int i = 0; i < 20'000; ++i) entries.push_back(file(std::to_string(i) + path, 1));
    const std::string html = page(listing(entries));
    EXPECT_EQ(figure(html, "Items"), "1,000,000");
    EXPECT_NE(html.find("and 997,000 more items"), std::string::npos);
    EXPECT_EQ(html.find("class=\"notice\""), std::string::npos);
}

TEST_F(ArchivePageTest, drawsAPathOfAMillionComponents) {
    std::string deep;
    for (std::size_t i = 1; i < ArchiveLimits::maxNodes; ++i) deep += "d/";
    const std::string html = page(listing({file(deep + "f", 1)}));
    EXPECT_EQ(figure(html, "Items"), "1,000,000");
    EXPECT_NE(html.find("--depth:2999"), std::string::npos);
}

} // namespace
} // namespace quillmar::ArchivePage
