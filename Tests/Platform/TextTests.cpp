#include "Platform/Text.h"

#include <gtest/gtest.h>

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

TEST(CanonicalForm, ofALongTextIsTheTextItself) {
    const std::string filler(maxCanonicalBytes, 'a');
    EXPECT_EQ(canonicalForm(filler + "e\u0301"), filler + "e\u0301");
    EXPECT_EQ(canonicalForm(filler.substr(3) + "e\u0301"), filler.substr(3) + "\u00E9");
}

} // namespace
} // namespace quillmar
