#include "Platform/Text.h"
#include "Platform/UTF8.h"

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

} // namespace

std::string textFromCodePage437(DataView data) {
    std::string text;
    text.reserve(data.size());
    for (const char c : data) {
        const auto byte = static_cast<unsigned char>(c);
        UTF8::append(text, byte < 0x80 ? byte : upperHalfOf437[byte - 0x80U]);
    }
    return text;
}

std::string textFromLatin1(DataView data) {
    std::string text;
    text.reserve(data.size());
    for (const char c : data) UTF8::append(text, static_cast<unsigned char>(c)); // the first 256 code points
    return text;
}

} // namespace quillmar
