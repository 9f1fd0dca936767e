#include "Platform/UTF8.h"

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
