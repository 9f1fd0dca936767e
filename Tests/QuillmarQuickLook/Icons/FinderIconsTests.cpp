#include "QuillmarQuickLook/Icons/FinderIcons.h"

#include "Tests/Helpers/Environment.h"
#include "Tests/Helpers/Pictures.h"
#include "Tests/Helpers/ThemeFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace quillmar {
namespace {

namespace fs = std::filesystem;

/// In the middle of the icon; none when there is none.
std::optional<Pixel> colourOf(const std::optional<Data>& icon) {
    if (!icon) return std::nullopt;
    return Icon(*icon).at(64, 64);
}

/// A small theme: folders are red, sheets blue, and programs green.
struct FinderIconsTest : testing::Test {
    FinderIconsTest() {
        icons.addTheme("theme");
        icons.write("theme/64/folder.svg", svg(64, 64, "red"));
        icons.write("theme/64/text-x-generic.png", png(64, 64, blue));
        icons.write("theme/64/application-x-executable.svg", svg(64, 64, "lime"));
    }

    FinderIcons::Places places() const {
        return {.folders = {icons.path()},
                .theme = "theme",
                .cache = (items.path() / "cache").string(),
                .renderer = QUILLMAR_RENDERER};
    }

    /// As another preview gets it: nothing but what is kept is shared.
    std::optional<Pixel> ofType(std::string_view identifier) const {
        return colourOf(FinderIcons(places()).iconForType(identifier));
    }
    std::optional<Pixel> ofFile(const FileURL& url) const {
        return colourOf(FinderIcons(places()).iconForFile(url));
    }

    std::optional<Pixel> ofTypeWithoutRenderer(std::string_view identifier) const {
        FinderIcons::Places without = places();
        without.renderer = "";
        return colourOf(FinderIcons(without).iconForType(identifier));
    }

    /// The icon of a folder whose `.directory` says \p icon.
    std::optional<Pixel> ofFolderWith(const std::string& icon) const {
        const FileURL folder = items.makeFolder("folder");
        items.write("folder/.directory", "[Desktop Entry]\nIcon=" + icon + "\n");
        return ofFile(folder);
    }

    /// Gives the item another time than it has now, by whole seconds.
    static void touch(const fs::path& path, int seconds = 10) {
        fs::last_write_time(path, fs::last_write_time(path) + std::chrono::seconds(seconds));
    }

