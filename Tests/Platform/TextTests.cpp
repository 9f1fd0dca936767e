#include "Platform/Text.h"

#include "Platform/UTF8.h"

#include <array>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <string_view>
#include <unicode/locid.h>
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

TEST(Lowercased, isThatOfICUForEveryCharacter) {
    constexpr char32_t last = 0x10FFFF;
    std::string text;
    const auto expectSame = [&text] {
        const auto expected = icu::UnicodeString::fromUTF8(text).toLower(icu::Locale::getRoot());
        std::string lower;
        ASSERT_EQ(lowercased(text), expected.toUTF8String(lower));
        text.clear();
    };
    for (char32_t character = 0; character <= last; ++character) {
        const bool isSurrogate = character >= 0xD800 && character < 0xE000;
        const bool dependsOnOthers = character == 0x0130 || character == 0x03A3; // see above
        if (isSurrogate || dependsOnOthers) continue;
        UTF8::append(text, character);
        if (text.size() > 1'000 || character == last) expectSame();
    }
}

TEST(Lowercased, keepsWhatIsIllFormed) { EXPECT_EQ(lowercased("A\xFFÉ\xC3"), "a\xFFé\xC3"); }

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

TEST(CanonicalForm, isThatOfICUForShortTexts) {
    std::mt19937 random(1);
    for (int i = 0; i < 20'000; ++i) {
        // Half of the texts have Latin letters only, which are not looked at one by one.
        const char32_t end = i % 2 == 0 ? 0x300 : 0x380;
        std::string text;
        for (std::size_t length = random() % 6; length > 0; --length)
            UTF8::append(text, static_cast<char32_t>(random() % end));
        ASSERT_EQ(canonicalForm(text), normalized(text)) << text;
    }
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
