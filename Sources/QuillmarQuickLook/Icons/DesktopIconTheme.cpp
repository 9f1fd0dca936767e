#include "QuillmarQuickLook/Icons/DesktopIconTheme.h"

#include "Platform/FileError.h"
#include "Platform/FileHandle.h"
#include "QuillmarQuickLook/Icons/KeyFile.h"

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

/// What desktops come with, the one without a desktop first.
constexpr std::array<const char*, 3> knownThemes{"Adwaita", "breeze", "Papirus"};

std::string variable(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : std::string();
}

std::string settingsFolder() {
    if (const std::string folder = variable("XDG_CONFIG_HOME"); folder.starts_with('/')) return folder;
    const std::string home = variable("HOME");
    return home.starts_with('/') ? home + "/.config" : std::string();
}

bool isInstalled(const std::string& theme, const std::vector<std::string>& folders) {
    if (theme.empty() || theme.find('/') != theme.npos) return false;
    return std::ranges::any_of(folders, [&](const std::string& folder) {
        return ::access((folder + '/' + theme + "/index.theme").c_str(), R_OK) == 0;
    });
}

/// Empty when the file says nothing.
std::string read(const std::string& folder, const Setting& setting) {
    try {
        const FileURL url = FileURL::standardized(folder + setting.file, FileURL::root());
        const KeyFile file(readPrefix(url, KeyFile::maxBytes));
        return std::string(file.value(setting.group, setting.key).value_or(std::string_view()));
    } catch (const FileError&) {
        return {};
    }
}

} // namespace

std::string desktopIconTheme(const std::vector<std::string>& folders) {
    const bool isKDE = variable("XDG_CURRENT_DESKTOP").find("KDE") != std::string::npos;
    const std::string settings = settingsFolder();
    if (!settings.empty()) {
        std::vector<Setting> order(gtk.begin(), gtk.end());
        order.insert(isKDE ? order.begin() : order.end(), kde);
        for (const Setting& setting : order)
            if (std::string theme = read(settings, setting); isInstalled(theme, folders)) return theme;
    }
    if (isKDE && isInstalled("breeze", folders)) return "breeze";
    for (const char* theme : knownThemes)
        if (isInstalled(theme, folders)) return theme;
    return "hicolor";
}

} // namespace quillmar