    static constexpr Pixel green{0, 255, 0, 255};
    ThemeFolder icons;
    TemporaryFolder items;
    ScopedEnvironment environment{{"HOME", (items.path() / "home").string()},
                                  {"XDG_CONFIG_HOME", std::nullopt}};
};

TEST_F(FinderIconsTest, drawTheThemesIconOfAType) {
    EXPECT_EQ(ofType("public.folder"), red);
    EXPECT_EQ(ofType("public.text"), blue);
    EXPECT_EQ(ofType("com.apple.application"), green);
}

TEST_F(FinderIconsTest, drawAPlainSheetForATypeThatNobodyKnows) {
    EXPECT_EQ(ofType("no.such.type"), blue);
    EXPECT_EQ(ofType(""), blue);
}

TEST_F(FinderIconsTest, areSquaresOfTheSizeThatIsWanted) {
    const auto icon = FinderIcons(places()).iconForType("public.folder");
    ASSERT_TRUE(icon);
    EXPECT_EQ(Icon(*icon).width, 128U);
    EXPECT_EQ(Icon(*icon).height, 128U);
}

TEST_F(FinderIconsTest, needNoRendererTheSecondTime) {
    const auto first = FinderIcons(places()).iconForType("public.folder");
    FinderIcons::Places without = places();
    without.renderer = "/no/such/program";
    EXPECT_EQ(FinderIcons(without).iconForType("public.folder"), first);
    EXPECT_EQ(ofTypeWithoutRenderer("public.folder"), red);
}

TEST_F(FinderIconsTest, areNoneWithoutARenderer) { EXPECT_FALSE(ofTypeWithoutRenderer("public.folder")); }

TEST_F(FinderIconsTest, comeBackWhenTheRendererDoes) {
    EXPECT_FALSE(ofTypeWithoutRenderer("public.folder"));
    EXPECT_EQ(ofType("public.folder"), red);
}

TEST_F(FinderIconsTest, areDrawnAnewWithoutACache) {
    FinderIcons::Places uncached = places();
    uncached.cache = "";
    EXPECT_EQ(colourOf(FinderIcons(uncached).iconForType("public.folder")), red);
    EXPECT_EQ(colourOf(FinderIcons(uncached).iconForType("public.folder")), red);
    EXPECT_FALSE(ofTypeWithoutRenderer("public.folder"));
}

TEST_F(FinderIconsTest, followAChangedIconFile) {
    EXPECT_EQ(ofType("public.folder"), red);
    const std::string file = icons.write("theme/64/folder.svg", svg(64, 64, "blue"));
    touch(file);
    EXPECT_EQ(ofType("public.folder"), blue);
}

TEST_F(FinderIconsTest, followAnIconFileThatWentAway) {
    EXPECT_EQ(ofType("public.folder"), red);
    fs::remove(icons.path("theme/64/folder.svg"));
    EXPECT_EQ(ofType("public.folder"), blue); // the sheet that every type ends with
}

TEST_F(FinderIconsTest, followAnotherTheme) {
    icons.addTheme("other");
    icons.write("other/64/folder.svg", svg(64, 64, "blue"));
    EXPECT_EQ(ofType("public.folder"), red);
    FinderIcons::Places others = places();
    others.theme = "other";
    EXPECT_EQ(colourOf(FinderIcons(others).iconForType("public.folder")), blue);
    EXPECT_EQ(ofType("public.folder"), red);
}

TEST_F(FinderIconsTest, followAChangedTheme) {
    EXPECT_EQ(ofType("com.adobe.pdf"), blue);
    icons.write("theme/64/application-pdf.svg", svg(64, 64, "lime"));
    touch(icons.path("theme"));
    EXPECT_EQ(ofType("com.adobe.pdf"), green);
}

TEST_F(FinderIconsTest, followAThemeThatIsInstalledLater) {
    FinderIcons::Places later = places();
    later.theme = "later";
    EXPECT_TRUE(FinderIcons(later).iconForType("public.folder"));
    icons.addTheme("later");
    icons.write("later/64/folder.svg", svg(64, 64, "lime"));
    EXPECT_EQ(colourOf(FinderIcons(later).iconForType("public.folder")), green);
}

TEST_F(FinderIconsTest, rememberWhatCannotBeDrawn) {
    const std::string file = icons.write("theme/64/folder.svg", "<svg");
    EXPECT_FALSE(ofType("public.folder"));
    const auto time = fs::last_write_time(file);
    icons.write("theme/64/folder.svg", svg(64, 64, "lime"));
    fs::last_write_time(file, time);
    EXPECT_FALSE(ofType("public.folder"));
    touch(file);
    EXPECT_EQ(ofType("public.folder"), green);
}

TEST_F(FinderIconsTest, areNoneOfAFileThatIsTooLarge) {
    Data large = svg(64, 64, "red");
    large.resize(IconRenderer::maxPictureBytes + 1, ' ');
    icons.write("theme/64/folder.svg", large);
    EXPECT_FALSE(ofType("public.folder"));
    large.pop_back();
    touch(icons.write("theme/64/folder.svg", large));
    EXPECT_EQ(ofType("public.folder"), red);
}

TEST_F(FinderIconsTest, areOurOwnOnAMachineWithoutAnyTheme) {
    FinderIcons::Places bare = places();
    bare.folders = {"/no/such/folder"};
    bare.theme = "hicolor";
    for (const auto* type : {"public.folder", "public.png", "public.volume", "no.such.type"}) {
        const auto icon = FinderIcons(bare).iconForType(type);
        ASSERT_TRUE(icon) << type;
        EXPECT_FALSE(Icon(*icon).isClear()) << type;
        FinderIcons::Places kept = bare;
        kept.renderer = "";
        EXPECT_EQ(FinderIcons(kept).iconForType(type), icon) << type;
    }
}

TEST_F(FinderIconsTest, ofAFileAreThoseOfItsType) {
    EXPECT_EQ(ofFile(items.write("note.txt", "")), blue);
    EXPECT_EQ(ofFile(items.makeFolder("Program.app")), green);
}

TEST_F(FinderIconsTest, ofWhatIsLikeAnyOtherAreNone) {
    EXPECT_FALSE(ofFile(items.makeFolder("plain")));
    EXPECT_FALSE(ofFile(items.write("file.no-such-extension", "")));
    EXPECT_FALSE(ofFile(items.url("missing.no-such-extension")));
}

TEST_F(FinderIconsTest, ofSpecialFoldersAreTheirOwn) {
    icons.write("theme/64/user-home.svg", svg(64, 64, "lime"));
    EXPECT_EQ(ofFile(items.makeFolder("home")), green);
}

TEST_F(FinderIconsTest, ofSpecialFoldersThatTheThemeDoesNotKnowAreThoseOfFolders) {
    EXPECT_EQ(ofFile(items.makeFolder("home")), red);
    EXPECT_EQ(ofFolderWith("no-such-icon"), red);
}

TEST_F(FinderIconsTest, ofAFolderFollowItsEntry) {
    icons.write("theme/64/folder-green.svg", svg(64, 64, "lime"));
    EXPECT_EQ(ofFolderWith("folder-green"), green);
    EXPECT_EQ(ofFolderWith("text-x-generic"), blue);
}

TEST_F(FinderIconsTest, ofAnEntryMayBeNamedAsFiles) {
    icons.write("theme/64/mine.svg", svg(64, 64, "lime"));
    for (const auto* name : {"mine.png", "mine.svg", "mine.xpm"}) EXPECT_EQ(ofFolderWith(name), green) << name;
}

TEST_F(FinderIconsTest, ofAnEntryLeadNowhereElse) {
    icons.write("secret.svg", svg(64, 64, "lime"));
    for (const auto* name : {"../../secret", "../64/../../secret", "64/folder"})
        EXPECT_EQ(ofFolderWith(name), red) << name;
}

TEST_F(FinderIconsTest, ofAnApplicationsEntryAreTheApplications) {
    icons.write("theme/64/editor.svg", svg(64, 64, "lime"));
    EXPECT_EQ(ofFile(items.write("editor.desktop", "[Desktop Entry]\nIcon=editor\n")), green);
}

TEST_F(FinderIconsTest, ofAnEntryMayBeAnyPicture) {
    items.write("mine.png", png(32, 32, {0, 255, 0, 255}));
    const std::string file = (items.path() / "mine.png").string();
    EXPECT_EQ(ofFolderWith(file), green);
    items.write("mine.png", png(32, 32, blue));
    touch(file);
    EXPECT_EQ(ofFolderWith(file), blue);
}

TEST_F(FinderIconsTest, ofAnEntryAreNoneWhenThePictureIsMissingOrNoFile) {
    EXPECT_FALSE(ofFolderWith("/no/such/picture.png"));
    EXPECT_FALSE(ofFolderWith(items.path().string()));
    EXPECT_FALSE(ofFolderWith("/dev/zero"));
    const std::string pipe = (items.path() / "pipe.png").string();
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_FALSE(ofFolderWith(pipe));
}

TEST_F(FinderIconsTest, ofAnEntryAppearWithThePicture) {
    const std::string file = (items.path() / "late.png").string();
    EXPECT_FALSE(ofFolderWith(file));
    items.write("late.png", png(32, 32, blue));
    EXPECT_EQ(ofFolderWith(file), blue);
}

TEST_F(FinderIconsTest, standardPlacesFollowTheEnvironment) {
    fs::create_directories(items.path() / "data");
    fs::create_directory_symlink(icons.path(), items.path() / "data/icons");
    items.makeFolder("home/.config/gtk-3.0");
    items.write("home/.config/gtk-3.0/settings.ini", "[Settings]\ngtk-icon-theme-name=theme\n");
    const ScopedEnvironment settings({{"XDG_DATA_HOME", (items.path() / "data").string()},
                                      {"XDG_CACHE_HOME", (items.path() / "kept").string()},
                                      {"XDG_CURRENT_DESKTOP", {}}});
    const FinderIcons::Places found = FinderIcons::standardPlaces();
    EXPECT_EQ(found.folders.front(), (items.path() / "data/icons").string());
    EXPECT_EQ(found.theme, "theme");
    EXPECT_EQ(found.cache, (items.path() / "kept/quillmar/icons").string());
    EXPECT_EQ(colourOf(FinderIcons(found).iconForType("public.folder")), red);
}

} // namespace
} // namespace quillmar
