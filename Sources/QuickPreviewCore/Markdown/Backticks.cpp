#include "Markdown/Backticks.h"

#include <algorithm>

namespace quillmar::Markdown {

void Backticks::reset(std::string_view text) {
    text_ = text;
    if (!known_.empty()) known_.clear();
    readToEndFrom_ = text.size();
}

std::size_t Backticks::runAt(std::size_t position, std::size_t limit) const {
    const std::size_t end = text_.find_first_not_of('`', position);
    return std::min(end, limit) - position;
}

std::optional<std::size_t> Backticks::closing(std::size_t from, std::size_t run, std::size_t limit) {
    const auto known = known_.find(run);
    std::size_t position = std::string_view::npos;
    if (known != known_.end() && known->second.from <= from && from <= known->second.position) {
        position = known->second.position;
    } else if (known != known_.end() || from < readToEndFrom_) {
        position = find(from, run);
    }
    if (position == std::string_view::npos) return std::nullopt;
    if (position + run <= limit) return position;
    // It ends another text than this link's: that may be asked of every run in the link's text.
    known_[run] = {.from = from, .position = position};
    return std::nullopt;
}

std::size_t Backticks::find(std::size_t from, std::size_t run) {
    for (std::size_t i = text_.find('`', from); i != text_.npos;) {
        const std::size_t length = runAt(i, text_.size());
        if (length == run) return i;
        i = text_.find('`', i + length);
    }
    // None: note for every length where its last run ends.
    known_[run] = {.from = from, .position = text_.npos};
    readToEndFrom_ = std::min(readToEndFrom_, from);
    for (std::size_t i = text_.find('`', from); i != text_.npos;) {
        const std::size_t length = runAt(i, text_.size());
        known_[length] = {.from = i + length, .position = text_.npos};
        i = text_.find('`', i + length);
    }
    return text_.npos;
}

} // namespace quillmar::Markdown
