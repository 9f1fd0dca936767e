#include "QuillmarQuickLook/Icons/IconFinder.h"

#include "Tests/Helpers/Environment.h"
#include "Tests/Helpers/ThemeFolder.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

using namespace std::string_literals;
using Strings = std::vector<std::string>;

struct IconFinderTest : testing::Test {
    /// The file that is found, as a path below the folder; "none" when there is none.
    std::string found(const Strings& names, const std::string& theme = "theme") const {
        const auto path = IconFinder(theme, {folder.path()}).find(names);
        if (!path) return "none";
        return path->starts_with(folder.path() + '/') ? path->substr(folder.path().size() + 1) : *path;
    }

    /// Empty icons called "icon" in the folders \p directories of the theme.
    void addIconsTo(const Strings& directories) const {
        for (const std::string& directory : directories) folder.write("theme/" + directory + "/icon.png", "");
    }

    ThemeFolder folder;
};

TEST_F(IconFinderTest, findsAnIconOfTheTheme) {
    folder.addTheme("theme");
    folder.write("theme/64/icon.png", "");
    EXPECT_EQ(found({"icon"}), "theme/64/icon.png");
}

TEST_F(IconFinderTest, findsNothingThatIsNotThere) {
    folder.addTheme("theme");
    folder.write("theme/64/icon.png", "");
    folder.write("theme/unlisted/other.png", "");
    EXPECT_EQ(found({"ico", "icon.png", "other", ""}), "none");
    EXPECT_EQ(found({}), "none");
}

TEST_F(IconFinderTest, takesTheFirstNameThatThereIs) {
    folder.addTheme("theme");
    folder.write("theme/64/second.png", "");
    folder.write("theme/64/third.png", "");
    EXPECT_EQ(found({"first", "second", "third"}), "theme/64/second.png");
}

TEST_F(IconFinderTest, findsPNGsAndSVGsOnly) {
    folder.addTheme("theme");
    for (const auto* name : {"a.png", "b.svg", "c.xpm", "d.jpg", "e", "f.PNG"})
        folder.write("theme/64/"s + name, "");
    EXPECT_EQ(found({"a"}), "theme/64/a.png");
    EXPECT_EQ(found({"b"}), "theme/64/b.svg");
    EXPECT_EQ(found({"c", "d", "e", "f"}), "none");
}

TEST_F(IconFinderTest, takesNoFolderForAnIcon) {
    folder.addTheme("theme");
    folder.write("theme/64/icon.png/file", "");
    folder.write("theme/64/other.png", "");
    EXPECT_EQ(found({"icon", "other"}), "theme/64/other.png");
}

TEST_F(IconFinderTest, prefersTheSizeThatIsWanted) {
    folder.addTheme(
        "theme", "",
        {"[64]\nSize=64\nType=Fixed\n", "[128]\nSize=128\nType=Fixed\n", "[256]\nSize=256\nType=Fixed\n"});
    addIconsTo({"64", "128", "256"});
    EXPECT_EQ(found({"icon"}), "theme/128/icon.png");
}

TEST_F(IconFinderTest, prefersAnyLargerSizeToASmallerOne) {
    folder.addTheme(
        "theme", "",
        {"[127]\nSize=127\nType=Fixed\n", "[4096]\nSize=4096\nType=Fixed\n", "[64]\nSize=64\nType=Fixed\n"});
    addIconsTo({"127", "4096", "64"});
    EXPECT_EQ(found({"icon"}), "theme/4096/icon.png");
}

TEST_F(IconFinderTest, prefersTheNearestOfTheLargerSizes) {
    folder.addTheme("theme", "", {"[512]\nSize=512\nType=Fixed\n", "[256]\nSize=256\nType=Fixed\n"});
    addIconsTo({"512", "256"});
    EXPECT_EQ(found({"icon"}), "theme/256/icon.png");
}

