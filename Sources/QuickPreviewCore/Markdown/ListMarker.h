#pragma once

#include "Markdown/Line.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace quillmar::Markdown {

/// What opens a list item: "- text" or "1. text".
struct ListMarker {
    bool ordered = false;
    char delimiter = '-';          ///< the bullet (- * +), or what follows the number (. or ))
    std::uint32_t start = 1;       ///< the number; at most nine digits
    std::size_t indent = 0;        ///< spaces before the marker, 0 to 3
    std::size_t contentIndent = 0; ///< column of the content; at most 17
    std::string_view content;      ///< the rest of the line; a view into it

    static std::optional<ListMarker> parse(const Line& line);
};

} // namespace quillmar::Markdown
