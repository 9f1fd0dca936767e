#include "Markdown/BareURL.h"

#include "Markdown/TextBoundaries.h"
#include "Platform/CharacterClass.h"
#include "Platform/UTF8.h"

#include <algorithm>
#include <array>

namespace quillmar::Markdown {
namespace {

constexpr std::string_view www = "www.";
constexpr std::array<std::string_view, 3> beginnings{"https://", "http://", www};

/// Of a sentence rather than of an address that it ends with.
constexpr std::string_view trailingPunctuation = ".,:;!?*_~'\"";

char lowercasedASCII(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool beginsWith(std::string_view text, std::string_view lowercase) {
    return text.size() >= lowercase.size() &&
           std::equal(lowercase.begin(), lowercase.end(), text.begin(),
                      [](char expected, char c) { return lowercasedASCII(c) == expected; });
}

/// An address does not begin in the middle of a word or a path.
bool mayBegin(std::string_view text, std::size_t position) {
    if (position == 0) return true;
    const char32_t before = UTF8::codePointBefore(text, position).value;
    return before != U'/' && !CharacterClass::isLetter(before) && !CharacterClass::isDecimalDigit(before);
}

/// Up to white space or "<".
std::string_view addressAt(std::string_view text) {
    std::size_t end = 0;
    while (end < text.size() && text[end] != '<' && whiteSpaceLengthAt(text, end) == 0)
        end += UTF8::codePointAt(text, end).length;
    return text.substr(0, end);
}

} // namespace

std::string_view bareURL(std::string_view text, std::size_t position) {
    const std::string_view rest = text.substr(position);
    const auto begins = [rest](std::string_view beginning) { return beginsWith(rest, beginning); };
    if (std::none_of(beginnings.begin(), beginnings.end(), begins) || !mayBegin(text, position)) return {};
    const std::string_view address = addressAt(rest);
    return address.substr(0, address.find_last_not_of(trailingPunctuation) + 1);
}

bool beginsWithWWW(std::string_view address) {
    // The full stop may have fallen off the end.
    return beginsWith(address, www.substr(0, www.size() - 1));
}

} // namespace quillmar::Markdown
