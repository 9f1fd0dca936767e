#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quillmar::Markdown {

/// Where a link points: the part of "[text](destination "title")" from its "(" on.
struct LinkTarget {
    std::string_view url;
    std::optional<std::string_view> title;
    std::size_t end = 0; ///< position behind the ")"
};

/// Reads the targets of inline links in one text. Unclosed ones may share what follows them: what is read of it
/// far ahead is remembered.
class LinkDestinations {
public:
    /// Another text begins; it must outlive the questions about it.
    void reset(std::string_view text);

    /// The target whose "(" stands at \p open; null when it is not complete before \p limit. An answer is good
    /// until the next question.
    const LinkTarget* parse(std::size_t open, std::size_t limit);

private:
    /// A part of the text, and what comes behind it.
    struct Piece {
        std::string_view text;
        std::size_t end;
    };

    /// The positions of one character in the text, found when they are first asked for.
    class Positions {
    public:
        explicit Positions(char character) : character_(character) {}
        void reset() { isRead_ = false; }
        /// The first one at or behind \p from; `npos` when there is none.
        std::size_t next(std::string_view text, std::size_t from);

    private:
        char character_;
        bool isRead_ = false;
        std::vector<std::size_t> positions_;
        std::size_t last_ = 0; ///< index of the last answer: the next one is mostly near
    };

    std::size_t readDestination(std::size_t start, bool isBehindParenthesis, std::size_t limit);
    std::optional<Piece> title(std::size_t start, std::size_t limit);
    std::size_t endOfPlainDestination(std::size_t start) const;
    std::size_t behindWhiteSpace(std::size_t position);
    bool readTail(std::size_t start, std::size_t limit);
    void pairParentheses();

    std::string_view text_;
    LinkTarget target_;
    Positions angles_{'>'};
    Positions doubleQuotes_{'"'};
    Positions singleQuotes_{'\''};
    Positions parentheses_{')'};
    /// Where long runs of white space end, by where they were entered.
    std::unordered_map<std::size_t, std::size_t> longWhiteSpace_;
    /// Where the destination behind a "(" ends, by the position of the "(". Filled when one link has failed.
    std::vector<std::pair<std::uint32_t, std::uint32_t>> endBehind_;
    std::size_t lastEnd_ = 0; ///< index of the last answer
    bool isPaired_ = false;
    bool hasFailed_ = false;
};

} // namespace quillmar::Markdown
