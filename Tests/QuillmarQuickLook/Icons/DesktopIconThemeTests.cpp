#include "QuillmarQuickLook/Icons/DesktopIconTheme.h"

#include "Tests/Helpers/Environment.h"
#include "Tests/Helpers/ThemeFolder.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

struct DesktopIconThemeTest : testing::Test {
    std::string theme(const std::string& desktop = "") const {
        const ScopedEnvironment environment({{"XDG_CURRENT_DESKTOP", desktop},
                                             {"XDG_CONFIG_HOME", home.path(".config")},
                                             {"HOME", home.path()}});
        return desktopIconTheme({folder.path("user"), folder.path("system")});
    }

    void install(std::initializer_list<const char*> themes) const {
        for (const std::string theme : themes) folder.addTheme("system/" + theme);
    }

    void setKDE(const std::string& theme) const {
        home.write(".config/kdeglobals", "[General]\nTheme=Other\n[Icons]\nTheme=" + theme + "\n");
    }

    void setGTK(const std::string& version, const std::string& theme) const {
        home.write(".config/gtk-" + version + "/settings.ini",
                   "[Settings]\ngtk-icon-theme-name=" + theme + "\n");
    }

    ThemeFolder folder;
    ThemeFolder home;
};

TEST_F(DesktopIconThemeTest, isTheOneOfKDEsSettings) {
    install({"Mine", "Adwaita", "breeze"});
    setKDE("Mine");
    EXPECT_EQ(theme("KDE"), "Mine");
    EXPECT_EQ(theme(""), "Mine");
}

TEST_F(DesktopIconThemeTest, isTheOneOfGTKsSettings) {
    install({"Mine", "Adwaita", "breeze"});
    setGTK("3.0", "Mine");
    EXPECT_EQ(theme(), "Mine");
}

TEST_F(DesktopIconThemeTest, isTheOneOfTheNewerGTK) {
    install({"Old", "New"});
    setGTK("3.0", "Old");
    setGTK("4.0", "New");
    EXPECT_EQ(theme(), "New");
}

TEST_F(DesktopIconThemeTest, isTheRunningDesktopsOwn) {
    install({"OfKDE", "OfGTK"});
    setKDE("OfKDE");
    setGTK("3.0", "OfGTK");
    EXPECT_EQ(theme("KDE"), "OfKDE");
    EXPECT_EQ(theme("ubuntu:GNOME"), "OfGTK");
    EXPECT_EQ(theme(), "OfGTK");
}

TEST_F(DesktopIconThemeTest, isFoundInAnyOfTheFolders) {
    folder.addTheme("user/Mine");
    setGTK("3.0", "Mine");
    EXPECT_EQ(theme(), "Mine");
}

TEST_F(DesktopIconThemeTest, isNoneThatIsNotInstalled) {
    install({"Adwaita"});
    setGTK("3.0", "Missing");
    EXPECT_EQ(theme(), "Adwaita");
}

TEST_F(DesktopIconThemeTest, isNoneWithoutAnIndex) {
    install({"Adwaita"});
    folder.write("system/Mine/64/folder.png", "");
    setGTK("3.0", "Mine");
    EXPECT_EQ(theme(), "Adwaita");
}

TEST_F(DesktopIconThemeTest, isNoneThatLiesElsewhere) {
    install({"Adwaita"});
    folder.addTheme("outside");
    folder.addTheme("system/sub/theme");
    for (const auto* name : {"../outside", "sub/theme", "/usr", ""}) {
        setGTK("3.0", name);
        EXPECT_EQ(theme(), "Adwaita") << name;
    }
}

TEST_F(DesktopIconThemeTest, isWhatTheDesktopComesWithWithoutASetting) {
    install({"Adwaita", "breeze", "Papirus"});
    EXPECT_EQ(theme("KDE"), "breeze");
    EXPECT_EQ(theme("GNOME"), "Adwaita");
    EXPECT_EQ(theme(), "Adwaita");
}

TEST_F(DesktopIconThemeTest, isWhatIsInstalledWithoutASetting) {
    install({"Papirus"});
    EXPECT_EQ(theme(), "Papirus");
    EXPECT_EQ(theme("KDE"), "Papirus");
    install({"breeze"});
    EXPECT_EQ(theme(), "breeze");
}

TEST_F(DesktopIconThemeTest, isHicolorWhenNothingIsInstalled) {
    EXPECT_EQ(theme(), "hicolor");
    EXPECT_EQ(theme("KDE"), "hicolor");
    EXPECT_EQ(desktopIconTheme({}), "hicolor");
}

TEST_F(DesktopIconThemeTest, isReadBelowTheHomeFolderWithoutAFolderOfSettings) {
    install({"Mine"});
    setGTK("3.0", "Mine");
    for (const auto* settings : {"", "relative"}) {
        const ScopedEnvironment environment(
            {{"XDG_CURRENT_DESKTOP", {}}, {"XDG_CONFIG_HOME", settings}, {"HOME", home.path()}});
        EXPECT_EQ(desktopIconTheme({folder.path("system")}), "Mine") << settings;
    }
}

TEST_F(DesktopIconThemeTest, needsNoEnvironment) {
    install({"Adwaita"});
    const ScopedEnvironment environment({{"XDG_CURRENT_DESKTOP", {}}, {"XDG_CONFIG_HOME", {}}, {"HOME", {}}});
    EXPECT_EQ(desktopIconTheme({folder.path("system")}), "Adwaita");
}

TEST_F(DesktopIconThemeTest, livesWithSettingsThatAreNoFiles) {
    install({"Adwaita"});
    home.write(".config/gtk-3.0/settings.ini/file", "");
    home.write(".config/gtk-4.0", "a file");
    home.link(".config/kdeglobals", "kdeglobals");
    EXPECT_EQ(theme(), "Adwaita");
}

TEST_F(DesktopIconThemeTest, livesWithSettingsOfAnyBytes) {
    using namespace std::string_literals;
    install({"Adwaita"});
    for (const auto& content : {"\0\xFF\xFE"s, "[Settings\ngtk-icon-theme-name"s, "=\n[]\n"s}) {
        home.write(".config/kdeglobals", content);
        home.write(".config/gtk-3.0/settings.ini", content);
        EXPECT_EQ(theme(), "Adwaita");
    }
}

} // namespace
} // namespace quillmar
