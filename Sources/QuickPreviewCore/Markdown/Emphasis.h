#pragma once

#include <array>
#include <cstddef>
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
    void insert(std::string& html) const;

private:
    struct Delimiter {
        std::size_t position;
        std::size_t count;     ///< characters that are not used up: text
        std::size_t lastMatch; ///< as opener, the last of its matches; `none` without one
        char character;
    };
    /// Tags between two runs.
    struct Match {
        std::size_t closer;
        std::size_t previous; ///< match of the same opener, inside this one
        int element;          ///< an index of `elements`
    };
    using Counts = std::array<std::size_t, 3>; ///< openers of each character

    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    void close(std::size_t index);
    void dropOpener();
    std::size_t bytesToInsert() const;

    std::vector<Delimiter> delimiters_;
    std::vector<Match> matches_; ///< by closer
    std::vector<std::size_t> openers_;
    Counts openersOf_{};            ///< in the innermost link text
    std::vector<Counts> outer_;     ///< of the texts around it
    std::vector<std::size_t> base_; ///< `openers_` below are theirs
};

} // namespace quillmar::Markdown
