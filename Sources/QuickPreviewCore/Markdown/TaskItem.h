#pragma once

#include <optional>
#include <string_view>

namespace quillmar::Markdown {

/// A list item with a checkbox: "[ ] text" or "[x] text".
struct TaskItem {
    bool checked = false;
    std::string_view text; ///< what follows the box, trimmed

    /// \p firstLine is the item's.
    static std::optional<TaskItem> parse(std::string_view firstLine);
};

} // namespace quillmar::Markdown
