#include "QuillmarQuickLook/Icons/CustomIcon.h"

#include "Platform/FileError.h"
#include "Platform/FileHandle.h"
#include "Platform/ResourceValues.h"
#include "QuillmarQuickLook/Icons/GvfsIcon.h"
#include "QuillmarQuickLook/Icons/KeyFile.h"
#include "QuillmarQuickLook/UserFolders.h"

#include <array>
#include <string_view>

namespace quillmar {
namespace {

struct UserFolder {
    std::string_view key; ///< in user-dirs.dirs
    const char* icon;
};

constexpr std::array userFolders{
    UserFolder{"XDG_DESKTOP_DIR", "user-desktop"},
    UserFolder{"XDG_DOCUMENTS_DIR", "folder-documents"},
    UserFolder{"XDG_DOWNLOAD_DIR", "folder-download"},
    UserFolder{"XDG_MUSIC_DIR", "folder-music"},
    UserFolder{"XDG_PICTURES_DIR", "folder-pictures"},
    UserFolder{"XDG_PUBLICSHARE_DIR", "folder-publicshare"},
    UserFolder{"XDG_TEMPLATES_DIR", "folder-templates"},
    UserFolder{"XDG_VIDEOS_DIR", "folder-videos"},
};

/// What \p url says of the icon, as a desktop entry.
std::optional<std::string> iconInEntry(const FileURL& url) {
    try {
        const KeyFile entry(readPrefix(url, KeyFile::maxBytes));
        const auto icon = entry.value("Desktop Entry", "Icon");
        if (!icon || icon->empty()) return std::nullopt;
        return std::string(*icon);
    } catch (const FileError&) {
        return std::nullopt;
    }
}

/// The folder that a line like XDG_MUSIC_DIR="$HOME/Music" names.
std::string userFolder(std::string_view value, const std::string& home) {
    if (value.size() < 2 || !value.starts_with('"') || !value.ends_with('"')) return {};
    value = value.substr(1, value.size() - 2);
    constexpr std::string_view homeVariable = "$HOME/";
    if (value.starts_with(homeVariable)) return home + '/' + std::string(value.substr(homeVariable.size()));
    return std::string(value);
}

std::optional<std::string> iconOfUserFolder(const FileURL& url) {
    const std::string home = UserFolders::home();
    if (home.empty()) return std::nullopt;
    const FileURL homeURL = FileURL::standardized(home, FileURL::root());
    if (url == homeURL) return "user-home";
    try {
        // Lines of a shell, but like those of a key file without groups.
        const FileURL file = FileURL::standardized(UserFolders::config() + "/user-dirs.dirs", FileURL::root());
        const KeyFile folders(readPrefix(file, KeyFile::maxBytes));
        for (const auto& [key, icon] : userFolders) {
            const std::string path = userFolder(folders.value("", key).value_or(std::string_view()), home);
            if (path.starts_with('/') && FileURL::standardized(path, homeURL) == url) return icon;
        }
    } catch (const FileError&) {
        return std::nullopt;
    }
    return std::nullopt;
}

} // namespace

std::optional<std::string> customIcon(const FileURL& url) {
    const auto values = resourceValues(url);
    if (!values) return std::nullopt;
    if (auto icon = iconInMetadata(url)) return icon;
    if (values->isDirectory) {
        if (auto icon = iconInEntry(url.appendingPathComponent(".directory"))) return icon;
        return iconOfUserFolder(url);
    }
    return url.pathExtension() == "desktop" ? iconInEntry(url) : std::nullopt;
}

} // namespace quillmar
