#include "Platform/Text.h"

#include <string_view>

namespace quillmar {
namespace {

/// 0x80 to 0xFF (the Unicode consortium's mapping CP437.TXT), 16 to a line.
constexpr std::u16string_view upperHalfOf437 = u"ÇüéâäàåçêëèïîìÄÅ"
                                               u"ÉæÆôöòûùÿÖÜ¢£¥₧ƒ"
                                               u"áíóúñÑªº¿⌐¬½¼¡«»"
                                               u"░▒▓│┤╡╢╖╕╣║╗╝╜╛┐"
                                               u"└┴┬├─┼╞╟╚╔╩╦╠═╬╧"
                                               u"╨╤╥╙╘╒╓╫╪┘┌█▄▌▐▀"
                                               u"αßΓπΣσµτΦΘΩδ∞φε∩"
                                               u"≡±≥≤⌠⌡÷≈°∙·√ⁿ²■\u00A0";
static_assert(upperHalfOf437.size() == 128);

/// \p character needs no surrogates.
void append(std::string& text, char16_t character) {
    const auto byte = [&](unsigned value) { text += static_cast<char>(value); };
    if (character < 0x80) return byte(character);
    if (character < 0x800) {
        byte(0xC0U | character >> 6);
    } else {
        byte(0xE0U | character >> 12);
        byte(0x80U | (character >> 6 & 0x3FU));
    }
    byte(0x80U | (character & 0x3FU));
}

} // namespace

std::string textFromCodePage437(DataView data) {
    std::string text;
    text.reserve(data.size());
    for (const char c : data) {
        const auto byte = static_cast<unsigned char>(c);
        append(text, byte < 0x80 ? byte : upperHalfOf437[byte - 0x80U]);
    }
    return text;
}

std::string textFromLatin1(DataView data) {
    std::string text;
    text.reserve(data.size());
    for (const char c : data) append(text, static_cast<unsigned char>(c)); // the first 256 code points
    return text;
}

} // namespace quillmar
