#pragma once

#include "Platform/Data.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

namespace quillmar {

/// True when every element of \p html, markup of our own, ends where it should: brackets in text and values are
/// escaped, names are lower-case letters and digits, and elements that hold nothing have no end.
inline bool isBalanced(DataView html) {
    constexpr std::array<DataView, 6> empty{"br", "col", "hr", "img", "input", "meta"};
    std::vector<DataView> open;
    for (std::size_t at = 0; (at = html.find('<', at)) != html.npos;) {
        const std::size_t end = html.find('>', at);
        if (end == html.npos) return false;
        DataView tag = html.substr(at + 1, end - at - 1);
        at = end;
        if (tag.starts_with('!')) continue;
        const bool isEnd = tag.starts_with('/');
        if (isEnd) tag.remove_prefix(1);
        const DataView name = tag.substr(0, tag.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789"));
        if (name.empty()) return false;
        if (isEnd) {
            if (open.empty() || open.back() != name) return false;
            open.pop_back();
        } else if (std::ranges::find(empty, name) == empty.end()) {
            open.push_back(name);
        }
    }
    return open.empty();
}

} // namespace quillmar
