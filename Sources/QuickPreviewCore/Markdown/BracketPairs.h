#pragma once

#include "Markdown/Backticks.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace quillmar::Markdown {

/// Finds the "]" that closes a "[", past escaped characters and code spans. One walk from a "[" answers for
/// every bracket that it passes, so that nested and unclosed brackets cost one walk together.
///
/// A "[" that no walk has passed stands where an earlier walk saw code, and the scan of the text a tag or an
/// address with a backtick in it. It gets a walk of its own, as long as all walks stay in proportion to the
/// text (`maxWalks`).
class BracketPairs {
public:
    explicit BracketPairs(Backticks& backticks) : backticks_(backticks) {}

    /// Another text begins; it must outlive the questions about it.
    void reset(std::string_view text);

    struct Closing {
        std::size_t position;
        std::uint32_t walk; ///< by which it was found; knows the brackets inside as well
    };
    /// For the text as a whole, which no walk has found.
    static constexpr std::uint32_t noWalk = static_cast<std::uint32_t>(-1);

    /// For the "[" at \p open in the part of the text that ends at \p limit and was found by \p outerWalk.
    /// Questions go from left to right.
    std::optional<Closing> closing(std::size_t open, std::size_t limit, std::size_t outerWalk);

    /// Bytes walked through in one text, as a multiple of its size. Two do for all but contrived texts.
    static constexpr std::size_t maxWalks = 16;

private:
    struct Pair {
        std::uint32_t open;
        std::uint32_t close; ///< `unclosed` when nothing closes it before the walk's limit
    };
    static constexpr std::uint32_t unclosed = static_cast<std::uint32_t>(-1);

    struct Walk {
        std::size_t firstPair;
        std::size_t pairCount;
        std::size_t end;   ///< where it stopped: behind what closes its first bracket, or at its limit
        std::size_t limit; ///< of the part of the text in which it was made
        std::size_t next;  ///< the pair that is likely asked for next
    };

    const Pair* find(Walk& walk, std::size_t open) const;
    void walk(std::size_t open, std::size_t limit);

    Backticks& backticks_;
    std::string_view text_;
    std::vector<Pair> pairs_;
    std::vector<Walk> walks_;
    std::size_t bytesLeft_ = 0;
};

} // namespace quillmar::Markdown
