#include "Folder/DisplayOrder.h"

#include "Platform/Text.h"
#include "Platform/UTF8.h"

#include <algorithm>
#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace quillmar {
namespace {

/// What an item is sorted by; small, for there may be a million. The order of UTF-8's bytes is that of its code
/// points.
struct Key {
    std::int64_t size;
    std::string_view name; ///< in NFC
    std::size_t index;

    bool operator<(const Key& other) const {
        if (size != other.size) return size > other.size;
        const int order = name.compare(other.name);
        return order != 0 ? order < 0 : index < other.index;
    }
};

constexpr std::int64_t withoutSize = -1;

} // namespace

std::vector<FolderItem> inDisplayOrder(std::vector<std::optional<FolderItem>>& slots) {
    std::deque<std::string> normalized; // the names that are not ASCII; their views stay valid
    std::vector<Key> keys;
    keys.reserve(slots.size());
    for (std::size_t i = 0; i < slots.size(); ++i) {
        if (!slots[i]) continue;
        std::string_view name = slots[i]->name;
        if (!UTF8::isASCII(name)) name = normalized.emplace_back(canonicalForm(slots[i]->name));
        keys.push_back({.size = slots[i]->size.value_or(withoutSize), .name = name, .index = i});
    }
    std::ranges::sort(keys, std::less());

    std::vector<FolderItem> items;
    items.reserve(keys.size());
    for (const Key& key : keys) items.push_back(*std::move(slots[key.index]));
    return items;
}

} // namespace quillmar
