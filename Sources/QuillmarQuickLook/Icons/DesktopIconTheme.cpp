#include "QuillmarQuickLook/Icons/DesktopIconTheme.h"

#include "Platform/FileError.h"
#include "Platform/FileHandle.h"
#include "QuillmarQuickLook/Icons/DconfDatabase.h"
#include "QuillmarQuickLook/Icons/KeyFile.h"
#include "QuillmarQuickLook/UserFolders.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>
#include <string_view>
#include <unistd.h>

namespace quillmar {
namespace {

struct Setting {
    const char* file; ///< below the folder of settings
    const char* group;
    const char* key;
};

constexpr Setting kde{"/kdeglobals", "Icons", "Theme"};
constexpr std::array gtk{
    Setting{"/gtk-4.0/settings.ini", "Settings", "gtk-icon-theme-name"},
    Setting{"/gtk-3.0/settings.ini", "Settings", "gtk-icon-theme-name"},
};

/// A desktop that keeps its settings in dconf, and under which key. One without a name of its own is like
/// GNOME.
struct Relative {
    std::string_view desktop; ///< in XDG_CURRENT_DESKTOP
    std::string_view key;
};
constexpr std::array relatives{
    Relative{"Cinnamon", "/org/cinnamon/desktop/interface/icon-theme"},
    Relative{"MATE", "/org/mate/desktop/interface/icon-theme"},
    Relative{"", "/org/gnome/desktop/interface/icon-theme"},
};

/// What desktops come with, the one without a desktop first.
constexpr std::array<const char*, 3> knownThemes{"Adwaita", "breeze", "Papirus"};

std::string variable(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : std::string();
}

bool isInstalled(const std::string& theme, const std::vector<std::string>& folders) {
    if (theme.empty() || theme.find('/') != theme.npos) return false;
    return std::ranges::any_of(folders, [&](const std::string& folder) {
        return ::access((folder + '/' + theme + "/index.theme").c_str(), R_OK) == 0;
    });
}

/// Empty when there is no such file.
Data contentOf(const std::string& path, std::size_t maxBytes) {
    try {
        return readPrefix(FileURL::standardized(path, FileURL::root()), maxBytes);
    } catch (const FileError&) {
        return {};
    }
}

/// Empty when the file says nothing.
std::string read(const std::string& folder, const Setting& setting) {
    const KeyFile file(contentOf(folder + setting.file, KeyFile::maxBytes));
    return std::string(file.value(setting.group, setting.key).value_or(std::string_view()));
}

std::string readDconf(const std::string& folder, std::string_view desktop) {
    const Data database = contentOf(folder + "/dconf/user", DconfDatabase::maxBytes);
    for (const Relative& relative : relatives)
        if (desktop.find(relative.desktop) != desktop.npos)
            return DconfDatabase::text(database, relative.key).value_or(std::string());
    return {};
}

} // namespace

std::string desktopIconTheme(const std::vector<std::string>& folders) {
    const std::string desktop = variable("XDG_CURRENT_DESKTOP");
    const bool isKDE = desktop.find("KDE") != std::string::npos;
    const std::string settings = UserFolders::config();
    if (!settings.empty()) {
        std::vector<std::string> themes{readDconf(settings, desktop)};
        for (const Setting& setting : gtk) themes.push_back(read(settings, setting));
        themes.insert(isKDE ? themes.begin() : themes.end(), read(settings, kde));
        for (const std::string& theme : themes)
            if (isInstalled(theme, folders)) return theme;
    }
    if (isKDE && isInstalled("breeze", folders)) return "breeze";
    for (const char* theme : knownThemes)
        if (isInstalled(theme, folders)) return theme;
    return "hicolor";
}

} // namespace quillmar
