#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quillmar::Markdown {

/// Finds the ends of code spans in one text. The first search that fails notes where all runs are, so that no
/// later one reads the text again.
class Backticks {
public:
    /// Another text begins; it must outlive the questions about it.
    void reset(std::string_view text);

    /// The position of the next run of exactly \p run backticks at or behind \p from, which is not inside a
    /// run, that ends at or before \p limit.
    std::optional<std::size_t> closing(std::size_t from, std::size_t run, std::size_t limit);

    /// Backticks at \p position, up to \p limit.
    std::size_t runAt(std::size_t position, std::size_t limit) const;

private:
    std::optional<std::size_t> search(std::size_t from, std::size_t run, std::size_t limit) const;
    void readAll();

    std::string_view text_;
    std::unordered_map<std::size_t, std::vector<std::size_t>> positions_; ///< of all runs, by length
    bool isRead_ = false;
};

} // namespace quillmar::Markdown
