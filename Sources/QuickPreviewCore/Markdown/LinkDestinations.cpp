#include "Markdown/LinkDestinations.h"

#include "Markdown/TextBoundaries.h"
#include "Platform/UTF8.h"

#include <algorithm>

namespace quillmar::Markdown {
namespace {

/// Bytes of a run of white space from which on its end is remembered.
constexpr std::size_t longRun = 16;

/// How many of \p size elements stand before the one that is sought (`std::lower_bound`). It is looked for
/// first near \p guess, the last answer.
template <typename Predicate>
std::size_t countBefore(std::size_t guess, std::size_t size, Predicate isBefore) {
    constexpr std::size_t steps = 8;
    std::size_t first = guess > 0 && isBefore(guess - 1) ? guess : 0;
    for (std::size_t i = 0; i < steps && first < size; ++i, ++first)
        if (!isBefore(first)) return first;
    std::size_t last = size;
    while (first < last) {
        const std::size_t middle = first + (last - first) / 2;
        if (isBefore(middle)) {
            first = middle + 1;
        } else {
            last = middle;
        }
    }
    return first;
}

} // namespace

void LinkDestinations::reset(std::string_view text) {
    text_ = text;
    angles_.reset();
    doubleQuotes_.reset();
    singleQuotes_.reset();
    parentheses_.reset();
    if (!longWhiteSpace_.empty()) longWhiteSpace_.clear();
    isPaired_ = false;
    hasFailed_ = false;
}

std::size_t LinkDestinations::Positions::next(std::string_view text, std::size_t from) {
    if (!isRead_) {
        isRead_ = true;
        positions_.clear();
        last_ = 0;
        for (std::size_t i = text.find(character_); i != text.npos; i = text.find(character_, i + 1))
            positions_.push_back(i);
    }
    last_ = countBefore(last_, positions_.size(), [&](std::size_t i) { return positions_[i] < from; });
    return last_ == positions_.size() ? text.npos : positions_[last_];
}

const LinkTarget* LinkDestinations::parse(std::size_t open, std::size_t limit) {
    const std::size_t start = behindWhiteSpace(open + 1);
    if (start >= limit) return nullptr;
    const bool isComplete = readTail(readDestination(start, start == open + 1, limit), limit);
    if (!isComplete) hasFailed_ = true;
    return isComplete ? &target_ : nullptr;
}

/// Completes the target by what may stand behind a destination, from \p start on: white space, a title, white
/// space, and the ")" that must.
bool LinkDestinations::readTail(std::size_t start, std::size_t limit) {
    target_.title.reset();
    std::size_t position = behindWhiteSpace(start);
    const bool mayHaveTitle = position > start && position < limit && text_[position] != ')';
    if (mayHaveTitle) {
        const auto found = title(position, limit);
        if (!found) return false;
        target_.title = found->text;
        position = behindWhiteSpace(found->end);
    }
    if (position >= limit || text_[position] != ')') return false;
    target_.end = position + 1;
    return true;
}

/// Completes the target by the destination that begins at \p start; returns where it ends.
std::size_t LinkDestinations::readDestination(std::size_t start, bool isBehindParenthesis, std::size_t limit) {
    if (text_[start] == '<') {
        const std::size_t close = angles_.next(text_, start);
        if (close < limit) {
            target_.url = text_.substr(start + 1, close - start - 1);
            return close + 1;
        }
    }
    if (hasFailed_ && !isPaired_) pairParentheses();
    std::size_t end = 0;
    if (isPaired_ && isBehindParenthesis) {
        lastEnd_ = countBefore(lastEnd_, endBehind_.size(),
                               [&](std::size_t i) { return endBehind_[i].first < start - 1; });
        end = endBehind_[lastEnd_].second;
    } else {
        end = endOfPlainDestination(start);
    }
    end = std::min(end, limit);
    target_.url = text_.substr(start, end - start);
    return end;
}

/// The first white space, or the ")" that closes what was not opened inside; the text's end without either.
std::size_t LinkDestinations::endOfPlainDestination(std::size_t start) const {
    std::size_t depth = 0;
    std::size_t position = start;
    while (position < text_.size()) {
        const char c = text_[position];
        if (c == '\\') {
            if (++position == text_.size()) break;
            position += UTF8::codePointAt(text_, position).length;
            continue;
        }
        if (c == '(') ++depth;
        if (c == ')' && depth-- == 0) return position;
        if (whiteSpaceLengthAt(text_, position) > 0) return position;
        ++position;
    }
    return text_.size();
}

/// The same for every "(" of the text, in one pass.
void LinkDestinations::pairParentheses() {
    isPaired_ = true;
    endBehind_.clear();
    lastEnd_ = 0;
    std::vector<std::uint32_t> open; // indices of those without an end
    const auto endAt = [&](std::uint32_t index, std::size_t position) {
        endBehind_[index].second = static_cast<std::uint32_t>(position);
    };
    const auto endAll = [&](std::size_t position) {
        for (const std::uint32_t index : open) endAt(index, position);
        open.clear();
    };
    std::size_t position = 0;
    while (position < text_.size()) {
        const char c = text_[position];
        if (c == '\\') {
            if (++position == text_.size()) break;
            position += UTF8::codePointAt(text_, position).length;
            continue;
        }
        if (c == '(') {
            open.push_back(static_cast<std::uint32_t>(endBehind_.size()));
            endBehind_.emplace_back(static_cast<std::uint32_t>(position), 0);
        } else if (c == ')') {
            if (!open.empty()) {
                endAt(open.back(), position);
                open.pop_back();
            }
        } else if (whiteSpaceLengthAt(text_, position) > 0) {
            endAll(position);
        }
        ++position;
    }
    endAll(text_.size());
}

/// A title ends at the first character that can close it; none when that does not come.
std::optional<LinkDestinations::Piece> LinkDestinations::title(std::size_t start, std::size_t limit) {
    std::size_t close = 0;
    switch (text_[start]) {
    case '"': close = doubleQuotes_.next(text_, start + 1); break;
    case '\'': close = singleQuotes_.next(text_, start + 1); break;
    case '(': close = parentheses_.next(text_, start + 1); break;
    default: return std::nullopt;
    }
    if (close >= limit) return std::nullopt;
    return Piece{.text = text_.substr(start + 1, close - start - 1), .end = close + 1};
}

std::size_t LinkDestinations::behindWhiteSpace(std::size_t position) {
    if (!longWhiteSpace_.empty()) {
        const auto known = longWhiteSpace_.find(position);
        if (known != longWhiteSpace_.end()) return known->second;
    }
    const std::size_t end = endOfWhiteSpace(text_, position);
    if (end - position >= longRun) longWhiteSpace_[position] = end;
    return end;
}

} // namespace quillmar::Markdown
