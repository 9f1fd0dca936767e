#include "QuillmarQuickLook/Base64.h"

#include <cstdint>

namespace quillmar {
namespace {

constexpr std::string_view alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

} // namespace

std::string base64(DataView data) {
    std::string text;
    text.reserve((data.size() + 2) / 3 * 4);
    for (std::size_t i = 0; i < data.size(); i += 3) {
        const DataView group = data.substr(i, 3);
        std::uint32_t bits = 0; // 24 bits, the first byte highest; missing bytes are zero
        for (std::size_t k = 0; k < 3; ++k)
            bits = bits << 8 | (k < group.size() ? static_cast<unsigned char>(group[k]) : 0U);
        for (std::size_t k = 0; k < 4; ++k)
            text += k <= group.size() ? alphabet[bits >> (18 - 6 * k) & 0x3F] : '=';
    }
    return text;
}

} // namespace quillmar
