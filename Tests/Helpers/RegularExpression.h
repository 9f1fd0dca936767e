#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmar {

/// ICU's regular expressions over well-formed UTF-8, without limits of stack or time.
class RegularExpression {
public:
    enum class Case { sensitive, ignored };

    struct Match {
        std::size_t start = 0; ///< bytes
        std::size_t end = 0;
        std::vector<std::optional<std::string>>
            groups; ///< 0 is the whole match; none for a group without a part

        /// The text of \p group; empty when it took no part.
        std::string text(std::size_t group) const { return groups.at(group).value_or(std::string()); }
    };

    using Replacement = std::function<std::string(const Match&)>;

    /// Throws std::invalid_argument when \p pattern is not one.
    explicit RegularExpression(std::string_view pattern, Case letters = Case::sensitive);
    ~RegularExpression();
    RegularExpression(const RegularExpression&) = delete;
    RegularExpression& operator=(const RegularExpression&) = delete;

    /// All non-overlapping matches, left to right.
    std::vector<Match> matches(std::string_view text) const;

    std::optional<Match> firstMatch(std::string_view text) const;
    bool matchesIn(std::string_view text) const { return firstMatch(text).has_value(); }

    /// \p text with every match replaced by what \p replacement makes of it.
    std::string replaced(std::string_view text, const Replacement& replacement) const;

private:
    struct Pattern;
    std::unique_ptr<Pattern> pattern_;

    std::vector<Match> find(std::string_view text, std::size_t atMost) const;
};

} // namespace quillmar
