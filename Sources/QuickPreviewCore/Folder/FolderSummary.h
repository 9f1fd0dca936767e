#pragma once

#include "Folder/FolderItem.h"
#include "Support/Composition.h"

#include <cstdint>
#include <vector>

namespace quillmar {

/// The children of a folder and what they hold.
struct FolderSummary {
    FileURL url;
    std::vector<FolderItem> items = {}; ///< all that could be asked, hidden ones too, the largest first
    std::int64_t totalSize = 0;         ///< bytes in `items`, stopping at the limit of 64 bits
    bool isComplete = true;             ///< the size of every item is
    std::optional<Timestamp> modified = {};

    /// Those that are not hidden, in the same order. They are parts of this object.
    std::vector<const FolderItem*> visibleItems() const;
    std::int64_t hiddenCount() const;
    /// What the items of each kind hold, hidden ones counted.
    std::vector<CompositionPart> breakdown() const;
};

} // namespace quillmar
