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

/// Puts the items where \p keys want them, by exchanging them: a second list of a million would take its room
/// again.
void arrange(std::vector<FolderItem>& items, std::vector<Key>& keys) {
    for (std::size_t i = 0; i < keys.size(); ++i) {
        std::size_t place = i;
        while (keys[place].index != i) {
            const std::size_t next = keys[place].index;
            std::swap(items[place], items[next]);
            keys[place].index = place;
            place = next;
        }
        keys[place].index = place;
    }
}

} // namespace

void sortForDisplay(std::vector<FolderItem>& items) {
    std::deque<std::string> normalized; // the names that are not ASCII; their views stay valid
    std::vector<Key> keys;
    keys.reserve(items.size());
    for (std::size_t i = 0; i < items.size(); ++i) {
        std::string_view name = items[i].name;
        if (!UTF8::isASCII(name)) name = normalized.emplace_back(canonicalForm(items[i].name));
        keys.push_back({.size = items[i].size.value_or(withoutSize), .name = name, .index = i});
    }
    std::ranges::sort(keys, std::less());
    arrange(items, keys);
}

} // namespace quillmar
