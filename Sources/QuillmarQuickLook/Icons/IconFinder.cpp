#include "QuillmarQuickLook/Icons/IconFinder.h"

#include "Platform/FileError.h"
#include "Platform/FileHandle.h"
#include "QuillmarQuickLook/Icons/KeyFile.h"
#include "QuillmarQuickLook/Icons/RealPath.h"
#include "QuillmarQuickLook/UserFolders.h"

#include <algorithm>
#include <cstdlib>
#include <sys/stat.h>
#include <unistd.h>

namespace quillmar {
namespace {

/// Which every theme inherits, whether it says so or not.
constexpr const char* lastTheme = "hicolor";

/// A folder of icons without any theme.
constexpr const char* pixmaps = "/usr/share/pixmaps";

/// As the base folders' rules have it where a variable says nothing.
constexpr const char* defaultDataFolders = "/usr/local/share:/usr/share";

/// A name that is a single component, so that no theme and no application can lead elsewhere.
bool isPlainName(const std::string& name) {
    return !name.empty() && name != "." && name != ".." && name.find('/') == name.npos;
}

std::string childOf(const std::string& folder, std::string_view name) {
    std::string path = folder;
    return path.append("/").append(name);
}

bool isReadableFile(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) && ::access(path.c_str(), R_OK) == 0;
}

void sortByFitness(std::vector<IconDirectory>& directories) {
    const auto isBetter = [](const IconDirectory& a, const IconDirectory& b) {
        const bool aIsSmaller = a.isSmallerThan(IconFinder::wantedSize);
        const bool bIsSmaller = b.isSmallerThan(IconFinder::wantedSize);
        if (aIsSmaller != bIsSmaller) return bIsSmaller;
        return a.distance(IconFinder::wantedSize) < b.distance(IconFinder::wantedSize);
    };
    std::ranges::stable_sort(directories, isBetter);
}

} // namespace

std::vector<std::string> IconFinder::standardFolders() {
    std::vector<std::string> folders;
    const std::string home = UserFolders::home();
    const std::string data = UserFolders::data();
    if (!data.empty()) folders.push_back(data + "/icons");
    if (!home.empty()) folders.push_back(home + "/.icons");
    const char* variable = std::getenv("XDG_DATA_DIRS");
    std::string_view rest = variable != nullptr && variable[0] != '\0' ? variable : defaultDataFolders;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(':'), rest.size());
        if (rest.starts_with('/')) folders.push_back(std::string(rest.substr(0, end)) + "/icons");
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    folders.emplace_back(pixmaps);
    return folders;
}

IconFinder::IconFinder(const std::string& theme, const std::vector<std::string>& folders) {
    for (const std::string& folder : folders) {
        std::string path = realPath(folder);
        if (!path.empty() && std::ranges::find(folders_, path) == folders_.end())
            folders_.push_back(std::move(path));
    }
    loadWithParents(theme);
    load(lastTheme);
}

/// A theme's parents follow it with all that they inherit, each theme once.
void IconFinder::loadWithParents(const std::string& theme) {
    std::vector<std::string> pending{theme}; // the next one last
    std::vector<std::string> visited;
    while (!pending.empty() && visited.size() < maxThemes) {
        const std::string name = std::move(pending.back());
        pending.pop_back();
        if (name == lastTheme || std::ranges::find(visited, name) != visited.end()) continue;
        visited.push_back(name);
        const auto loaded = load(name);
        if (!loaded) continue;
        const std::size_t parents = std::min(loaded->inherits.size(), maxThemes);
        for (std::size_t i = parents; i-- > 0;) pending.push_back(loaded->inherits[i]);
    }
}

/// Adds the theme to those that are searched.
std::optional<IconTheme> IconFinder::load(const std::string& name) {
    if (!isPlainName(name)) return std::nullopt;
    Theme theme;
    std::optional<IconTheme> index;
    for (const std::string& folder : folders_) {
        std::string root = childOf(folder, name);
        if (::access(root.c_str(), X_OK) != 0) continue;
        if (!index) {
            try {
                const auto url = FileURL::standardized(root + "/index.theme", FileURL::root());
                index = IconTheme::parse(readPrefix(url, KeyFile::maxBytes));
            } catch (const FileError&) {
                index = std::nullopt; // it may lie in another of the folders
            }
        }
        theme.roots.push_back(std::move(root));
    }
    if (!index) return std::nullopt;
    theme.directories = index->directories;
    sortByFitness(theme.directories);
    themes_.push_back(std::move(theme));
    return index;
}

std::optional<std::string> IconFinder::find(const std::vector<std::string>& names) const {
    for (const Theme& theme : themes_)
        for (const std::string& name : names)
            if (auto file = findIn(theme, name)) return file;
    for (const std::string& name : names)
        if (auto file = findWithoutTheme(name)) return file;
    return std::nullopt;
}

std::optional<std::string> IconFinder::findIn(const Theme& theme, const std::string& name) const {
    if (!isPlainName(name)) return std::nullopt;
    for (const IconDirectory& directory : theme.directories)
        for (const std::string& root : theme.roots)
            if (auto file = fileAt(childOf(childOf(root, directory.path), name))) return file;
    return std::nullopt;
}

std::optional<std::string> IconFinder::findWithoutTheme(const std::string& name) const {
    if (!isPlainName(name)) return std::nullopt;
    for (const std::string& folder : folders_)
        if (auto file = fileAt(childOf(folder, name))) return file;
    return std::nullopt;
}

/// The file at \p stem with one of the extensions of pictures that can be rendered.
std::optional<std::string> IconFinder::fileAt(const std::string& stem) const {
    for (const char* extension : {".png", ".svg"}) {
        std::string path = stem + extension;
        if (isReadableFile(path) && isInside(path)) return path;
    }
    return std::nullopt;
}

/// Themes are full of links, but none has a reason to lead out of the icons.
bool IconFinder::isInside(const std::string& path) const {
    const std::string target = realPath(path);
    return std::ranges::any_of(folders_,
                               [&](const std::string& folder) { return target.starts_with(folder + '/'); });
}

} // namespace quillmar
