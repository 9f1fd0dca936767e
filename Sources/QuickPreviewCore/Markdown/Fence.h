#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace quillmar::Markdown {

/// The opening line of a fenced code block.
struct Fence {
    char character = '`';      ///< '`' or '~'
    std::size_t length = 0;    ///< of the opening run, at least 3
    std::size_t indent = 0;    ///< spaces before it, 0 to 3
    std::string_view language; ///< the first word of the info string, empty without one; a view into the line

    static std::optional<Fence> parse(std::string_view line);

    /// A run at least as long as the opening one, and nothing else.
    bool isClosedBy(std::string_view line) const;
};

} // namespace quillmar::Markdown
