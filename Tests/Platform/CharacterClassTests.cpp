#include "Platform/CharacterClass.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <memory>
#include <string_view>
#include <unicode/regex.h>
#include <unicode/uniset.h>
#include <unicode/unistr.h>

namespace quillmar::CharacterClass {
namespace {

constexpr char32_t characterCount = 0x110000;

/// \p isMember must answer as the set \p pattern of ICU does, for every code point.
void expectSet(bool (*isMember)(char32_t), const char* pattern) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeSet set(icu::UnicodeString::fromUTF8(pattern), status);
    ASSERT_TRUE(U_SUCCESS(status));
    for (char32_t character = 0; character < characterCount; ++character)
        ASSERT_EQ(isMember(character), set.contains(static_cast<UChar32>(character)) != 0)
            << std::hex << static_cast<std::uint32_t>(character);
}

TEST(CharacterClass, whiteSpaceIsTheProperty) { expectSet(isWhiteSpace, R"([\p{White_Space}])"); }

TEST(CharacterClass, spaceSeparatorsAreZsAndTab) { expectSet(isSpaceSeparator, R"([\p{Zs}\t])"); }

TEST(CharacterClass, punctuationAndSymbolsArePAndS) { expectSet(isPunctuationOrSymbol, R"([\p{P}\p{S}])"); }

TEST(CharacterClass, lettersAreL) { expectSet(isLetter, R"([\p{L}])"); }

TEST(CharacterClass, decimalDigitsAreNd) { expectSet(isDecimalDigit, R"([\p{Nd}])"); }

TEST(CharacterClass, alphanumericIsLMAndN) { expectSet(isAlphanumeric, R"([\p{L}\p{M}\p{N}])"); }

TEST(CharacterClass, wordCharactersAreThoseOfTheUnicodeStandard) {
    expectSet(isWordCharacter, R"([\p{Alphabetic}\p{M}\p{Nd}\p{Pc}\u200C\u200D])");
}

TEST(CharacterClass, wordBoundariesLookThroughExtendingAndFormattingCharacters) {
    expectSet(isIgnoredByWordBoundary, R"([\p{Grapheme_Extend}\p{Cf}])");
}

TEST(CharacterClass, knowsSomeOfEach) {
    EXPECT_TRUE(isWhiteSpace(U'\u2028'));
    EXPECT_FALSE(isSpaceSeparator(U'\n'));
    EXPECT_TRUE(isSpaceSeparator(U'\u00A0'));
    EXPECT_TRUE(isPunctuationOrSymbol(U'$'));
    EXPECT_TRUE(isPunctuationOrSymbol(U'\u20AC'));
    EXPECT_TRUE(isLetter(U'\u00E9'));
    EXPECT_FALSE(isLetter(U'\u0301'));
    EXPECT_TRUE(isAlphanumeric(U'\u0301'));
    EXPECT_TRUE(isDecimalDigit(U'\u0663'));
    EXPECT_FALSE(isDecimalDigit(U'\u00B2'));
    EXPECT_TRUE(isWordCharacter(U'_'));
    EXPECT_FALSE(isWordCharacter(U'-'));
    EXPECT_TRUE(isIgnoredByWordBoundary(U'\u00AD'));
}

/// ICU's engine on short texts.
class Expression {
public:
    explicit Expression(const char* pattern)
        : matcher_(std::make_unique<icu::RegexMatcher>(icu::UnicodeString::fromUTF8(pattern), 0, status_)) {}

    bool matches(std::u16string_view before, char32_t character, std::u16string_view after) {
        icu::UnicodeString text(before.data(), static_cast<std::int32_t>(before.size()));
        text.append(static_cast<UChar32>(character));
        text.append(after.data(), static_cast<std::int32_t>(after.size()));
        matcher_->reset(text);
        return matcher_->matches(status_) != 0 && U_SUCCESS(status_) != 0;
    }

private:
    UErrorCode status_ = U_ZERO_ERROR;
    std::unique_ptr<icu::RegexMatcher> matcher_;
};

// Behind it there are ideographs and unassigned characters, and some that the sets above cover.
constexpr char32_t regularExpressionCharacters = 0x20000;

bool isSurrogate(char32_t character) { return character >= 0xD800 && character <= 0xDFFF; }

TEST(CharacterClass, isWhatTheClassesOfRegularExpressionsAre) {
    Expression word(R"(\w)");
    Expression space(R"(\s)");
    for (char32_t character = 0; character < regularExpressionCharacters; ++character) {
        if (isSurrogate(character)) continue;
        ASSERT_EQ(isWordCharacter(character), word.matches(u"", character, u""))
            << static_cast<std::uint32_t>(character);
        ASSERT_EQ(isWhiteSpace(character), space.matches(u"", character, u""))
            << static_cast<std::uint32_t>(character);
    }
}

TEST(CharacterClass, ignoresWhatWordBoundariesOfRegularExpressionsIgnore) {
    // Behind an ignored character there is a boundary or none as if it were not there.
    Expression boundary(R"([\s\S]{2}\b-)");
    for (char32_t character = 0; character < regularExpressionCharacters; ++character) {
        if (isSurrogate(character)) continue;
        const bool behindLetter = boundary.matches(u"a", character, u"-");
        const bool behindSpace = boundary.matches(u" ", character, u"-");
        ASSERT_EQ(isIgnoredByWordBoundary(character), behindLetter != behindSpace)
            << static_cast<std::uint32_t>(character);
    }
}

} // namespace
} // namespace quillmar::CharacterClass
