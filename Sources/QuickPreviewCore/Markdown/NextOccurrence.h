#pragma once

#include <cstddef>
#include <string_view>

namespace quillmar::Markdown {

/// Finds the next place of a text, asked from places further and further on, for the cost of one pass in all.
/// Without it a million "<" would each look for a ">" that is not there.
class NextOccurrence {
public:
    explicit NextOccurrence(std::string_view sought) : sought_(sought) {}

    /// Another text begins.
    void reset() { isKnown_ = false; }

    /// Where `sought` begins in \p text at or behind \p position; `npos` when it does not.
    std::size_t find(std::string_view text, std::size_t position) {
        const bool answers = isKnown_ && askedFrom_ <= position && position <= found_;
        if (answers) return found_;
        isKnown_ = true;
        askedFrom_ = position;
        found_ = text.find(sought_, position);
        return found_;
    }

private:
    std::string_view sought_;
    bool isKnown_ = false;
    std::size_t askedFrom_ = 0;
    std::size_t found_ = 0;
};

} // namespace quillmar::Markdown
