#include "Pages/TreeRenderer.h"

#include "Tests/Helpers/ArchiveEntries.h"
#include "Tests/Helpers/CountingIcons.h"
#include "Tests/Helpers/Environment.h"
#include "Tests/Helpers/Pages.h"

#include <gtest/gtest.h>
#include <limits>

namespace quillmar {
namespace {

using Entries = std::vector<ArchiveEntry>;

struct Drawn {
    std::string html;
    std::int64_t omitted = 0;
};

Drawn drawn(const Entries& entries, bool openAll = false, IconSource* icons = nullptr) {
    ArchiveTree tree;
    for (const ArchiveEntry& entry : entries) tree.insert(entry);
    tree.finish();
    PreviewAssets assets(icons);
    TreeRenderer renderer(tree, assets, openAll);
    Drawn result;
    renderer.appendRows(result.html);
    result.omitted = renderer.omittedCount();
    return result;
}

std::size_t rowsIn(const std::string& html) { return occurrences(html, "<span class=\"name\""); }

/// The names of the folders that are open, in the order of the page.
std::vector<std::string> openFolders(std::string_view html) {
    constexpr std::string_view start = "<details open>";
    std::vector<std::string> names;
    for (std::size_t at = html.find(start); at != html.npos; at = html.find(start, at + 1))
        names.push_back(between(html.substr(at), "<span>", "</span>"));
    return names;
}

using Strings = std::vector<std::string>;

class TreeRendererTest : public testing::Test {
    ScopedEnvironment english_{{"LC_ALL", "C"}, {"TZ", "UTC0"}};
};

// Rows

TEST_F(TreeRendererTest, drawsAFile) {
    ArchiveEntry entry = file("notes.txt", 1'234);
    entry.modified = 1'709'543'700; // 2024-03-04 09:15 UTC
    EXPECT_EQ(drawn({entry}).html,
              "<div class=\"row\"><span class=\"name\" style=\"--depth:0\"><span class=\"spacer\"></span>"
              "<span class=\"spacer\"></span><span>notes.txt</span></span>"
              "<span class=\"size\">1 KB</span><span class=\"date\">Mar 4, 2024 at 9:15\u202FAM</span></div>");
}

TEST_F(TreeRendererTest, drawsAFolderAroundItsContents) {
    EXPECT_EQ(drawn({file("dir/x", 5)}).html,
              "<details open><summary class=\"row-wrap\">"
              "<div class=\"row dir\"><span class=\"name\" style=\"--depth:0\"><span class=\"chevron\">▶</span>"
              "<span class=\"spacer\"></span><span>dir</span></span>"
              "<span class=\"size\">5 bytes</span><span class=\"date\"></span></div></summary>"
              "<div class=\"row alt\"><span class=\"name\" style=\"--depth:1\"><span class=\"spacer\"></span>"
              "<span class=\"spacer\"></span><span>x</span></span>"
              "<span class=\"size\">5 bytes</span><span class=\"date\"></span></div></details>");
}

TEST_F(TreeRendererTest, drawsNothingOfAnEmptyTree) { EXPECT_EQ(drawn({}).html, ""); }

TEST_F(TreeRendererTest, drawsIconsByType) {
    CountingIcons icons;
    const std::string html =
        drawn({folder("dir"), file("a.png"), file("b"), file("c.png")}, false, &icons).html;
    EXPECT_EQ(icons.askedTypes, (Strings{"public.folder", "public.png", "public.data"}));
    EXPECT_EQ(occurrences(html, "<img src=\"cid:asset-0\" alt=\"\"><span>dir<"), 1U);
    EXPECT_EQ(occurrences(html, "<img src=\"cid:asset-1\" alt=\"\"><span>a.png<"), 1U);
    EXPECT_EQ(occurrences(html, "<img src=\"cid:asset-2\" alt=\"\"><span>b<"), 1U);
    EXPECT_EQ(occurrences(html, "<img src=\"cid:asset-1\" alt=\"\"><span>c.png<"), 1U);
    EXPECT_EQ(icons.askedFiles, Strings{});
}

TEST_F(TreeRendererTest, showsTheFolderIconOfAnyFolder) {
    CountingIcons icons;
    drawn({folder("Tool.app"), folder("b.png")}, false, &icons);
    EXPECT_EQ(icons.askedTypes, Strings{"public.folder"});
}

TEST_F(TreeRendererTest, putsASpacerWhereAnIconIsMissing) {
    CountingIcons icons;
    icons.typeWithoutIcon = "public.png";
    const std::string html = drawn({file("a.png"), file("b.png")}, false, &icons).html;
    EXPECT_EQ(occurrences(html, "<span class=\"spacer\"></span><span class=\"spacer\"></span><span>"), 2U);
    EXPECT_EQ(icons.askedTypes, Strings{"public.png"});
}

TEST_F(TreeRendererTest, showsADashForAFolderOfEmptyFiles) {
    const std::string html = drawn({file("dir/empty", 0)}).html;
    EXPECT_EQ(between(html, "<span class=\"size\">", "</div>"),
              "<span class=\"muted\">—</span></span><span class=\"date\"></span>");
    EXPECT_EQ(occurrences(html, "<span class=\"size\">Zero KB</span>"), 1U);
}

TEST_F(TreeRendererTest, leavesADateEmptyThatCannotBeWritten) {
    ArchiveEntry entry = file("x");
    entry.modified = std::numeric_limits<std::int64_t>::max();
    EXPECT_EQ(occurrences(drawn({entry}).html, "<span class=\"date\"></span>"), 1U);
}

TEST_F(TreeRendererTest, marksALinkInTheNameAndALockBehindIt) {
    ArchiveEntry entry = file("x");
    entry.isLink = true;
    entry.isEncrypted = true;
    EXPECT_NE(drawn({entry}).html.find("<span>x <span class=\"muted\">(link)</span></span>"
                                       "<span class=\"lock\" title=\"Password protected\">🔒</span></span>"
                                       "<span class=\"size\">"),
              std::string::npos);
}

TEST_F(TreeRendererTest, marksFoldersThatHoldSomethingEncrypted) {
    ArchiveEntry entry = file("a/b/x");
    entry.isEncrypted = true;
    EXPECT_EQ(occurrences(drawn({entry, file("c")}).html, "class=\"lock\""), 3U);
}

TEST_F(TreeRendererTest, escapesNames) {
    const std::string html = drawn({file("<img src=x onerror=alert(1)>/\"&'")}).html;
    EXPECT_EQ(html.find("<img"), std::string::npos);
    EXPECT_NE(html.find("<span>&lt;img src=x onerror=alert(1)&gt;</span>"), std::string::npos);
    EXPECT_NE(html.find("<span>&quot;&amp;&#39;</span>"), std::string::npos);
}

TEST_F(TreeRendererTest, cutsLongNames) {
    const std::string html = drawn({file(std::string(5'000, 'x'))}).html;
    EXPECT_NE(html.find("<span>" + std::string(1'024, 'x') + "…</span>"), std::string::npos);
}

TEST_F(TreeRendererTest, stripesEverySecondRowAtWhateverDepth) {
    const std::string html = drawn({file("a/b/c"), file("a/d"), file("e")}, true).html;
    std::string classes;
    for (std::size_t at = html.find("\"row"); at != html.npos; at = html.find("\"row", at + 1))
        if (!std::string_view(html).substr(at).starts_with("\"row-wrap"))
            classes += between(std::string_view(html).substr(at), "\"", "\"") + ",";
    EXPECT_EQ(classes, "row dir,row dir alt,row,row alt,row,");
}

// What is open

TEST_F(TreeRendererTest, opensEveryFolderWhenToldTo) {
    EXPECT_EQ(
        openFolders(drawn({file("a/b/x"), file("c/y"), folder("d"), folder("e"), folder("f")}, true).html),
        (Strings{"a", "b", "c", "d", "e", "f"}));
}

TEST_F(TreeRendererTest, opensAShortTopLevelOnly) {
    EXPECT_EQ(openFolders(drawn({file("a/b/x"), file("a/y"), file("c/d/z"), file("e")}).html),
              (Strings{"a", "c"}));
    EXPECT_EQ(openFolders(drawn({file("a/b/x"), file("c/d/z"), file("e"), file("f")}).html), Strings{});
}

TEST_F(TreeRendererTest, opensAChainOfSingleFolders) {
    EXPECT_EQ(openFolders(drawn({file("a/b/c/x"), file("a/b/c/y"), file("a/b/c/d/z")}).html),
              (Strings{"a", "b", "c"}));
}

TEST_F(TreeRendererTest, doesNotOpenChainsThatBeginFurtherDown) {
    EXPECT_EQ(openFolders(drawn({file("a/b/c/x"), file("e")}).html), Strings{"a"});
    EXPECT_EQ(openFolders(drawn({file("a/b/c/x"), file("a/d")}).html), Strings{"a"});
}

TEST_F(TreeRendererTest, opensAChainHoweverDeep) {
    std::string deep;
    for (int i = 0; i < 5'000; ++i) deep += "d/";
    const Drawn result = drawn({file(deep + "x")});
    EXPECT_EQ(occurrences(result.html, "<details open>"), 3'000U);
    EXPECT_EQ(occurrences(result.html, "</details>"), 3'000U);
    EXPECT_EQ(result.omitted, 2'001);
}

// The limit

Entries files(const std::string& prefix, int count) {
    Entries entries;
    for (int i = 0; i < count; ++i) entries.push_back(file(prefix + std::to_string(i)));
    return entries;
}

TEST_F(TreeRendererTest, drawsThreeThousandRowsWhole) {
    const Drawn result = drawn(files("f", 3'000));
    EXPECT_EQ(rowsIn(result.html), 3'000U);
    EXPECT_EQ(result.omitted, 0);
}

TEST_F(TreeRendererTest, leavesOutEveryRowBehindTheLimit) {
    const Drawn result = drawn(files("f", 3'250));
    EXPECT_EQ(rowsIn(result.html), 3'000U);
    EXPECT_EQ(result.omitted, 250);
    EXPECT_NE(result.html.find("<span>f2999</span>"), std::string::npos);
    EXPECT_EQ(result.html.find("<span>f3000</span>"), std::string::npos);
}

TEST_F(TreeRendererTest, countsRowsInFoldersToo) {
    Entries entries = files("a/f", 2'998);
    for (const ArchiveEntry& entry : files("b/g", 10)) entries.push_back(entry);
    const Drawn result = drawn(entries);
    EXPECT_EQ(rowsIn(result.html), 3'000U); // a, what is in it, and b without anything
    EXPECT_TRUE(result.html.ends_with("</summary></details>"));
    EXPECT_EQ(result.omitted, 10);
}

TEST_F(TreeRendererTest, drawsTheLastFolderWithWhatFits) {
    Entries entries = files("a/f", 2'996);
    for (const ArchiveEntry& entry : files("b/g", 10)) entries.push_back(entry);
    const Drawn result = drawn(entries);
    EXPECT_NE(result.html.find("<span>g1</span>"), std::string::npos);
    EXPECT_EQ(result.html.find("<span>g2</span>"), std::string::npos);
    EXPECT_EQ(result.omitted, 8);
}

TEST_F(TreeRendererTest, countsWhatIsInFoldersThatAreLeftOut) {
    Entries entries = files("a/f", 2'999);
    for (const ArchiveEntry& entry : files("b/c/g", 10)) entries.push_back(entry);
    entries.push_back(file("z"));
    const Drawn result = drawn(entries);
    EXPECT_EQ(rowsIn(result.html), 3'000U);
    EXPECT_EQ(result.omitted, 13); // b, c, ten files, z
}

TEST_F(TreeRendererTest, closesEveryFolder) {
    Entries entries = files("a/b/c/f", 3'100);
    entries.push_back(file("a/b/d/x"));
    const std::string html = drawn(entries).html;
    EXPECT_EQ(occurrences(html, "<details"), occurrences(html, "</details>"));
    EXPECT_EQ(occurrences(html, "<div"), occurrences(html, "</div>"));
    EXPECT_EQ(occurrences(html, "<span"), occurrences(html, "</span>"));
}

} // namespace
} // namespace quillmar