TEST_F(IconFinderTest, takesTheLargestOfTheSmallerSizesWhenThereIsNoOther) {
    folder.addTheme(
        "theme", "",
        {"[16]\nSize=16\nType=Fixed\n", "[48]\nSize=48\nType=Fixed\n", "[32]\nSize=32\nType=Fixed\n"});
    addIconsTo({"16", "48", "32"});
    EXPECT_EQ(found({"icon"}), "theme/48/icon.png");
}

TEST_F(IconFinderTest, prefersWhatCanBeScaledToTheSizeToWhatIsLarger) {
    folder.addTheme(
        "theme", "",
        {"[256]\nSize=256\nType=Fixed\n", "[any]\nSize=16\nType=Scalable\nMinSize=8\nMaxSize=128\n"});
    addIconsTo({"256", "any"});
    EXPECT_EQ(found({"icon"}), "theme/any/icon.png");
}

TEST_F(IconFinderTest, takesWhatLiesWithinTheThresholdForTheSize) {
    folder.addTheme("theme", "",
                    {"[129]\nSize=129\nType=Fixed\n", "[120]\nSize=120\nType=Threshold\nThreshold=8\n"});
    addIconsTo({"129", "120"});
    EXPECT_EQ(found({"icon"}), "theme/120/icon.png");
}

TEST_F(IconFinderTest, countsTheScaleIntoTheSize) {
    folder.addTheme("theme", "",
                    {"[129]\nSize=129\nType=Fixed\n", "[64]\nSize=64\nType=Fixed\n",
                     "[64@2]\nSize=64\nType=Fixed\nScale=2\n"});
    addIconsTo({"129", "64", "64@2"});
    EXPECT_EQ(found({"icon"}), "theme/64@2/icon.png");
}

TEST_F(IconFinderTest, keepsTheOrderOfTheIndexAmongEqualSizes) {
    folder.addTheme("theme", "", {"[b]\nSize=128\n", "[a]\nSize=128\n"});
    addIconsTo({"a", "b"});
    EXPECT_EQ(found({"icon"}), "theme/b/icon.png");
}

TEST_F(IconFinderTest, findsTheSecondNameInTheThemeBeforeTheFirstInItsParent) {
    folder.addTheme("theme", "parent");
    folder.addTheme("parent");
    folder.write("parent/64/first.png", "");
    folder.write("theme/64/second.png", "");
    EXPECT_EQ(found({"first", "second"}), "theme/64/second.png");
}

TEST_F(IconFinderTest, searchesParentsInTheirOrder) {
    folder.addTheme("theme", "b,a");
    for (const auto* parent : {"a", "b"}) {
        folder.addTheme(parent);
        folder.write(parent + "/64/icon.png"s, "");
    }
    EXPECT_EQ(found({"icon"}), "b/64/icon.png");
}

TEST_F(IconFinderTest, searchesParentsOfParents) {
    folder.addTheme("theme", "parent");
    folder.addTheme("parent", "grandparent");
    folder.addTheme("grandparent");
    folder.write("grandparent/64/icon.png", "");
    EXPECT_EQ(found({"icon"}), "grandparent/64/icon.png");
}

// The lookup goes "recursively in each of the current theme's parents" (freedesktop.org, icon themes).
TEST_F(IconFinderTest, searchesAParentsParentsBeforeTheNextParent) {
    folder.addTheme("theme", "a,b");
    folder.addTheme("a", "parent-of-a");
    folder.addTheme("b");
    folder.addTheme("parent-of-a");
    folder.write("b/64/icon.png", "");
    folder.write("parent-of-a/64/icon.png", "");
    EXPECT_EQ(found({"icon"}), "parent-of-a/64/icon.png");
}

TEST_F(IconFinderTest, searchesHicolorThoughNoThemeSaysSo) {
    folder.addTheme("theme");
    folder.addTheme("hicolor");
    folder.write("hicolor/64/icon.png", "");
    EXPECT_EQ(found({"icon"}), "hicolor/64/icon.png");
    EXPECT_EQ(found({"icon"}, "missing"), "hicolor/64/icon.png");
}

