#include "QuillmarQuickLook/Icons/CustomIcon.h"

#include "Tests/Helpers/Environment.h"
#include "Tests/Helpers/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <optional>
#include <sys/stat.h>

namespace quillmar {
namespace {

using namespace std::string_literals;

struct CustomIconTest : testing::Test {
    std::string iconOf(const FileURL& url, std::optional<std::string> home = std::nullopt) const {
        const ScopedEnvironment environment(
            {{"HOME", home.value_or(path("home"))}, {"XDG_CONFIG_HOME", std::nullopt}});
        return customIcon(url).value_or("none");
    }

    std::string path(const std::string& name) const { return (folder.path() / name).string(); }

    /// The icon of a folder whose `.directory` holds \p entry.
    std::string iconOfFolder(DataView entry) const {
        const FileURL url = folder.makeFolder("folder");
        folder.write("folder/.directory", entry);
        return iconOf(url);
    }

    void writeUserFolders(DataView content) const {
        folder.makeFolder("home/.config");
        folder.write("home/.config/user-dirs.dirs", content);
    }

    TemporaryFolder folder;
};

TEST_F(CustomIconTest, ofMostThingsIsNone) {
    EXPECT_EQ(iconOf(folder.makeFolder("folder")), "none");
    EXPECT_EQ(iconOf(folder.write("file.txt", "[Desktop Entry]\nIcon=mine\n")), "none");
    EXPECT_EQ(iconOf(folder.url("missing")), "none");
    EXPECT_EQ(iconOf(folder.url("missing.desktop")), "none");
}

TEST_F(CustomIconTest, ofAFolderIsWhatItsEntrySays) {
    EXPECT_EQ(iconOfFolder("[Desktop Entry]\nIcon=folder-red\n"), "folder-red");
    EXPECT_EQ(iconOfFolder("[Desktop Entry]\nIcon=/pictures/mine.png\n"), "/pictures/mine.png");
}

TEST_F(CustomIconTest, ofAFolderIsNoneWhenItsEntrySaysNothing) {
    for (const auto* entry : {"", "[Desktop Entry]\n", "[Desktop Entry]\nIcon=\n", "[Other]\nIcon=mine\n",
                              "Icon=mine\n", "[Desktop Entry]\nicon=mine\n", "\xFF\xFE[\n"})
        EXPECT_EQ(iconOfFolder(entry), "none") << entry;
}

TEST_F(CustomIconTest, ofAFolderIsNoneWhenItsEntryIsNoFile) {
    folder.makeFolder("a/.directory");
    EXPECT_EQ(iconOf(folder.url("a")), "none");
    const FileURL pipe = folder.makeFolder("b");
    ASSERT_EQ(::mkfifo(path("b/.directory").c_str(), 0600), 0);
    EXPECT_EQ(iconOf(pipe), "none");
}

TEST_F(CustomIconTest, ofALinkToAFolderIsThatOfTheFolder) {
    iconOfFolder("[Desktop Entry]\nIcon=folder-red\n");
    std::filesystem::create_symlink("folder", folder.path() / "link");
    EXPECT_EQ(iconOf(folder.url("link")), "folder-red");
}

TEST_F(CustomIconTest, ofAnApplicationsEntryIsTheApplications) {
    EXPECT_EQ(iconOf(folder.write("program.desktop", "[Desktop Entry]\nType=Application\nIcon=editor\n"
                                                     "[Desktop Action new]\nIcon=new\n")),
              "editor");
}

TEST_F(CustomIconTest, ofAFolderCalledLikeAnEntryIsThatOfAFolder) {
    EXPECT_EQ(iconOf(folder.makeFolder("folder.desktop")), "none");
}

TEST_F(CustomIconTest, ofTheHomeFolderIsItsOwn) {
    const FileURL home = folder.makeFolder("home");
    EXPECT_EQ(iconOf(home), "user-home");
    EXPECT_EQ(iconOf(home, path("home") + "/"), "user-home");
    EXPECT_EQ(iconOf(home, path("other")), "none");
    EXPECT_EQ(iconOf(home, "home"), "none");
}

TEST_F(CustomIconTest, ofAUsersFolderFollowsTheUsersNames) {
    writeUserFolders("# written by a program\nXDG_MUSIC_DIR=\"$HOME/Klang\"\n"
                     "XDG_PICTURES_DIR=\"" +
                     path("Bilder") + "\"\n");
    EXPECT_EQ(iconOf(folder.makeFolder("home/Klang")), "folder-music");
    EXPECT_EQ(iconOf(folder.makeFolder("Bilder")), "folder-pictures");
    EXPECT_EQ(iconOf(folder.makeFolder("home/Music")), "none");
    EXPECT_EQ(iconOf(folder.makeFolder("home/Klang/deeper")), "none");
}

TEST_F(CustomIconTest, ofEachOfTheUsersFoldersIsItsOwn) {
    const std::pair<const char*, const char*> examples[]{
        {"DESKTOP", "user-desktop"},       {"DOCUMENTS", "folder-documents"},
        {"DOWNLOAD", "folder-download"},   {"MUSIC", "folder-music"},
        {"PICTURES", "folder-pictures"},   {"PUBLICSHARE", "folder-publicshare"},
        {"TEMPLATES", "folder-templates"}, {"VIDEOS", "folder-videos"}};
    for (const auto& [key, icon] : examples) {
        writeUserFolders("XDG_"s + key + "_DIR=\"$HOME/place\"\n");
        EXPECT_EQ(iconOf(folder.makeFolder("home/place")), icon);
    }
}

TEST_F(CustomIconTest, ofTheHomeFolderStaysWhenAUsersFolderIsSwitchedOff) {
    writeUserFolders("XDG_DESKTOP_DIR=\"$HOME/\"\n");
    EXPECT_EQ(iconOf(folder.makeFolder("home")), "user-home");
}

TEST_F(CustomIconTest, readsTheUsersFoldersWhereTheSettingsAre) {
    folder.makeFolder("settings");
    folder.write("settings/user-dirs.dirs", "XDG_MUSIC_DIR=\"$HOME/Klang\"\n");
    const FileURL music = folder.makeFolder("home/Klang");
    const ScopedEnvironment environment({{"HOME", path("home")}, {"XDG_CONFIG_HOME", path("settings")}});
    EXPECT_EQ(customIcon(music), "folder-music");
}

TEST_F(CustomIconTest, passesOverUsersFoldersThatAreNotQuotedOrNotAbsolute) {
    const FileURL music = folder.makeFolder("home/Klang");
    for (const auto* value :
         {"$HOME/Klang", "\"Klang\"", "\"$HOME/Klang", "\"", "\"\"", "", "\"$OTHER/Klang\""}) {
        writeUserFolders("XDG_MUSIC_DIR="s + value + "\n");
        EXPECT_EQ(iconOf(music), "none") << value;
    }
}

TEST_F(CustomIconTest, prefersAFoldersEntryToItsPlace) {
    const FileURL home = folder.makeFolder("home");
    folder.write("home/.directory", "[Desktop Entry]\nIcon=mine\n");
    EXPECT_EQ(iconOf(home), "mine");
}

TEST_F(CustomIconTest, needsNoEnvironment) {
    const ScopedEnvironment environment({{"HOME", {}}, {"XDG_CONFIG_HOME", {}}});
    EXPECT_FALSE(customIcon(folder.makeFolder("home")));
    EXPECT_FALSE(customIcon(FileURL::root()));
}

} // namespace
} // namespace quillmar
