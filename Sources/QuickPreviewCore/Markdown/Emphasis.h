#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace quillmar::Markdown {

/// A run of "*", "_" or "~" that may emphasise.
struct DelimiterRun {
    char character = '*';
    std::size_t count = 0;
    bool canOpen = false;
    bool canClose = false;
};

/// The emphasis of one text. Runs are matched as they come; their characters and tags are put into the HTML
/// when the text is complete, all at once.
class Emphasis {
public:
    void clear();

    /// A run that stands at \p position of the HTML, which does not hold its characters.
    void add(const DelimiterRun& run, std::size_t position);

    /// A link's text is matched by itself: what is open outside waits until its end.
    void beginLinkText();
    void endLinkText();

    /// Puts everything into \p html, the positions in which have been given.
    void insert(std::string& html);

private:
    // Kept small: there may be one for every other byte of a document (`MarkdownLimits::maxTextBytes`).
    using Number = std::uint32_t;
    static constexpr Number none = std::numeric_limits<Number>::max();

    enum class Element : std::uint8_t { emphasis, strongEmphasis, strikethrough };

    struct Delimiter {
        Number position = 0;     ///< in the text's HTML
        Number count = 0;        ///< characters that are not used up: text
        Number lastMatch = none; ///< as opener, the last of its matches
        char character = '*';
    };
    /// Tags between two runs.
    struct Match {
        Number closer = 0;
        Number previous = none; ///< match of the same opener, inside this one
        Element element = Element::emphasis;
    };
    using Counts = std::array<Number, 3>; ///< openers of each character
    /// What waits while a link's text is matched.
    struct OuterText {
        Counts openersOf;
        Number openers; ///< the number of all, those of texts further out too
    };

    void close(Number index);
    void addMatch(Delimiter& opener, Number closer);
    void dropOpener();

    std::vector<Delimiter> delimiters_;
    std::vector<Match> matches_; ///< by closer
    std::vector<Number> openers_;
    Counts openersOf_{}; ///< in the innermost link text
    std::vector<OuterText> outer_;
    std::size_t bytesToInsert_ = 0;
    std::string text_; ///< the HTML as it was
};

} // namespace quillmar::Markdown
