#include "Markdown/Fence.h"

#include <gtest/gtest.h>
#include <string>

namespace quillmar::Markdown {
namespace {

bool isFence(std::string_view line) { return Fence::parse(line).has_value(); }

TEST(Fence, isARunOfAtLeastThreeBackticksOrTildes) {
    EXPECT_TRUE(isFence("```"));
    EXPECT_TRUE(isFence("~~~~~"));
    EXPECT_FALSE(isFence("``"));
    EXPECT_FALSE(isFence("~~"));
    EXPECT_FALSE(isFence("``~"));
    EXPECT_FALSE(isFence("---"));
    EXPECT_FALSE(isFence("x```"));
    EXPECT_FALSE(isFence(""));
    EXPECT_FALSE(isFence("   "));
}

TEST(Fence, knowsItsOpeningRun) {
    const auto fence = Fence::parse("  ~~~~ text");
    ASSERT_TRUE(fence);
    EXPECT_EQ(fence->character, '~');
    EXPECT_EQ(fence->length, 4U);
    EXPECT_EQ(fence->indent, 2U);
    EXPECT_EQ(fence->language, "text");
}

TEST(Fence, isIndentedByAtMostThreeSpaces) {
    EXPECT_TRUE(isFence("   ```"));
    EXPECT_FALSE(isFence("    ```"));
    EXPECT_FALSE(isFence("\t```"));
    EXPECT_FALSE(isFence("\u00A0```"));
}

TEST(Fence, hasTheFirstWordBehindTheRunAsLanguage) {
    EXPECT_EQ(Fence::parse("```js linenos")->language, "js");
    EXPECT_EQ(Fence::parse("``` \t\u00A0js\u00A0 ")->language, "js");
    EXPECT_EQ(Fence::parse("~~~~c")->language, "c");
    EXPECT_EQ(Fence::parse("```   ")->language, "");
    EXPECT_EQ(Fence::parse("```js\tx y")->language, "js\tx");
    EXPECT_EQ(Fence::parse("```\xFF <\"&")->language, "\xFF");
}

TEST(Fence, ofBackticksHasNoFurtherBacktickInItsLine) {
    EXPECT_FALSE(isFence("```js `x"));
    EXPECT_FALSE(isFence("``` ```"));
    EXPECT_TRUE(isFence("```js ~~~"));
}

TEST(Fence, ofTildesMayHaveBackticksAndTildesInItsLine) {
    EXPECT_EQ(Fence::parse("~~~ `js` ~~~")->language, "`js`");
}

TEST(Fence, isClosedByARunAtLeastAsLong) {
    const auto fence = Fence::parse("````");
    ASSERT_TRUE(fence);
    EXPECT_TRUE(fence->isClosedBy("````"));
    EXPECT_TRUE(fence->isClosedBy("``````"));
    EXPECT_FALSE(fence->isClosedBy("```"));
    EXPECT_FALSE(fence->isClosedBy(""));
}

TEST(Fence, isNotClosedByAnotherCharacterOrFurtherText) {
    const auto fence = Fence::parse("```");
    ASSERT_TRUE(fence);
    EXPECT_FALSE(fence->isClosedBy("~~~"));
    EXPECT_FALSE(fence->isClosedBy("```~"));
    EXPECT_FALSE(fence->isClosedBy("``` x"));
    EXPECT_FALSE(fence->isClosedBy("``` ```"));
    EXPECT_FALSE(fence->isClosedBy("```\u2028"));
}

TEST(Fence, isClosedAtAnyIndentationBelowFour) {
    const auto fence = Fence::parse("~~~");
    ASSERT_TRUE(fence);
    EXPECT_TRUE(fence->isClosedBy("   ~~~ \t"));
    EXPECT_TRUE(fence->isClosedBy(" \u00A0 ~~~\u3000"));
    EXPECT_FALSE(fence->isClosedBy("    ~~~"));
}

} // namespace
} // namespace quillmar::Markdown
