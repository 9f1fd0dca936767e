#include "Markdown/TaskItem.h"

#include "Markdown/Lines.h"

namespace quillmar::Markdown {

std::optional<TaskItem> TaskItem::parse(std::string_view firstLine) {
    if (!firstLine.starts_with('[')) return std::nullopt;
    constexpr std::size_t boxWidth = 3;
    const std::string_view box = firstLine.substr(0, boxWidth);
    const bool checked = box == "[x]" || box == "[X]";
    if (!checked && box != "[ ]") return std::nullopt;
    const std::string_view rest = firstLine.substr(boxWidth);
    if (!rest.empty() && rest[0] != ' ') return std::nullopt;
    return TaskItem{.checked = checked, .text = trimmed(rest)};
}

} // namespace quillmar::Markdown
