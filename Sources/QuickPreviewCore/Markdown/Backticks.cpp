#include "Markdown/Backticks.h"

#include <algorithm>

namespace quillmar::Markdown {

void Backticks::reset(std::string_view text) {
    text_ = text;
    if (isRead_) positions_.clear();
    isRead_ = false;
}

std::size_t Backticks::runAt(std::size_t position, std::size_t limit) const {
    const std::size_t end = text_.find_first_not_of('`', position);
    return std::min(end, limit) - position;
}

std::optional<std::size_t> Backticks::closing(std::size_t from, std::size_t run, std::size_t limit) {
    if (!isRead_) {
        if (const auto position = search(from, run, limit)) return position;
        readAll();
    }
    const auto runs = positions_.find(run);
    if (runs == positions_.end()) return std::nullopt;
    const auto next = std::lower_bound(runs->second.begin(), runs->second.end(), from);
    if (next == runs->second.end() || *next + run > limit) return std::nullopt;
    return *next;
}

std::optional<std::size_t> Backticks::search(std::size_t from, std::size_t run, std::size_t limit) const {
    for (std::size_t i = text_.find('`', from); i < limit;) {
        const std::size_t length = runAt(i, text_.size());
        if (length == run && i + run <= limit) return i;
        i = text_.find('`', i + length);
    }
    return std::nullopt;
}

void Backticks::readAll() {
    isRead_ = true;
    for (std::size_t i = text_.find('`'); i != text_.npos;) {
        const std::size_t length = runAt(i, text_.size());
        positions_[length].push_back(i);
        i = text_.find('`', i + length);
    }
}

} // namespace quillmar::Markdown
