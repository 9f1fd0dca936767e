#include "Platform/CharacterClass.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <unicode/uchar.h>

namespace quillmar::CharacterClass {
namespace {

/// Bits of the table for ASCII.
enum Class : std::uint8_t {
    whiteSpace = 1,
    spaceSeparator = 2,
    punctuationOrSymbol = 4,
    letter = 8,
    decimalDigit = 16,
    connector = 32,
};

constexpr bool isBetween(std::size_t character, char first, char last) {
    return character >= static_cast<std::size_t>(first) && character <= static_cast<std::size_t>(last);
}

constexpr std::uint8_t classesOfASCII(std::size_t character) {
    if (character == ' ' || character == '\t') return whiteSpace | spaceSeparator;
    if (isBetween(character, '\n', '\r')) return whiteSpace;
    if (isBetween(character, 'A', 'Z') || isBetween(character, 'a', 'z')) return letter;
    if (isBetween(character, '0', '9')) return decimalDigit;
    if (character == '_') return punctuationOrSymbol | connector;
    if (isBetween(character, '!', '~')) return punctuationOrSymbol;
    return 0;
}

constexpr std::size_t asciiCharacters = 128;

constexpr auto asciiClasses = [] {
    std::array<std::uint8_t, asciiCharacters> table{};
    for (std::size_t character = 0; character < table.size(); ++character)
        table[character] = classesOfASCII(character);
    return table;
}();

constexpr bool isASCII(char32_t character) { return character < asciiCharacters; }

constexpr bool asciiIs(char32_t character, unsigned classes) {
    return (asciiClasses[character] & classes) != 0;
}

/// True when the general category of \p character is in the mask \p categories (U_GC_L_MASK and so on).
bool isOfCategory(char32_t character, std::uint32_t categories) {
    return (U_MASK(u_charType(static_cast<UChar32>(character))) & categories) != 0;
}

bool hasProperty(char32_t character, UProperty property) {
    return u_hasBinaryProperty(static_cast<UChar32>(character), property) != 0;
}

} // namespace

bool isWhiteSpace(char32_t character) {
    if (isASCII(character)) return asciiIs(character, whiteSpace);
    return u_isUWhiteSpace(static_cast<UChar32>(character)) != 0;
}

bool isSpaceSeparator(char32_t character) {
    if (isASCII(character)) return asciiIs(character, spaceSeparator);
    return isOfCategory(character, U_GC_ZS_MASK);
}

bool isPunctuationOrSymbol(char32_t character) {
    if (isASCII(character)) return asciiIs(character, punctuationOrSymbol);
    return isOfCategory(character, U_GC_P_MASK | U_GC_S_MASK);
}

bool isLetter(char32_t character) {
    if (isASCII(character)) return asciiIs(character, letter);
    return isOfCategory(character, U_GC_L_MASK);
}

bool isDecimalDigit(char32_t character) {
    if (isASCII(character)) return asciiIs(character, decimalDigit);
    return isOfCategory(character, U_GC_ND_MASK);
}

bool isAlphanumeric(char32_t character) {
    if (isASCII(character)) return asciiIs(character, letter | decimalDigit);
    return isOfCategory(character, U_GC_L_MASK | U_GC_M_MASK | U_GC_N_MASK);
}

bool isWordCharacter(char32_t character) {
    if (isASCII(character)) return asciiIs(character, letter | decimalDigit | connector);
    constexpr char32_t zeroWidthNonJoiner = 0x200C;
    constexpr char32_t zeroWidthJoiner = 0x200D;
    return isOfCategory(character, U_GC_M_MASK | U_GC_ND_MASK | U_GC_PC_MASK) ||
           hasProperty(character, UCHAR_ALPHABETIC) || character == zeroWidthNonJoiner ||
           character == zeroWidthJoiner;
}

bool isIgnoredByWordBoundary(char32_t character) {
    if (isASCII(character)) return false;
    return isOfCategory(character, U_GC_CF_MASK) || hasProperty(character, UCHAR_GRAPHEME_EXTEND);
}

} // namespace quillmar::CharacterClass
