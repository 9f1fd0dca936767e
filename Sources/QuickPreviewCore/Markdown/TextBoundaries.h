#pragma once

#include "Platform/UTF8.h"

#include <cstddef>
#include <string_view>

/// White space and word boundaries as regular expressions see them (\s and \b in ICU's meaning).
namespace quillmar::Markdown {

/// White space in ASCII, where nearly all of it is.
constexpr bool isASCIIWhiteSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

/// The same as `whiteSpaceLengthAt`, of a character beyond ASCII.
std::size_t longWhiteSpaceLengthAt(std::string_view text, std::size_t position);

/// Bytes of the white space character at \p position, which lies within \p text; 0 when there is another one.
inline std::size_t whiteSpaceLengthAt(std::string_view text, std::size_t position) {
    const char c = text[position];
    if (!UTF8::isASCII(c)) return longWhiteSpaceLengthAt(text, position);
    return isASCIIWhiteSpace(c) ? 1 : 0;
}

/// Where the white space that begins at \p position ends.
std::size_t endOfWhiteSpace(std::string_view text, std::size_t position);

/// Where the white space that ends at \p end starts, not looking in front of \p first.
std::size_t startOfWhiteSpace(std::string_view text, std::size_t first, std::size_t end);

/// True when a word character in front of \p end is the last one of its word.
bool isWordEnd(std::string_view text, std::size_t end);

/// True when a word character at \p start is the first one of its word. Characters that extend others do not
/// count, however many there are.
bool isWordStart(std::string_view text, std::size_t start);

} // namespace quillmar::Markdown
