#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

/// Comparison without regard to case as regular expressions make it: by Unicode's full case folding
/// (CaseFolding.txt, status C and F), in which U+017F is an "s", U+212A a "k" and U+FB06 "st".
/// Literals are ASCII in lower case and not empty.
namespace quillmar::Markdown::CaseFolding {

/// No place in a text.
inline constexpr std::size_t none = std::string_view::npos;

/// Where the text that begins at \p position and folds to \p literal ends; `none` when there is no such text. A
/// character that folds to more than what is left of the literal does not match.
std::size_t endOfMatch(std::string_view text, std::size_t position, std::string_view literal);

/// Where the text that ends at \p end and folds to \p literal starts; `none` when there is no such text.
std::size_t startOfMatch(std::string_view text, std::size_t end, std::string_view literal);

/// A run of letters, folded. They are one number, a byte for each, so that words are compared at once.
struct Word {
    static constexpr std::size_t maxLetters = sizeof(std::uint64_t); ///< as many as the longest name has

    std::uint64_t letters = 0; ///< see `packed`
    std::size_t end = 0;       ///< position behind it in the text
};

/// The letters of a word, which are at most `Word::maxLetters`.
constexpr std::uint64_t packed(std::string_view letters, std::uint64_t before = 0) {
    constexpr unsigned bitsPerLetter = 8;
    for (const char letter : letters) before = before << bitsPerLetter | static_cast<unsigned char>(letter);
    return before;
}

/// The longest run of characters that fold to [a-z] at \p position. None when there is no such character, or
/// when they are more letters than a word holds.
std::optional<Word> wordAt(std::string_view text, std::size_t position);

/// Bytes of the character that ends at \p end, \p end not being 0, if it is one of [a-z] without regard to
/// case; else 0. A character that folds to several letters is none.
std::size_t letterLengthBefore(std::string_view text, std::size_t end);

} // namespace quillmar::Markdown::CaseFolding
