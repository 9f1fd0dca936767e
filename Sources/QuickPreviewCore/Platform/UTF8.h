#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// UTF-8 as bytes: no data of ICU's is touched.
namespace quillmar::UTF8 {

/// A code point and the bytes it takes. An ill-formed sequence stands for U+FFFD and takes one maximal subpart
/// (the Unicode standard, 3.9).
struct CodePoint {
    char32_t value = 0xFFFD;
    std::size_t length = 0;
    bool isWellFormed = false;
};

constexpr bool isASCII(char byte) { return static_cast<unsigned char>(byte) < 0x80; }

/// The same as the two below, for what may be longer than one byte.
CodePoint longCodePointAt(std::string_view text, std::size_t position);
CodePoint longCodePointBefore(std::string_view text, std::size_t position);

/// The code point that begins at byte \p position of \p text, which lies within it.
inline CodePoint codePointAt(std::string_view text, std::size_t position) {
    const char byte = text[position];
    if (!isASCII(byte)) return longCodePointAt(text, position);
    return {.value = static_cast<unsigned char>(byte), .length = 1, .isWellFormed = true};
}

/// The code point that ends in front of byte \p position of \p text, which is neither 0 nor beyond its end.
inline CodePoint codePointBefore(std::string_view text, std::size_t position) {
    const char byte = text[position - 1];
    if (!isASCII(byte)) return longCodePointBefore(text, position);
    return {.value = static_cast<unsigned char>(byte), .length = 1, .isWellFormed = true};
}

/// Appends \p character, which is no surrogate.
void append(std::string& text, char32_t character);

/// Bytes in the longest prefix of \p text that is well-formed.
std::size_t validPrefix(std::string_view text);

bool isASCII(std::string_view text);

} // namespace quillmar::UTF8
