#include "Markdown/CaseFolding.h"

#include "Platform/UTF8.h"

namespace quillmar::Markdown::CaseFolding {
namespace {

using UTF8::isASCII;

constexpr char lowercased(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

constexpr bool isLetter(char c) { return lowercased(c) >= 'a' && lowercased(c) <= 'z'; }

/// What a character outside ASCII folds to, if that is ASCII; else nothing. Unicode promises that the folding
/// of a character never changes.
constexpr std::string_view foldedToASCII(char32_t character) {
    switch (character) {
    case 0x017F: return "s"; // long s
    case 0x212A: return "k"; // Kelvin sign
    case 0x00DF:             // sharp s
    case 0x1E9E: return "ss";
    case 0xFB00: return "ff"; // ligatures
    case 0xFB01: return "fi";
    case 0xFB02: return "fl";
    case 0xFB03: return "ffi";
    case 0xFB04: return "ffl";
    case 0xFB05:
    case 0xFB06: return "st";
    default: return {};
    }
}

} // namespace

std::size_t endOfMatch(std::string_view text, std::size_t position, std::string_view literal) {
    while (!literal.empty()) {
        if (position >= text.size()) return none;
        if (isASCII(text[position])) {
            if (lowercased(text[position]) != literal.front()) return none;
            literal.remove_prefix(1);
            ++position;
            continue;
        }
        const UTF8::CodePoint character = UTF8::codePointAt(text, position);
        const std::string_view folded = foldedToASCII(character.value);
        if (folded.empty() || !literal.starts_with(folded)) return none;
        literal.remove_prefix(folded.size());
        position += character.length;
    }
    return position;
}

std::size_t startOfMatch(std::string_view text, std::size_t end, std::string_view literal) {
    while (!literal.empty()) {
        if (end == 0) return none;
        if (isASCII(text[end - 1])) {
            if (lowercased(text[end - 1]) != literal.back()) return none;
            literal.remove_suffix(1);
            --end;
            continue;
        }
        const UTF8::CodePoint character = UTF8::codePointBefore(text, end);
        const std::string_view folded = foldedToASCII(character.value);
        if (folded.empty() || !literal.ends_with(folded)) return none;
        literal.remove_suffix(folded.size());
        end -= character.length;
    }
    return end;
}

std::optional<Word> wordAt(std::string_view text, std::size_t position) {
    std::uint64_t letters = 0;
    std::size_t count = 0;
    while (position < text.size()) {
        if (isLetter(text[position])) {
            letters = letters << 8 | static_cast<unsigned char>(lowercased(text[position]));
            ++count;
            ++position;
        } else if (isASCII(text[position])) {
            break;
        } else {
            const UTF8::CodePoint character = UTF8::codePointAt(text, position);
            const std::string_view folded = foldedToASCII(character.value);
            if (folded.empty()) break;
            letters = packed(folded, letters);
            count += folded.size();
            position += character.length;
        }
        if (count > Word::maxLetters) return std::nullopt;
    }
    if (count == 0) return std::nullopt;
    return Word{.letters = letters, .end = position};
}

std::size_t letterLengthBefore(std::string_view text, std::size_t end) {
    const char c = text[end - 1];
    if (isASCII(c)) return isLetter(c) ? 1 : 0;
    const UTF8::CodePoint character = UTF8::codePointBefore(text, end);
    return foldedToASCII(character.value).size() == 1 ? character.length : 0;
}

} // namespace quillmar::Markdown::CaseFolding
