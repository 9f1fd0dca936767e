#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <unordered_map>

namespace quillmar::Markdown {

/// Finds the ends of code spans in one text. A search that fails has read all runs to the end of the text: none
/// of their lengths is searched for in vain again.
class Backticks {
public:
    /// Another text begins; it must outlive the questions about it.
    void reset(std::string_view text);

    /// The position of the next run of exactly \p run backticks at or behind \p from that ends at or before
    /// \p limit.
    std::optional<std::size_t> closing(std::size_t from, std::size_t run, std::size_t limit);

    /// Backticks at \p position, up to \p limit.
    std::size_t runAt(std::size_t position, std::size_t limit) const;

private:
    /// The first run of a length at or behind `from` is at `position`.
    struct Known {
        std::size_t from;
        std::size_t position; ///< `npos` when there is none
    };

    std::size_t find(std::size_t from, std::size_t run);

    std::string_view text_;
    std::unordered_map<std::size_t, Known> known_; ///< by length
    std::size_t readToEndFrom_ = 0;                ///< lengths that are not known do not occur from here on
};

} // namespace quillmar::Markdown
