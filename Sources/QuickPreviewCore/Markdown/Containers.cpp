#include "Markdown/Containers.h"

#include "Markdown/BlockQuote.h"
#include "Markdown/Interruption.h"
#include "Markdown/Lines.h"

#include <algorithm>

namespace quillmar::Markdown {
namespace {

/// Spaces by which a marker of another kind must be indented to nest in an item rather than to end the list.
constexpr std::size_t nestingIndent = 2;

} // namespace

void Containers::Entry::setItem(const ListMarker& marker) {
    itemHasText = !isBlank(marker.content);
    isOrdered = marker.ordered;
    delimiter = marker.delimiter;
    indent = static_cast<std::uint8_t>(marker.indent);
    contentIndent = static_cast<std::uint8_t>(marker.contentIndent);
}

const Containers::Arrival& Containers::enter(Line& line, ThematicBreaks& breaks) {
    arrival_ = {};
    std::size_t depth = 0;
    while (depth < entries_.size() && !line.isBlank()) {
        const bool isEntered =
            entries_[depth].isList ? enterList(depth, line, breaks) : enterQuotes(depth, line, breaks);
        if (!isEntered) return arrival_;
    }
    if (line.isBlank()) {
        enterBlank(depth);
    } else {
        noteText();
    }
    return arrival_;
}

bool Containers::enterQuotes(std::size_t& depth, Line& line, ThematicBreaks& breaks) {
    const std::size_t quotes = entries_[depth].number;
    std::size_t entered = 0;
    while (entered < quotes && beginsQuote(line)) {
        line = stripQuote(line);
        ++entered;
    }
    if (entered < quotes) {
        if (line.isBlank()) {
            close(depth, entered);
            blankFrom_ = depth + 1;
            return false;
        }
        const bool innermostSawBlank = blankFrom_ == depth + 1;
        const bool doesInterrupt = interrupts(line, breaks);
        if (doesInterrupt || innermostSawBlank) {
            refuse(depth, doesInterrupt ? entered : quotes - 1);
            return false;
        }
    }
    ++depth;
    return true;
}

bool Containers::enterList(std::size_t& depth, Line& line, ThematicBreaks& breaks) {
    Entry& list = entries_[depth];
    const bool isAfterBlank = blankFrom_ <= depth;
    if (line.indentation() >= list.contentIndent) {
        const bool itemHasText = list.itemHasText || depth + 1 < entries_.size();
        if (isAfterBlank && itemHasText) blocks_[list.number].isLoose = true;
        line.dropIndentation(list.contentIndent);
        ++depth;
        return true;
    }

    const auto marker = ListMarker::parse(line);
    if (marker && !breaks.isThematicBreak(line)) {
        const bool isNoDeeper = marker->indent <= list.indent;
        if (isNoDeeper && list.isContinuedBy(*marker)) {
            beginItem(depth, *marker, line);
            return false;
        }
        if (isNoDeeper || marker->indent < nestingIndent) {
            refuse(depth, 0);
            return false;
        }
        line.dropIndentation(line.indentation());
        ++depth;
        return true;
    }

    if (isAfterBlank || interrupts(line, breaks)) {
        refuse(depth, 0);
        return false;
    }
    line = Line(trimmed(line.text()));
    ++depth;
    const bool isText = !line.isBlank() && !ListMarker::parse(line) && !interrupts(line, breaks);
    if (isText) depth = firstThatSawBlank(depth);
    return true;
}

void Containers::enterBlank(std::size_t depth) {
    const auto quotes = std::lower_bound(quoteEntries_.begin(), quoteEntries_.end(), depth);
    if (quotes != quoteEntries_.end()) close(*quotes, 0);
    blankFrom_ = depth;
}

void Containers::beginItem(std::size_t depth, const ListMarker& marker, Line& line) {
    Entry& list = entries_[depth];
    if (blankFrom_ <= depth) blocks_[list.number].isLoose = true;
    if (depth + 1 < entries_.size()) close(depth + 1, 0);
    blankFrom_ = none;
    list.setItem(marker);
    line = Line(marker.content);
    arrival_.beginsItem = true;
}

void Containers::refuse(std::size_t depth, std::size_t keptQuotes) {
    close(depth, keptQuotes);
    noteText();
}

/// Closes the entries from \p depth on, but for \p keptQuotes of the quotes there.
void Containers::close(std::size_t depth, std::size_t keptQuotes) {
    std::size_t closed = 0;
    for (std::size_t i = depth; i < entries_.size(); ++i) closed += entries_[i].isList ? 1 : entries_[i].number;
    closed -= keptQuotes;
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(depth + (keptQuotes > 0 ? 1 : 0)),
                   entries_.end());
    if (keptQuotes > 0) entries_.back().number = keptQuotes;
    while (!quoteEntries_.empty() && quoteEntries_.back() >= entries_.size()) quoteEntries_.pop_back();
    arrival_.closed = closed;
}

/// The first entry from \p depth on that a line of plain text does not enter lazily.
std::size_t Containers::firstThatSawBlank(std::size_t depth) const {
    if (blankFrom_ > entries_.size()) return entries_.size();
    const bool quoteDid = blankFrom_ > depth && !entries_[blankFrom_ - 1].isList;
    if (quoteDid) return blankFrom_ - 1;
    return std::max(depth, blankFrom_);
}

/// A line that is not blank has arrived at the innermost container.
void Containers::noteText() {
    blankFrom_ = none;
    if (isInItem()) entries_.back().itemHasText = true;
}

void Containers::openQuote(const Line& rest) {
    if (entries_.empty() || entries_.back().isList) {
        quoteEntries_.push_back(entries_.size());
        entries_.emplace_back();
    }
    ++entries_.back().number;
    if (rest.isBlank()) blankFrom_ = entries_.size();
}

void Containers::openList(const ListMarker& marker, std::size_t block) {
    Entry& list = entries_.emplace_back();
    list.number = block;
    list.isList = true;
    list.setItem(marker);
}

std::size_t Containers::count() const {
    std::size_t count = 0;
    for (const Entry& entry : entries_) count += entry.isList ? 1 : entry.number;
    return count;
}

} // namespace quillmar::Markdown