// "And finally in the default theme called hicolor" (freedesktop.org, icon themes): nearly every theme names it
// as a parent, and so do the parents of the others.
TEST_F(IconFinderTest, searchesHicolorAfterAllOthers) {
    folder.addTheme("theme", "hicolor,parent");
    folder.addTheme("parent");
    folder.addTheme("hicolor");
    folder.write("parent/64/icon.png", "");
    folder.write("hicolor/64/icon.png", "");
    EXPECT_EQ(found({"icon"}), "parent/64/icon.png");
}

TEST_F(IconFinderTest, searchesHicolorBehindMoreParentsThanAreSearched) {
    std::string parents;
    for (std::size_t i = 0; i < IconFinder::maxThemes; ++i) parents += "parent" + std::to_string(i) + ',';
    folder.addTheme("theme", parents + "hicolor");
    folder.addTheme("hicolor");
    folder.write("hicolor/64/icon.png", "");
    EXPECT_EQ(found({"icon"}), "hicolor/64/icon.png");
}

TEST_F(IconFinderTest, goesRoundNoCircleOfInheritance) {
    folder.addTheme("theme", "theme,other");
    folder.addTheme("other", "theme,other,third");
    folder.addTheme("third", "other");
    folder.write("third/64/icon.png", "");
    EXPECT_EQ(found({"icon"}), "third/64/icon.png");
    EXPECT_EQ(found({"missing"}), "none");
}

TEST_F(IconFinderTest, followsABoundedNumberOfThemes) {
    const auto name = [](std::size_t i) { return "theme" + std::to_string(i); };
    for (std::size_t i = 0; i < 100; ++i) folder.addTheme(name(i), name(i + 1));
    folder.write(name(IconFinder::maxThemes - 1) + "/64/last.png", "");
    folder.write(name(IconFinder::maxThemes) + "/64/behind.png", "");
    EXPECT_EQ(found({"last"}, "theme0"), name(IconFinder::maxThemes - 1) + "/64/last.png");
    EXPECT_EQ(found({"behind"}, "theme0"), "none");
}

