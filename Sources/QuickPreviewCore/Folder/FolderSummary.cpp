#include "Folder/FolderSummary.h"

#include <algorithm>

namespace quillmar {

std::vector<const FolderItem*> FolderSummary::visibleItems() const {
    std::vector<const FolderItem*> visible;
    visible.reserve(items.size());
    for (const FolderItem& item : items)
        if (!item.isHidden) visible.push_back(&item);
    return visible;
}

std::int64_t FolderSummary::hiddenCount() const { return std::ranges::count_if(items, &FolderItem::isHidden); }

std::vector<CompositionPart> FolderSummary::breakdown() const {
    Composition composition;
    for (const FolderItem& item : items) composition.add(item.kind, item.size.value_or(0));
    return composition.parts();
}

} // namespace quillmar
