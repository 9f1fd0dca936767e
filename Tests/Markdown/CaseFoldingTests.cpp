#include "Markdown/CaseFolding.h"

#include <array>
#include <gtest/gtest.h>
#include <string>
#include <unicode/uniset.h>
#include <unicode/unistr.h>

namespace quillmar::Markdown::CaseFolding {
namespace {

TEST(CaseFolding, matchesASCIIInBothCases) {
    EXPECT_EQ(endOfMatch("<ScRiPt>", 1, "script"), 7U);
    EXPECT_EQ(startOfMatch("<ScRiPt>", 7, "script"), 1U);
    EXPECT_EQ(endOfMatch("@[", 0, "`{"), none); // beside the letters, 32 apart
}

TEST(CaseFolding, matchesNothingBeyondTheText) {
    EXPECT_EQ(endOfMatch("scrip", 0, "script"), none);
    EXPECT_EQ(endOfMatch("script", 6, "script"), none);
    EXPECT_EQ(startOfMatch("cript", 5, "script"), none);
    EXPECT_EQ(startOfMatch("script", 0, "script"), none);
}

TEST(CaseFolding, matchesOnlyAtTheGivenPlace) {
    EXPECT_EQ(endOfMatch(" src", 0, "src"), none);
    EXPECT_EQ(startOfMatch("src ", 4, "src"), none);
}

TEST(CaseFolding, longSIsAnSAndTheKelvinSignAK) {
    EXPECT_EQ(endOfMatch("\u017Fcript", 0, "script"), 7U);
    EXPECT_EQ(endOfMatch("LIN\u212A", 0, "link"), 6U);
    EXPECT_EQ(startOfMatch("\u017Frc", 4, "src"), 0U);
    EXPECT_EQ(startOfMatch("xlin\u212A:href", 12, "xlink:href"), 0U);
}

TEST(CaseFolding, aLigatureIsItsLetters) {
    EXPECT_EQ(endOfMatch("\uFB06yle", 0, "style"), 6U);
    EXPECT_EQ(endOfMatch("\uFB05yle", 0, "style"), 6U);
    EXPECT_EQ(startOfMatch("\uFB06yle", 6, "style"), 0U);
}

TEST(CaseFolding, aLigatureIsNoPartOfItsLetters) {
    EXPECT_EQ(endOfMatch("\uFB06", 0, "s"), none);
    EXPECT_EQ(startOfMatch("\uFB06", 3, "t"), none);
    EXPECT_EQ(endOfMatch("\uFB06op", 0, "sop"), none);
    EXPECT_EQ(endOfMatch("for\uFB06", 0, "fors"), none);
}

TEST(CaseFolding, illFormedBytesMatchNothing) {
    EXPECT_EQ(endOfMatch("\xC5", 0, "s"), none);
    EXPECT_EQ(endOfMatch("\xC5\xC5\xBF", 0, "ss"), none);
    EXPECT_EQ(startOfMatch("\xBF", 1, "s"), none);
    EXPECT_EQ(startOfMatch("x\xC5\xBF\xBF", 4, "s"), none);
}

/// The word at the start of \p text, folded; "-" for none.
std::string firstWord(std::string_view text) {
    const auto word = wordAt(text, 0);
    if (!word) return "-";
    std::string letters;
    for (std::uint64_t rest = word->letters; rest != 0; rest >>= 8)
        letters.insert(letters.begin(), static_cast<char>(rest & 0xFF));
    return letters;
}

TEST(CaseFolding, packsWordsIntoDifferentNumbers) {
    EXPECT_EQ(packed("a"), 0x61U);
    EXPECT_EQ(packed("meta"), 0x6D657461U);
    EXPECT_EQ(packed("textarea"), 0x7465787461726561U);
}

TEST(CaseFolding, readsWords) {
    EXPECT_EQ(firstWord("ScRiPt>"), "script");
    EXPECT_EQ(firstWord("\uFB06yle "), "style");
    EXPECT_EQ(firstWord("\u017Frc\u212A"), "srck");
    EXPECT_EQ(wordAt("</\uFB06yle>", 2)->end, 8U);
}

TEST(CaseFolding, aWordEndsAtWhatIsNoLetter) {
    for (const std::string end : {"", " ", "1", "@", "[", "`", "{", "\u00E9", "\u0130", "\xC5", "\u0301"})
        EXPECT_EQ(firstWord("img" + end), "img") << end;
}

TEST(CaseFolding, thereIsNoWordWithoutLetters) {
    EXPECT_EQ(firstWord(""), "-");
    EXPECT_EQ(firstWord("/a"), "-");
    EXPECT_EQ(firstWord("\u0130"), "-"); // folds to an i and a dot
    EXPECT_EQ(wordAt("a", 1).has_value(), false);
}

TEST(CaseFolding, aWordOfTooManyLettersIsNone) {
    EXPECT_EQ(firstWord("textarea"), "textarea");
    EXPECT_EQ(firstWord("textareas"), "-");
    EXPECT_EQ(firstWord("textar\uFB06"), "textarst");
    EXPECT_EQ(firstWord("textare\uFB06"), "-");
    EXPECT_EQ(firstWord("textarea\u017F"), "-");
    EXPECT_EQ(firstWord("text\uFB03\uFB03"), "-");
}

/// Calls \p check with every character of the planes that have upper and lower case, in UTF-8, and what it
/// folds to.
template <typename Check>
void forEachCharacter(Check check) {
    for (UChar32 character = 0; character < 0x20000; ++character) {
        if (U_IS_SURROGATE(character)) continue;
        std::string text;
        std::string folded;
        icu::UnicodeString(character).toUTF8String(text);
        icu::UnicodeString(character).foldCase().toUTF8String(folded);
        check(character, text, folded);
    }
}

TEST(CaseFolding, matchesALetterWhereICUFoldsToIt) {
    forEachCharacter([](UChar32 character, const std::string& text, const std::string& folded) {
        for (std::string letter = "a"; letter <= "z"; ++letter[0]) {
            ASSERT_EQ(endOfMatch(text, 0, letter) != none, folded == letter) << character;
            ASSERT_EQ(startOfMatch(text, text.size(), letter) != none, folded == letter) << character;
        }
    });
}

TEST(CaseFolding, matchesSeveralLettersWhereICUFoldsToThem) {
    forEachCharacter([](UChar32 character, const std::string& text, const std::string& folded) {
        const bool isLetters = folded.find_first_not_of("abcdefghijklmnopqrstuvwxyz") == folded.npos;
        ASSERT_EQ(firstWord(text), isLetters ? folded : "-") << character;
        if (!isLetters) return;
        ASSERT_EQ(endOfMatch(text, 0, folded), text.size()) << character;
        ASSERT_EQ(startOfMatch(text, text.size(), folded), 0U) << character;
    });
}

TEST(CaseFolding, aLetterIsWhatASetOfLettersHoldsInICU) {
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeSet letters(icu::UnicodeString("[a-z]"), status);
    letters.closeOver(USET_CASE_INSENSITIVE);
    ASSERT_TRUE(U_SUCCESS(status));
    forEachCharacter([&](UChar32 character, const std::string& text, const std::string&) {
        const std::size_t expected = letters.contains(character) ? text.size() : 0;
        ASSERT_EQ(letterLengthBefore(text, text.size()), expected) << character;
    });
}

} // namespace
} // namespace quillmar::Markdown::CaseFolding
