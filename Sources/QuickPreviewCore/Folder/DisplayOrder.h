#pragma once

#include "Folder/FolderItem.h"

#include <optional>
#include <vector>

namespace quillmar {

/// The items in \p slots, the largest first, those without a size last; equal ones by name, in the order of the
/// code points of its NFC form ("B" before "a"), the same in every locale. Stable. What was in the slots has
/// been moved: a folder may have a million items.
std::vector<FolderItem> inDisplayOrder(std::vector<std::optional<FolderItem>>& slots);

} // namespace quillmar
