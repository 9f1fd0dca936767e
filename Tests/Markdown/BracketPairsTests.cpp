#include "Markdown/BracketPairs.h"

#include "Tests/Helpers/Markdown.h"

#include <gtest/gtest.h>

namespace quillmar::Markdown {
namespace {

class BracketPairsTest : public testing::Test {
protected:
    void read(std::string text) {
        text_ = std::move(text);
        backticks_.reset(text_);
        pairs_.reset(text_);
    }

    /// The position of the bracket that closes the one at \p open, in the text as a whole.
    std::optional<std::size_t> closing(std::size_t open) {
        const auto found = pairs_.closing(open, text_.size(), BracketPairs::noWalk);
        return found ? std::optional(found->position) : std::nullopt;
    }

    /// In what the brackets \p outer hold.
    std::optional<std::size_t> closingIn(const BracketPairs::Closing& outer, std::size_t open) {
        const auto found = pairs_.closing(open, outer.position, outer.walk);
        return found ? std::optional(found->position) : std::nullopt;
    }

    std::string text_;
    Backticks backticks_;
    BracketPairs pairs_{backticks_};
};

TEST_F(BracketPairsTest, closeWhatTheyOpen) {
    read("[a] [] [b");
    EXPECT_EQ(closing(0), 2U);
    EXPECT_EQ(closing(4), 5U);
    EXPECT_EQ(closing(7), std::nullopt);
}

TEST_F(BracketPairsTest, nest) {
    read("[a [b [c] [d]] e]");
    EXPECT_EQ(closing(0), 16U);
    EXPECT_EQ(closing(3), 13U);
    EXPECT_EQ(closing(6), 8U);
    EXPECT_EQ(closing(10), 12U);
}

TEST_F(BracketPairsTest, closeInsideOnesThatStayOpen) {
    read("[a [b] [c [d]");
    EXPECT_EQ(closing(0), std::nullopt);
    EXPECT_EQ(closing(3), 5U);
    EXPECT_EQ(closing(7), std::nullopt);
    EXPECT_EQ(closing(10), 12U);
}

TEST_F(BracketPairsTest, passEscapedCharacters) {
    read("[\\]\\[a\\\\]b]");
    EXPECT_EQ(closing(0), 8U);
    read("[a\\]");
    EXPECT_EQ(closing(0), std::nullopt);
    read("[a\\");
    EXPECT_EQ(closing(0), std::nullopt);
    read("[\\\u00E9]");
    EXPECT_EQ(closing(0), 4U);
}

TEST_F(BracketPairsTest, passCode) {
    read("[`]` ``a`]`[`` ]");
    EXPECT_EQ(closing(0), 15U);
}

TEST_F(BracketPairsTest, doNotPassBackticksWithoutPartner) {
    read("[`a] ``");
    EXPECT_EQ(closing(0), 3U);
    read("[\\`a]`"); // escaped, the first is no part of code
    EXPECT_EQ(closing(0), 4U);
}

TEST_F(BracketPairsTest, passCodeThatEndsBehindThem) {
    read("[`a] `");
    EXPECT_EQ(closing(0), std::nullopt);
}

TEST_F(BracketPairsTest, closeBeforeTheLimit) {
    read("[a]");
    EXPECT_TRUE(pairs_.closing(0, 3, BracketPairs::noWalk));
    read("[a]");
    EXPECT_FALSE(pairs_.closing(0, 2, BracketPairs::noWalk));
}

TEST_F(BracketPairsTest, areKnownInsideThoseThatAreKnown) {
    read("[a [b] [c]](d) [e]");
    const auto outer = pairs_.closing(0, text_.size(), BracketPairs::noWalk);
    ASSERT_TRUE(outer);
    EXPECT_EQ(outer->position, 10U);
    const auto first = pairs_.closing(3, outer->position, outer->walk);
    ASSERT_TRUE(first);
    EXPECT_EQ(first->position, 5U);
    EXPECT_EQ(first->walk, outer->walk);
    EXPECT_EQ(closingIn(*outer, 7), 9U);
    EXPECT_EQ(closing(15), 17U);
}

TEST_F(BracketPairsTest, areKnownAtEveryDepth) {
    read("[[[[a]]]]");
    auto outer = pairs_.closing(0, text_.size(), BracketPairs::noWalk);
    for (std::size_t open = 1; open < 4; ++open) {
        ASSERT_TRUE(outer);
        EXPECT_EQ(outer->position, 9U - open);
        outer = pairs_.closing(open, outer->position, outer->walk);
    }
    ASSERT_TRUE(outer);
    EXPECT_EQ(outer->position, 5U);
}

TEST_F(BracketPairsTest, areFoundWhereTheBracketBeforeSawCode) {
    // The first one pairs the backtick in the tag with the one behind "e"; the scan skips the tag.
    read("[a <b c=`> [d] e` [f] g]");
    EXPECT_EQ(closing(0), 23U);
    EXPECT_EQ(closing(11), 13U);
    EXPECT_EQ(closing(18), 20U);
}

TEST_F(BracketPairsTest, mayReachBehindTheOneBefore) {
    // Each sees the brackets that the other takes for code.
    read("[<aa:`>[<aa:`>]<aa:`>]");
    EXPECT_EQ(closing(0), 14U);
    EXPECT_EQ(closing(7), 21U);
}

TEST_F(BracketPairsTest, areFoundWhenEachSeesTheNextAsCode) {
    // An odd address hides the bracket of an even one, and the other way round.
    read("[<aa:`>" + repeated("[<aa:`>]", 6) + "<aa:`>]");
    EXPECT_EQ(closing(0), 14U);
    for (std::size_t open = 7; open < 40; open += 8) EXPECT_EQ(closing(open), open + 15) << open;
    EXPECT_EQ(closing(47), 61U);
}

TEST_F(BracketPairsTest, areSoughtWithinTheirLimitWhereTheOuterOneSawCode) {
    read("[<b c=`>[d`]e]");
    const auto outer = pairs_.closing(0, text_.size(), BracketPairs::noWalk);
    ASSERT_TRUE(outer);
    EXPECT_EQ(outer->position, 11U);
    EXPECT_EQ(closingIn(*outer, 8), std::nullopt); // what would close it closes the outer one
}

TEST_F(BracketPairsTest, areFoundWithinTheirLimitWhereTheOuterOneSawCode) {
    read("[<b c=`>[d [e]]`]");
    const auto outer = pairs_.closing(0, text_.size(), BracketPairs::noWalk);
    ASSERT_TRUE(outer);
    EXPECT_EQ(outer->position, 16U);
    const auto inner = pairs_.closing(8, outer->position, outer->walk);
    ASSERT_TRUE(inner);
    EXPECT_EQ(inner->position, 14U);
    EXPECT_EQ(closingIn(*inner, 11), 13U);
}

TEST_F(BracketPairsTest, areSoughtAnewInAnotherText) {
    read("[a");
    EXPECT_EQ(closing(0), std::nullopt);
    read("[]");
    EXPECT_EQ(closing(0), 1U);
    read("[[");
    EXPECT_EQ(closing(0), std::nullopt);
}

/// "[" with a run of backticks behind it, as often as asked for, each run of another length. They close at the
/// end, where one "]" could close every bracket that does not see another.
std::string hidingEachOther(std::size_t brackets) {
    std::string text;
    for (std::size_t run = 1; run <= brackets; ++run) text += "[" + repeated("`", run);
    text += repeated("a", 100'000);
    for (std::size_t run = 1; run <= brackets; ++run) text += repeated("`", run) + "a";
    return text += "]";
}

TEST_F(BracketPairsTest, areFoundForAsLongAsTheWalksStayInProportion) {
    read(hidingEachOther(BracketPairs::maxWalks));
    std::size_t open = 0;
    for (std::size_t run = 1; run <= BracketPairs::maxWalks; ++run) {
        EXPECT_EQ(closing(open), text_.size() - 1) << run;
        open += 1 + run;
    }
}

TEST_F(BracketPairsTest, areTextWhenTheWalksWouldGoOnAndOn) {
    constexpr std::size_t brackets = 64;
    read(hidingEachOther(brackets));
    std::size_t open = 0;
    std::size_t found = 0;
    std::optional<std::size_t> last;
    for (std::size_t run = 1; run <= brackets; ++run) {
        last = closing(open);
        if (last) ++found;
        open += 1 + run;
    }
    EXPECT_EQ(last, std::nullopt);
    EXPECT_LT(found, 2 * BracketPairs::maxWalks);
}

TEST_F(BracketPairsTest, mayBeWalkedThroughAgainInAnotherText) {
    read(hidingEachOther(64));
    for (std::size_t run = 1, open = 0; run <= 64; open += 1 + run, ++run) closing(open);
    read("[a]");
    EXPECT_EQ(closing(0), 2U);
}

} // namespace
} // namespace quillmar::Markdown
