#pragma once

/// What Unicode says of a code point. ASCII is answered from a table of our own, without ICU's data.
namespace quillmar::CharacterClass {

/// The White_Space property: line breaks and no-break spaces too.
bool isWhiteSpace(char32_t character);

/// General category Zs, or TAB: what trimming removes. No line break is one.
bool isSpaceSeparator(char32_t character);

/// General categories P* and S*.
bool isPunctuationOrSymbol(char32_t character);

/// General category L*.
bool isLetter(char32_t character);

/// General category Nd.
bool isDecimalDigit(char32_t character);

/// General categories L*, M* and N*.
bool isAlphanumeric(char32_t character);

/// What regular expressions match with \w: Alphabetic, M*, Nd, Pc, and the zero-width (non-)joiner
/// (Unicode technical standard 18, annex C).
bool isWordCharacter(char32_t character);

/// Characters that word boundaries look through: Grapheme_Extend, or general category Cf.
bool isIgnoredByWordBoundary(char32_t character);

} // namespace quillmar::CharacterClass
