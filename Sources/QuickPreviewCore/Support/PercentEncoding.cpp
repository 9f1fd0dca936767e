#include "Support/PercentEncoding.h"

#include "Platform/UTF8.h"

#include <algorithm>
#include <cstddef>

namespace quillmar {
namespace {

std::optional<unsigned> hexadecimalDigit(char c) {
    if (c >= '0' && c <= '9') return static_cast<unsigned>(c - '0');
    if (c >= 'A' && c <= 'F') return static_cast<unsigned>(c - 'A' + 10);
    if (c >= 'a' && c <= 'f') return static_cast<unsigned>(c - 'a' + 10);
    return std::nullopt;
}

/// The byte that the escape at the start of \p text stands for.
std::optional<char> escapedByte(std::string_view text) {
    if (text.size() < 3) return std::nullopt;
    const auto high = hexadecimalDigit(text[1]);
    const auto low = hexadecimalDigit(text[2]);
    if (!high || !low) return std::nullopt;
    return static_cast<char>(*high << 4U | *low);
}

} // namespace

std::optional<std::string> removingPercentEncoding(std::string_view text) {
    std::string decoded;
    decoded.reserve(text.size());
    while (true) {
        const std::size_t percent = std::min(text.find('%'), text.size());
        decoded.append(text, 0, percent);
        if (percent == text.size()) break;
        const auto byte = escapedByte(text.substr(percent));
        if (!byte) return std::nullopt;
        decoded += *byte;
        text.remove_prefix(percent + 3);
    }
    if (UTF8::validPrefix(decoded) != decoded.size()) return std::nullopt;
    return decoded;
}

} // namespace quillmar
