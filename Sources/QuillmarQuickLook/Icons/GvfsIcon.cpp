#include "QuillmarQuickLook/Icons/GvfsIcon.h"

#include "Platform/Data.h"
#include "Platform/FileError.h"
#include "Platform/FileHandle.h"
#include "QuillmarQuickLook/Icons/FileMetadata.h"
#include "QuillmarQuickLook/Icons/RealPath.h"
#include "QuillmarQuickLook/UserFolders.h"
#include "Support/PercentEncoding.h"

#include <cstddef>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace quillmar {
namespace {

// gvfs' attributes "metadata::custom-icon" and "metadata::custom-icon-name".
constexpr std::string_view pictureKey = "custom-icon";
constexpr std::string_view nameKey = "custom-icon-name";

std::string metadataFolder() {
    const std::string data = UserFolders::data();
    return data.empty() ? data : data + "/gvfs-metadata";
}

/// Where gvfs keeps what it knows of an item.
struct Place {
    const char* tree;
    std::string path; ///< in the tree
};

bool isBelow(std::string_view path, std::string_view folder) {
    if (folder.empty() || !path.starts_with(folder)) return false;
    return path.size() == folder.size() || folder.ends_with('/') || path[folder.size()] == '/';
}

/// The item is named through no link, but may be one itself.
std::optional<Place> placeOf(const FileURL& url) {
    std::string path = "/";
    if (url != FileURL::root()) {
        path = realPath(url.deletingLastPathComponent().path());
        if (path.empty()) return std::nullopt;
        if (!path.ends_with('/')) path += '/';
        path.append(url.path(), url.path().rfind('/') + 1);
    }
    struct stat item {};
    if (::lstat(path.c_str(), &item) != 0) return std::nullopt;
    const std::string home = realPath(UserFolders::home());
    struct stat homeItem {};
    if (!isBelow(path, home) || ::stat(home.c_str(), &homeItem) != 0 || homeItem.st_dev != item.st_dev)
        return Place{.tree = "root", .path = std::move(path)};
    path.erase(0, home.size());
    return Place{.tree = "home", .path = path.empty() ? "/" : std::move(path)};
}

/// Empty when the file cannot be read.
Data contents(const std::string& path, std::size_t maxBytes) {
    try {
        return readPrefix(FileURL::standardized(path, FileURL::root()), maxBytes);
    } catch (const FileError&) {
        return {};
    }
}

struct MetadataFiles {
    Data tree;
    Data journal;

    /// True when no item has an icon.
    bool areWithoutIcons() const {
        return tree.find(pictureKey) == tree.npos && journal.find(pictureKey) == journal.npos;
    }
};

MetadataFiles read(const std::string& folder, const char* name) {
    const std::string path = folder + '/' + name;
    // gvfs replaces a tree and its journal now and then. A tree whose journal is gone is read once more.
    constexpr int maxAttempts = 2;
    MetadataFiles files;
    for (int attempt = 0; attempt < maxAttempts && files.journal.empty(); ++attempt) {
        files.tree = contents(path, FileMetadata::maxTreeBytes);
        const auto journal = FileMetadata::journalName(files.tree, name);
        if (!journal) break;
        // One byte more tells a journal that is too long.
        files.journal = contents(folder + '/' + *journal, FileMetadata::maxJournalBytes + 1);
    }
    return files;
}

/// What \p reference to a picture holds of a path: all of a local file's URI but the scheme, or the path from
/// the item on, which file managers write for what lies below it.
std::optional<std::string> pathIn(std::string_view reference) {
    constexpr std::string_view local = "file://";
    const bool isURI = reference.starts_with(local);
    if (isURI) reference.remove_prefix(local.size());
    // Another host, or another scheme.
    if (isURI ? !reference.starts_with('/') : reference.find("://") != reference.npos) return std::nullopt;
    auto path = removingPercentEncoding(reference);
    if (!path || path->empty() || path->find('\0') != path->npos) return std::nullopt;
    return path;
}

/// The picture that \p reference names; none when it cannot be read.
std::optional<std::string> picture(std::string_view reference, const FileURL& url) {
    const auto path = pathIn(reference);
    if (!path) return std::nullopt;
    std::string absolute = FileURL::standardized(*path, url).path();
    if (::access(absolute.c_str(), R_OK) != 0) return std::nullopt;
    return absolute;
}

} // namespace

std::optional<std::string> iconInMetadata(const FileURL& url) {
    const std::string folder = metadataFolder();
    if (folder.empty() || ::access(folder.c_str(), X_OK) != 0) return std::nullopt;
    const auto place = placeOf(url);
    if (!place) return std::nullopt;
    const MetadataFiles files = read(folder, place->tree);
    if (files.areWithoutIcons()) return std::nullopt;
    if (const auto reference = FileMetadata::text(files.tree, files.journal, place->path, pictureKey))
        if (auto path = picture(*reference, url)) return path;
    auto name = FileMetadata::text(files.tree, files.journal, place->path, nameKey);
    if (!name || name->empty() || name->find('/') != name->npos) return std::nullopt;
    return name;
}

} // namespace quillmar
