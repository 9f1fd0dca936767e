#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace quillmar::Markdown {

/// `text.find(byte, position)` for bytes that may stand close together: the first few are looked at one by one,
/// which costs less than a call of `std::memchr`.
inline std::size_t findNearby(std::string_view text, char byte, std::size_t position) {
    constexpr std::size_t few = 8;
    const std::size_t end = std::min(text.size(), position + few);
    for (; position < end; ++position)
        if (text[position] == byte) return position;
    return text.find(byte, position);
}

} // namespace quillmar::Markdown
