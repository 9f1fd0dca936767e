#include "Platform/UTF8.h"

#include <array>
#include <gtest/gtest.h>
#include <string>

namespace quillmar::UTF8 {
namespace {

TEST(UTF8, readsCodePointsOfEveryLength) {
    const std::string text = "a\u00E9\u20AC\U0001F331";
    EXPECT_EQ(codePointAt(text, 0).value, U'a');
    EXPECT_EQ(codePointAt(text, 1).value, U'\u00E9');
    EXPECT_EQ(codePointAt(text, 3).value, U'\u20AC');
    EXPECT_EQ(codePointAt(text, 6).value, U'\U0001F331');
    EXPECT_EQ(codePointAt(text, 6).length, 4U);
    EXPECT_TRUE(codePointAt(text, 6).isWellFormed);
}

TEST(UTF8, writesWhatItReads) {
    constexpr std::array<char32_t, 10> characters{0x0,    0x7F,   0x80,   0x7FF,   0x800,
                                                  0xD7FF, 0xE000, 0xFFFF, 0x10000, 0x10FFFF};
    for (const char32_t character : characters) {
        std::string text = "a";
        append(text, character);
        const CodePoint read = codePointAt(text, 1);
        EXPECT_EQ(read.value, character);
        EXPECT_EQ(read.length, text.size() - 1);
        EXPECT_TRUE(read.isWellFormed);
    }
}

TEST(UTF8, takesOneMaximalSubpartOfAnIllFormedSequence) {
    const auto cut = codePointAt("\xF0\x9F\x8C", 0); // a character of four bytes without its last
    EXPECT_FALSE(cut.isWellFormed);
    EXPECT_EQ(cut.length, 3U);
    EXPECT_EQ(codePointAt("\xF0\x9F"
                          "a",
                          0)
                  .length,
              2U);
    EXPECT_EQ(codePointAt("\xC0\xAF", 0).length, 1U);     // an overlong slash
    EXPECT_EQ(codePointAt("\xED\xA0\x80", 0).length, 1U); // a surrogate
    EXPECT_EQ(codePointAt("\x80", 0).length, 1U);
}

TEST(UTF8, readsCodePointsBackwards) {
    const std::string text = "a\u00E9\u20AC\U0001F331";
    EXPECT_EQ(codePointBefore(text, 1).value, U'a');
    EXPECT_EQ(codePointBefore(text, 3).value, U'\u00E9');
    EXPECT_EQ(codePointBefore(text, 6).value, U'\u20AC');
    EXPECT_EQ(codePointBefore(text, 10).value, U'\U0001F331');
    EXPECT_EQ(codePointBefore(text, 10).length, 4U);
    EXPECT_TRUE(codePointBefore(text, 10).isWellFormed);
}

TEST(UTF8, takesOneMaximalSubpartBackwards) {
    const auto cut = codePointBefore("x\xF0\x9F\x8C", 4);
    EXPECT_EQ(cut.value, U'\uFFFD');
    EXPECT_EQ(cut.length, 3U);
    EXPECT_FALSE(cut.isWellFormed);
    EXPECT_EQ(codePointBefore("\x80\x80\x80\x80\x80\x80", 6).length, 1U);
    EXPECT_EQ(codePointBefore("\u00E9", 1).length, 1U); // only the lead byte
    EXPECT_EQ(codePointBefore("\x80", 1).length, 1U);
}

TEST(UTF8, readsTheSameInBothDirections) {
    // One byte of each kind, in every order.
    constexpr std::string_view bytes = "a\x80\x9F\xA0\xC2\xE0\xED\xF0\xF4\xFF";
    for (std::size_t number = 0; number < 100'000; ++number) {
        std::string text;
        for (std::size_t rest = number, digits = 0; digits < 5; ++digits, rest /= 10) text += bytes[rest % 10];
        for (std::size_t start = 0; start < text.size();) {
            const CodePoint forwards = codePointAt(text, start);
            start += forwards.length;
            const CodePoint backwards = codePointBefore(text, start);
            ASSERT_EQ(backwards.value, forwards.value) << number;
            ASSERT_EQ(backwards.length, forwards.length) << number;
        }
    }
}

TEST(UTF8, findsTheFirstFaultWhereverItStands) {
    for (std::size_t length = 0; length < 40; ++length) {
        const std::string ascii(length, 'x');
        EXPECT_EQ(validPrefix(ascii), length);
        EXPECT_EQ(validPrefix(ascii + "é" + ascii), 2 * length + 2);
        EXPECT_EQ(validPrefix(ascii + "\xFF" + ascii), length);
        EXPECT_EQ(validPrefix(ascii + "\xE2\x82"), length);
    }
}

TEST(UTF8, knowsASCII) {
    EXPECT_TRUE(isASCII(""));
    EXPECT_TRUE(isASCII(std::string(100, '\x7F')));
    EXPECT_FALSE(isASCII(std::string(100, 'a') + "\x80"));
}

} // namespace
} // namespace quillmar::UTF8
