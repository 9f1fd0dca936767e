#include "Platform/Text.h"

#include <gtest/gtest.h>
#include <string_view>
#include <unicode/unistr.h>

namespace quillmar {
namespace {

using namespace std::string_view_literals;

TEST(CodePage437, decodesLettersAndBoxes) {
    EXPECT_EQ(textFromCodePage437("\x81\x82"), "üé");
    EXPECT_EQ(textFromCodePage437("S\x81\xE1"), "Süß");
    EXPECT_EQ(textFromCodePage437("\x80\x8F\x90\x9F"), "ÇÅÉƒ");
    EXPECT_EQ(textFromCodePage437("\xA0\xAF\xB0\xBF"), "á»░┐");
    EXPECT_EQ(textFromCodePage437("\xC0\xCF\xD0\xDF"), "└╧╨▀");
    EXPECT_EQ(textFromCodePage437("\xE0\xEF\xF0\xFF"), "α∩≡\u00A0");
    EXPECT_EQ(textFromCodePage437("\xE6"), "\u00B5") << "the micro sign of CP437.TXT";
}

TEST(CodePage437, hasTheUpperHalfThatICUKnows) {
    for (int byte = 0x80; byte <= 0xFF; ++byte) {
        if (byte == 0xE6) continue; // ICU follows IBM, who has a Greek letter there
        const char c = static_cast<char>(byte);
        std::string expected;
        icu::UnicodeString(&c, 1, "ibm-437").toUTF8String(expected);
        EXPECT_EQ(textFromCodePage437({&c, 1}), expected) << byte;
    }
}

TEST(CodePage437, hasASCIIAsLowerHalf) {
    for (int byte = 0; byte < 0x80; ++byte) {
        const char c = static_cast<char>(byte);
        EXPECT_EQ(textFromCodePage437({&c, 1}), std::string(1, c)) << byte;
    }
    EXPECT_EQ(textFromCodePage437(""), "");
}

TEST(Latin1, isTheFirst256CodePoints) {
    EXPECT_EQ(textFromLatin1(""), "");
    EXPECT_EQ(textFromLatin1("a\0~\x7F"sv), "a\0~\x7F"sv);
    EXPECT_EQ(textFromLatin1("r\xE9sum\xE9"), "résumé");
    EXPECT_EQ(textFromLatin1("\x80\x9F\xA0\xBF\xC0\xFF"), "\u0080\u009F\u00A0¿Àÿ");
}

} // namespace
} // namespace quillmar