TEST_F(IconFinderTest, passesOverAnEndlessListOfParents) {
    std::string parents;
    for (int i = 0; i < 150'000; ++i) parents += std::to_string(i) + ',';
    folder.addTheme("theme", parents);
    folder.write("theme/64/icon.png", "");
    EXPECT_EQ(found({"icon"}), "theme/64/icon.png");
}

TEST_F(IconFinderTest, findsAThemeThatLiesInSeveralFolders) {
    folder.addTheme("system/theme");
    folder.write("system/theme/64/both.png", "");
    folder.write("system/theme/64/system.png", "");
    folder.write("user/theme/64/both.png", ""); // without an index of its own
    folder.write("user/theme/64/user.png", "");
    const IconFinder finder("theme", {folder.path("user"), folder.path("system")});
    EXPECT_EQ(finder.find({"both"}), folder.path("user/theme/64/both.png"));
    EXPECT_EQ(finder.find({"user"}), folder.path("user/theme/64/user.png"));
    EXPECT_EQ(finder.find({"system"}), folder.path("system/theme/64/system.png"));
}

TEST_F(IconFinderTest, takesTheIndexOfTheFirstFolder) {
    folder.addTheme("user/theme", "", {"[user]\nSize=64\n"});
    folder.addTheme("system/theme", "", {"[system]\nSize=64\n"});
    folder.write("system/theme/user/icon.png", "");
    folder.write("system/theme/system/icon.png", "");
    const IconFinder finder("theme", {folder.path("user"), folder.path("system")});
    EXPECT_EQ(finder.find({"icon"}), folder.path("system/theme/user/icon.png"));
}

TEST_F(IconFinderTest, prefersTheBetterSizeOfAnotherFolder) {
    folder.addTheme("system/theme", "", {"[16]\nSize=16\n", "[128]\nSize=128\n"});
    folder.write("user/theme/16/icon.png", "");
    folder.write("system/theme/128/icon.png", "");
    const IconFinder finder("theme", {folder.path("user"), folder.path("system")});
    EXPECT_EQ(finder.find({"icon"}), folder.path("system/theme/128/icon.png"));
}

TEST_F(IconFinderTest, findsIconsWithoutAThemeAtLast) {
    folder.addTheme("theme");
    folder.write("icon.png", "");
    folder.write("second.svg", "");
    folder.write("theme/64/second.png", "");
    EXPECT_EQ(found({"icon"}), "icon.png");
    EXPECT_EQ(found({"icon", "second"}), "theme/64/second.png");
    EXPECT_EQ(found({"icon"}, "missing"), "icon.png");
}

TEST_F(IconFinderTest, findsNothingInFoldersThatAreNotThere) {
    EXPECT_FALSE(IconFinder("theme", {"/no/such/folder", "", "relative"}).find({"icon"}));
    EXPECT_FALSE(IconFinder("theme", {}).find({"icon"}));
}

TEST_F(IconFinderTest, followsLinksThatStayInside) {
    folder.addTheme("theme", "", {"[64]\nSize=64\n", "[128]\nSize=128\n"});
    folder.write("theme/64/icon.svg", "");
    folder.link("theme/128", "64");
    folder.link("theme/64/alias.svg", "icon.svg");
    folder.link("theme/64/other.svg", folder.path("other/file.svg"));
    folder.write("other/file.svg", "");
    EXPECT_EQ(found({"icon"}), "theme/128/icon.svg");
    EXPECT_EQ(found({"alias"}), "theme/128/alias.svg");
    EXPECT_EQ(found({"other"}), "theme/128/other.svg");
}

TEST_F(IconFinderTest, followsNoLinksThatLeadOut) {
    const ThemeFolder outside;
    outside.write("file.png", "");
    folder.addTheme("theme", "", {"[64]\nSize=64\n", "[linked]\nSize=128\n"});
    folder.link("theme/64/absolute.png", outside.path("file.png"));
    folder.link("theme/linked", outside.path());
    folder.link("theme/64/second.png", "absolute.png");
    EXPECT_EQ(found({"absolute", "file", "second"}), "none");
}

TEST_F(IconFinderTest, looksElsewhereForAnIconWhoseLinkLeadsOut) {
    const ThemeFolder outside;
    folder.addTheme("theme", "", {"[64]\nSize=64\n", "[128]\nSize=128\n"});
    folder.link("theme/128/icon.png", outside.write("file.png", ""));
    folder.write("theme/64/icon.png", "");
    EXPECT_EQ(found({"icon"}), "theme/64/icon.png");
}

TEST_F(IconFinderTest, takesNoFolderBesideItsOwnForOneInside) {
    const std::string beside = folder.path("icons-of-others");
    folder.write("icons-of-others/file.png", "");
    folder.addTheme("icons/theme");
    folder.link("icons/theme/64/icon.png", beside + "/file.png");
    EXPECT_FALSE(IconFinder("theme", {folder.path("icons")}).find({"icon"}));
}

TEST_F(IconFinderTest, passesOverLinksThatLeadNowhereOrRound) {
    folder.addTheme("theme");
    folder.link("theme/64/broken.png", "missing.png");
    folder.link("theme/64/round.png", "round.png");
    EXPECT_EQ(found({"broken", "round"}), "none");
}

TEST_F(IconFinderTest, followsAFolderThatIsALinkItself) {
    folder.addTheme("real/theme");
    folder.write("real/theme/64/icon.png", "");
    folder.link("linked", "real");
    EXPECT_EQ(IconFinder("theme", {folder.path("linked")}).find({"icon"}),
              folder.path("real/theme/64/icon.png"));
}

TEST_F(IconFinderTest, takesNoNameThatLeadsElsewhere) {
    folder.addTheme("theme");
    folder.write("theme/64/sub/icon.png", "");
    folder.write("theme/icon.png", "");
    folder.write("theme/64/...png", "");
    EXPECT_EQ(found({"sub/icon", "../icon", "/icon", "..", ".", ""}), "none");
}

TEST_F(IconFinderTest, takesNoThemeThatLeadsElsewhere) {
    folder.addTheme("icons/theme", "../outside,sub/theme");
    folder.addTheme("outside");
    folder.addTheme("icons/sub/theme");
    folder.write("outside/64/icon.png", "");
    folder.write("icons/sub/theme/64/icon.png", "");
    for (const auto* theme : {"theme", "../outside", "sub/theme", "..", ".", "", "/"})
        EXPECT_FALSE(IconFinder(theme, {folder.path("icons")}).find({"icon"})) << theme;
}

TEST_F(IconFinderTest, takesNoFolderOfAThemeThatLeadsElsewhere) {
    folder.addTheme("theme", "", {"[../outside]\nSize=128\n", "[64]\nSize=64\n"});
    folder.write("outside/icon.png", "");
    EXPECT_EQ(found({"icon"}), "none");
}

TEST_F(IconFinderTest, readsAnIndexOfAnyBytes) {
    Data bytes;
    for (int value = 0; value < 256; ++value) bytes += static_cast<char>(value);
    folder.write("theme/index.theme", bytes + "\n[Icon Theme]\nDirectories=" + bytes + ",64\n[64]\nSize=64\n");
    folder.write("theme/64/icon.png", "");
    EXPECT_EQ(found({"missing", bytes}), "none");
}

TEST_F(IconFinderTest, passesOverAnIndexThatIsNoFile) {
    folder.write("theme/index.theme/file", "");
    folder.write("theme/64/icon.png", "");
    EXPECT_EQ(found({"icon"}), "none");
}

using Settings = std::initializer_list<ScopedEnvironment::Setting>;

Strings standardFolders(Settings settings) {
    const ScopedEnvironment nothing({{"HOME", {}}, {"XDG_DATA_HOME", {}}, {"XDG_DATA_DIRS", {}}});
    const ScopedEnvironment environment(settings);
    return IconFinder::standardFolders();
}

TEST(IconFinderFolders, areThoseOfTheUserAndThenThoseOfTheSystem) {
    EXPECT_EQ(standardFolders({{"HOME", "/home/me"}, {"XDG_DATA_HOME", "/data"}, {"XDG_DATA_DIRS", "/a:/b"}}),
              (Strings{"/data/icons", "/home/me/.icons", "/a/icons", "/b/icons", "/usr/share/pixmaps"}));
}

TEST(IconFinderFolders, haveDefaultsForWhatIsNotSet) {
    EXPECT_EQ(standardFolders({{"HOME", "/home/me"}}),
              (Strings{"/home/me/.local/share/icons", "/home/me/.icons", "/usr/local/share/icons",
                       "/usr/share/icons", "/usr/share/pixmaps"}));
}

TEST(IconFinderFolders, areThoseOfTheSystemWithoutAHome) {
    const Strings system{"/usr/local/share/icons", "/usr/share/icons", "/usr/share/pixmaps"};
    EXPECT_EQ(standardFolders({}), system);
    EXPECT_EQ(standardFolders({{"HOME", ""}, {"XDG_DATA_HOME", ""}, {"XDG_DATA_DIRS", ""}}), system);
}

TEST(IconFinderFolders, areNeverRelative) {
    EXPECT_EQ(
        standardFolders({{"HOME", "home"}, {"XDG_DATA_HOME", "./data"}, {"XDG_DATA_DIRS", "a:/b::../c:"}}),
        (Strings{"/b/icons", "/usr/share/pixmaps"}));
}

} // namespace
} // namespace quillmar
