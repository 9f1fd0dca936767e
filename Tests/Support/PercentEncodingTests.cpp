#include "Support/PercentEncoding.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

TEST(PercentEncoding, replacesEscapesByTheirBytes) {
    EXPECT_EQ(removingPercentEncoding("a%20b.png"), "a b.png");
    EXPECT_EQ(removingPercentEncoding("%41%7e%7E"), "A~~");
}

TEST(PercentEncoding, joinsBytesToCharacters) {
    EXPECT_EQ(removingPercentEncoding("%C3%A9t%c3%a9"), "été");
    EXPECT_EQ(removingPercentEncoding("\xC3%A9"), "é"); // half of the character stands as it is
}

TEST(PercentEncoding, keepsTextWithoutEscapes) {
    EXPECT_EQ(removingPercentEncoding(""), "");
    EXPECT_EQ(removingPercentEncoding("images/été+1.png"), "images/été+1.png");
}

TEST(PercentEncoding, decodesOnlyOnce) { EXPECT_EQ(removingPercentEncoding("%2520"), "%20"); }

TEST(PercentEncoding, decodesNUL) { EXPECT_EQ(removingPercentEncoding("a%00b"), std::string("a\0b", 3)); }

TEST(PercentEncoding, failsWithoutTwoHexadecimalDigits) {
    for (const std::string_view text :
         {"%", "a%", "a%4", "%4", "%G0", "%0G", "%%41", "100% sure.png", "% 41", "%\u00E9", "a%20b%"})
        EXPECT_EQ(removingPercentEncoding(text), std::nullopt) << text;
}

TEST(PercentEncoding, failsWhenTheResultIsNotUTF8) {
    EXPECT_EQ(removingPercentEncoding("%FF"), std::nullopt);
    EXPECT_EQ(removingPercentEncoding("%C3"), std::nullopt);
    EXPECT_EQ(removingPercentEncoding("%C0%AF"), std::nullopt);    // an overlong slash
    EXPECT_EQ(removingPercentEncoding("%ED%A0%80"), std::nullopt); // a surrogate
    EXPECT_EQ(removingPercentEncoding("\xFF"), std::nullopt);
}

} // namespace
} // namespace quillmar
