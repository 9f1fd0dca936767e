#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quillmar::Markdown {

/// A header between "---" and "---" or "..." at the top of a document.
struct FrontMatter {
    std::string html; ///< a table of keys and values, or the lines as they stand when they are no such list
    std::size_t length = 0; ///< bytes up to the start of the line after the closing one
};

/// None when \p text, whose lines have been normalised, does not begin with one.
std::optional<FrontMatter> frontMatter(std::string_view text);

} // namespace quillmar::Markdown
