#pragma once

#include "Folder/FolderSummary.h"
#include "Support/SaturatingSum.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quillmar {

/// "/home/me/Garden": nothing is there.
inline FileURL gardenURL() { return FileURL::standardized("/home/me/Garden", FileURL::root()); }

/// A child of that folder, measured as far as \p size is one.
inline FolderItem folderItem(std::string name, std::optional<std::int64_t> size,
                             FileKind kind = FileKind::other, std::optional<std::string_view> type = {}) {
    FolderItem item{.url = gardenURL().appendingPathComponent(name)};
    item.isHidden = name.starts_with('.');
    item.name = std::move(name);
    item.size = size;
    item.isSizeComplete = size.has_value();
    item.typeIdentifier = type;
    item.kind = kind;
    return item;
}

inline FolderItem childFolder(std::string name, std::optional<std::int64_t> size) {
    FolderItem item = folderItem(std::move(name), size, FileKind::folders, "public.folder");
    item.isFolder = true;
    return item;
}

/// The same item, measured only in part.
inline FolderItem partly(FolderItem item) {
    item.isSizeComplete = false;
    return item;
}

inline FolderItem modified(Timestamp date, FolderItem item) {
    item.modified = date;
    return item;
}

/// That folder with these children, the largest first.
inline FolderSummary folderSummary(std::vector<FolderItem> items) {
    FolderSummary summary{.url = gardenURL(), .items = std::move(items)};
    for (const FolderItem& item : summary.items) {
        summary.totalSize = saturatingSum(summary.totalSize, item.size.value_or(0));
        summary.isComplete = summary.isComplete && item.isSizeComplete;
    }
    return summary;
}

} // namespace quillmar
