#include "Markdown/Emphasis.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace quillmar::Markdown {
namespace {

/// Bytes that are copied at a time: every tag, and most of the text between two runs, is shorter. What is too
/// much is overwritten by what follows; both ends of the copy have that much room behind them.
constexpr std::size_t copyBytes = 16;

/// A tag with that room.
struct Tag {
    std::array<char, copyBytes> text{};
    std::size_t size = 0;

    explicit constexpr Tag(std::string_view tag) : size(tag.size()) { std::ranges::copy(tag, text.begin()); }
};

struct Tags {
    Tag opening;
    Tag closing;
};

/// By the element.
constexpr std::array<Tags, 3> elementTags{{
    {.opening = Tag("<em>"), .closing = Tag("</em>")},
    {.opening = Tag("<strong>"), .closing = Tag("</strong>")},
    {.opening = Tag("<del>"), .closing = Tag("</del>")},
}};

std::size_t ordinal(char character) {
    switch (character) {
    case '*': return 0;
    case '_': return 1;
    default: return 2;
    }
}

/// Writes one piece behind the other.
class Writer {
public:
    explicit Writer(char* place) : place_(place) {}

    void put(const Tag& tag) {
        std::memcpy(place_, tag.text.data(), copyBytes);
        place_ += tag.size;
    }
    void put(const char* text, std::size_t count) {
        std::memcpy(place_, text, count > copyBytes ? count : copyBytes);
        place_ += count;
    }
    void put(std::size_t count, char character) {
        std::memset(place_, character, count > copyBytes ? count : copyBytes);
        place_ += count;
    }

private:
    char* place_;
};

} // namespace

void Emphasis::clear() {
    delimiters_.clear();
    matches_.clear();
    openers_.clear();
    openersOf_ = {};
    outer_.clear();
    bytesToInsert_ = 0;
}

void Emphasis::add(const DelimiterRun& run, std::size_t position) {
    const auto index = static_cast<Number>(delimiters_.size());
    delimiters_.push_back({.position = static_cast<Number>(position),
                           .count = static_cast<Number>(run.count),
                           .character = run.character});
    bytesToInsert_ += run.count;
    if (run.canClose) close(index);
    if (run.canOpen && delimiters_[index].count > 0) {
        openers_.push_back(index);
        ++openersOf_[ordinal(run.character)];
    }
}

/// Matches the run at \p index with openers before it, the nearest first. Runs between the two are text.
void Emphasis::close(Number index) {
    const Delimiter& closer = delimiters_[index];
    while (closer.count > 0 && openersOf_[ordinal(closer.character)] > 0) {
        while (delimiters_[openers_.back()].character != closer.character) dropOpener();
        Delimiter& opener = delimiters_[openers_.back()];
        addMatch(opener, index);
        if (opener.count == 0) dropOpener();
    }
}

/// Uses up what the tags between \p opener and the run at \p closer stand for.
void Emphasis::addMatch(Delimiter& opener, Number closer) {
    Delimiter& run = delimiters_[closer];
    const bool isDouble = opener.count >= 2 && run.count >= 2;
    const Element ofStars = isDouble ? Element::strongEmphasis : Element::emphasis;
    const Element element = run.character == '~' ? Element::strikethrough : ofStars;
    const Number used = isDouble ? 2 : 1;
    opener.count -= used;
    run.count -= used;
    matches_.push_back({.closer = closer, .previous = opener.lastMatch, .element = element});
    opener.lastMatch = static_cast<Number>(matches_.size() - 1);
    const Tags& tags = elementTags[static_cast<std::size_t>(element)];
    bytesToInsert_ += tags.opening.size + tags.closing.size;
    bytesToInsert_ -= std::size_t{2} * used;
}

void Emphasis::dropOpener() {
    --openersOf_[ordinal(delimiters_[openers_.back()].character)];
    openers_.pop_back();
}

void Emphasis::beginLinkText() {
    outer_.push_back({.openersOf = openersOf_, .openers = static_cast<Number>(openers_.size())});
    openersOf_ = {};
}

void Emphasis::endLinkText() {
    openers_.resize(outer_.back().openers);
    openersOf_ = outer_.back().openersOf;
    outer_.pop_back();
}

void Emphasis::insert(std::string& html) {
    if (delimiters_.empty()) return;
    const std::size_t start = delimiters_.front().position;
    const std::size_t end = html.size();
    text_.assign(html, start).append(copyBytes, '\0');
    html.resize(end + bytesToInsert_ + copyBytes);
    Writer writer(html.data() + start);
    std::size_t position = start;
    const auto putText = [&](std::size_t to) {
        writer.put(text_.data() + (position - start), to - position);
        position = to;
    };

    auto match = matches_.begin();
    for (Number i = 0; i < delimiters_.size(); ++i) {
        const Delimiter& delimiter = delimiters_[i];
        putText(delimiter.position);
        for (; match != matches_.end() && match->closer == i; ++match)
            writer.put(elementTags[static_cast<std::size_t>(match->element)].closing);
        writer.put(delimiter.count, delimiter.character);
        // The outermost pair of tags is the last match: it opens first and closes last.
        for (Number m = delimiter.lastMatch; m != none; m = matches_[m].previous)
            writer.put(elementTags[static_cast<std::size_t>(matches_[m].element)].opening);
    }
    putText(end);
    html.resize(end + bytesToInsert_);
}

} // namespace quillmar::Markdown
