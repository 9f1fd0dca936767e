#include "Platform/Text.h"

#include <array>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <string_view>
#include <unicode/normalizer2.h>

namespace quillmar {
namespace {

TEST(DecodedText, copiesValidTextWithItsControlCharacters) {
    const std::string text("a\0b\x1B[1m\r\n", 9);
    EXPECT_EQ(decodedText(text), text);
    EXPECT_EQ(decodedText(""), "");
}

TEST(DecodedText, dropsOneByteOrderMark) {
    EXPECT_EQ(decodedText("\uFEFFa"), "a");
    EXPECT_EQ(decodedText("\uFEFF\uFEFFa"), "\uFEFFa");
    EXPECT_EQ(decodedText("a\uFEFF"), "a\uFEFF");
    EXPECT_EQ(decodedText("\xEF\xBB"), "\uFFFD");
}

TEST(DecodedText, replacesEachMaximalSubpartOnce) {
    EXPECT_EQ(decodedText("a\xFFz"), "a\uFFFDz");
    EXPECT_EQ(decodedText("\xF0\x9F\x8C"), "\uFFFD");
    EXPECT_EQ(decodedText("\xF0\x9F\xF0\x9F"), "\uFFFD\uFFFD");
    EXPECT_EQ(decodedText("\xED\xA0\x80"), "\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(decodedText("\xC0\xAF"), "\uFFFD\uFFFD");
    // The example of the Unicode standard, table 3-8.
    EXPECT_EQ(decodedText("\xF1\x80\x80\xE1\x80\xC2\x62\x80\x63\x80\xBF\x64"),
              "\uFFFD\uFFFD\uFFFD\x62\uFFFD\x63\uFFFD\uFFFD\x64");
}

TEST(RepairedText, keepsAByteOrderMark) { EXPECT_EQ(repairedText("\uFEFFa\xFF"), "\uFEFFa\uFFFD"); }

TEST(Lowercased, usesTheFullMapping) {
    EXPECT_EQ(lowercased("README.Md"), "readme.md");
    EXPECT_EQ(lowercased("ÀÉ"), "àé");
    EXPECT_EQ(lowercased("İ"), "i\u0307");
    EXPECT_EQ(lowercased("ΟΔΟΣ"), "οδος"); // a final sigma
}

TEST(CanonicalForm, isTheSameForEquivalentTexts) {
    EXPECT_EQ(canonicalForm("e\u0301"), canonicalForm("\u00E9"));
    EXPECT_EQ(canonicalForm("\u212B"), "\u00C5"); // the ångström sign
    EXPECT_NE(canonicalForm("e"), canonicalForm("\u00E9"));
    EXPECT_NE(canonicalForm("\uFB01"), canonicalForm("fi")); // compatible, not equivalent
}

/// By ICU alone.
std::string normalized(const std::string& text) {
    UErrorCode status = U_ZERO_ERROR;
    std::string result;
    icu::Normalizer2::getNFCInstance(status)
        ->normalize(icu::UnicodeString::fromUTF8(text), status)
        .toUTF8String(result);
    return result;
}

TEST(CanonicalForm, ofManyMarksIsThatOfFew) {
    // Marks of several classes, some that decompose into others, letters that compose with them, Hangul.
    constexpr std::array<std::string_view, 14> characters{"\u0301", "\u0323", "\u0334", "\u0344",    "\u0F71",
                                                          "\u0F72", "\u0F73", "\u0F81", "e",         "\u00E9",
                                                          "\u1EC7", "\u1100", "\u1161", "\U0001D15E"};
    std::mt19937 random(1);
    for (int i = 0; i < 2'000; ++i) {
        const std::size_t choices = i % 2 == 0 ? characters.size() : 8; // marks only
        std::string text;
        while (text.size() < 130 + random() % 800) text.append(characters.at(random() % choices));
        ASSERT_EQ(canonicalForm(text), normalized(text)) << text;
    }
}

TEST(CanonicalForm, ofALongTextIsTheTextItself) {
    const std::string filler(maxCanonicalBytes, 'a');
    EXPECT_EQ(canonicalForm(filler + "e\u0301"), filler + "e\u0301");
    EXPECT_EQ(canonicalForm(filler.substr(3) + "e\u0301"), filler.substr(3) + "\u00E9");
}

} // namespace
} // namespace quillmar
