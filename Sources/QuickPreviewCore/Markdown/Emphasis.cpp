#include "Markdown/Emphasis.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace quillmar::Markdown {
namespace {

struct Element {
    std::string_view openingTag;
    std::string_view closingTag;
};

constexpr std::array<Element, 3> elements{{
    {.openingTag = "<em>", .closingTag = "</em>"},
    {.openingTag = "<strong>", .closingTag = "</strong>"},
    {.openingTag = "<del>", .closingTag = "</del>"},
}};
constexpr int emphasis = 0;
constexpr int strongEmphasis = 1;
constexpr int strikethrough = 2;

std::size_t ordinal(char character) {
    switch (character) {
    case '*': return 0;
    case '_': return 1;
    default: return 2;
    }
}

} // namespace

void Emphasis::clear() {
    delimiters_.clear();
    matches_.clear();
    openers_.clear();
    openersOf_ = {};
    outer_.clear();
    base_.clear();
}

void Emphasis::add(const DelimiterRun& run, std::size_t position) {
    const std::size_t index = delimiters_.size();
    delimiters_.push_back(
        {.position = position, .count = run.count, .lastMatch = none, .character = run.character});
    if (run.canClose) close(index);
    if (run.canOpen && delimiters_[index].count > 0) {
        openers_.push_back(index);
        ++openersOf_[ordinal(run.character)];
    }
}

/// Matches the run at \p index with openers before it, the nearest first. Runs between the two are text.
void Emphasis::close(std::size_t index) {
    Delimiter& closer = delimiters_[index];
    while (closer.count > 0 && openersOf_[ordinal(closer.character)] > 0) {
        while (delimiters_[openers_.back()].character != closer.character) dropOpener();
        Delimiter& opener = delimiters_[openers_.back()];
        const bool isDouble = opener.count >= 2 && closer.count >= 2;
        const int ofStars = isDouble ? strongEmphasis : emphasis;
        const int element = closer.character == '~' ? strikethrough : ofStars;
        const std::size_t used = isDouble ? 2 : 1;
        matches_.push_back({.closer = index, .previous = opener.lastMatch, .element = element});
        opener.lastMatch = matches_.size() - 1;
        opener.count -= used;
        closer.count -= used;
        if (opener.count == 0) dropOpener();
    }
}

void Emphasis::dropOpener() {
    --openersOf_[ordinal(delimiters_[openers_.back()].character)];
    openers_.pop_back();
}

void Emphasis::beginLinkText() {
    outer_.push_back(openersOf_);
    base_.push_back(openers_.size());
    openersOf_ = {};
}

void Emphasis::endLinkText() {
    openers_.resize(base_.back());
    openersOf_ = outer_.back();
    base_.pop_back();
    outer_.pop_back();
}

std::size_t Emphasis::bytesToInsert() const {
    std::size_t bytes = 0;
    for (const Delimiter& delimiter : delimiters_) bytes += delimiter.count;
    for (const Match& match : matches_) {
        const Element& element = elements[static_cast<std::size_t>(match.element)];
        bytes += element.openingTag.size() + element.closingTag.size();
    }
    return bytes;
}

void Emphasis::insert(std::string& html) const {
    if (delimiters_.empty()) return;
    // From the end to the start, so that every byte moves once.
    std::size_t end = html.size();
    html.resize(end + bytesToInsert());
    char* to = html.data() + html.size();
    const auto put = [&to](std::string_view text) {
        to -= text.size();
        std::memcpy(to, text.data(), text.size());
    };

    std::vector<std::string_view> openingTags;
    auto match = matches_.rbegin();
    for (std::size_t i = delimiters_.size(); i-- > 0;) {
        const Delimiter& delimiter = delimiters_[i];
        to -= end - delimiter.position;
        std::memmove(to, html.data() + delimiter.position, end - delimiter.position);
        end = delimiter.position;

        // The outermost pair of tags is the last match: it opens first and closes last.
        openingTags.clear();
        for (std::size_t m = delimiter.lastMatch; m != none; m = matches_[m].previous)
            openingTags.push_back(elements[static_cast<std::size_t>(matches_[m].element)].openingTag);
        for (std::size_t t = openingTags.size(); t-- > 0;) put(openingTags[t]);
        to -= delimiter.count;
        std::memset(to, delimiter.character, delimiter.count);
        for (; match != matches_.rend() && match->closer == i; ++match)
            put(elements[static_cast<std::size_t>(match->element)].closingTag);
    }
}

} // namespace quillmar::Markdown
