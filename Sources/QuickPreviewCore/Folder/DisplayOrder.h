#pragma once

#include "Folder/FolderItem.h"

#include <vector>

namespace quillmar {

/// Sorts \p items the largest first, those without a size last; equal ones by name, in the order of the code
/// points of its NFC form ("B" before "a"), the same in every locale. Stable.
void sortForDisplay(std::vector<FolderItem>& items);

} // namespace quillmar
