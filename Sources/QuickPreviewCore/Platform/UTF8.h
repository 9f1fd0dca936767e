#pragma once

#include <cstddef>
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

/// The code point that begins at byte \p position of \p text, which lies within it.
CodePoint codePointAt(std::string_view text, std::size_t position);

/// The code point that ends in front of byte \p position of \p text, which is neither 0 nor beyond its end.
CodePoint codePointBefore(std::string_view text, std::size_t position);

/// Bytes in the longest prefix of \p text that is well-formed.
std::size_t validPrefix(std::string_view text);

bool isASCII(std::string_view text);

} // namespace quillmar::UTF8
