#include "Markdown/Backticks.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <string>

namespace quillmar::Markdown {
namespace {

class BackticksTest : public testing::Test {
protected:
    void read(std::string_view text) {
        text_ = text;
        backticks_.reset(text_);
    }

    std::optional<std::size_t> closing(std::size_t from, std::size_t run) {
        return backticks_.closing(from, run, text_.size());
    }

    std::string text_;
    Backticks backticks_;
};

TEST_F(BackticksTest, areCountedInARun) {
    read("a``b```");
    EXPECT_EQ(backticks_.runAt(1, 7), 2U);
    EXPECT_EQ(backticks_.runAt(4, 7), 3U);
    EXPECT_EQ(backticks_.runAt(5, 7), 2U);
}

TEST_F(BackticksTest, areCountedUpToTheLimit) {
    read("a```");
    EXPECT_EQ(backticks_.runAt(1, 3), 2U);
    EXPECT_EQ(backticks_.runAt(1, 1), 0U);
}

TEST_F(BackticksTest, areNoneInARunOfOthers) {
    read("ab");
    EXPECT_EQ(backticks_.runAt(0, 2), 0U);
    EXPECT_EQ(backticks_.runAt(2, 2), 0U);
}

TEST_F(BackticksTest, closeAtTheNextRunOfTheirLength) {
    read("`a`b`");
    EXPECT_EQ(closing(1, 1), 2U);
    EXPECT_EQ(closing(2, 1), 2U);
    EXPECT_EQ(closing(3, 1), 4U);
}

TEST_F(BackticksTest, passRunsOfOtherLengths) {
    read("``a`b```c``");
    EXPECT_EQ(closing(2, 2), 9U);
    EXPECT_EQ(closing(2, 1), 3U);
    EXPECT_EQ(closing(2, 3), 5U);
}

TEST_F(BackticksTest, stayOpenWithoutARunOfTheirLength) {
    read("```a`b``");
    EXPECT_EQ(closing(3, 3), std::nullopt);
    EXPECT_EQ(closing(3, 4), std::nullopt);
    EXPECT_EQ(closing(8, 2), std::nullopt);
}

TEST_F(BackticksTest, closeBeforeTheLimit) {
    read("``a``b``");
    EXPECT_EQ(backticks_.closing(2, 2, 5), 3U);
    EXPECT_EQ(backticks_.closing(2, 2, 4), std::nullopt);
    EXPECT_EQ(backticks_.closing(2, 2, 3), std::nullopt);
}

TEST_F(BackticksTest, doNotCloseAtTheStartOfALongerRunThatTheLimitCuts) {
    read("`a```");
    EXPECT_EQ(backticks_.closing(1, 1, 3), std::nullopt);
    EXPECT_EQ(backticks_.closing(1, 2, 4), std::nullopt);
}

TEST_F(BackticksTest, closeBehindALimitWhenAskedWithALaterOne) {
    read("`a b`c`");
    EXPECT_EQ(backticks_.closing(1, 1, 3), std::nullopt);
    EXPECT_EQ(backticks_.closing(2, 1, 3), std::nullopt);
    EXPECT_EQ(backticks_.closing(3, 1, 7), 4U);
    EXPECT_EQ(backticks_.closing(5, 1, 7), 6U);
}

TEST_F(BackticksTest, closeWhereTheyDidAfterASearchInVain) {
    read("`a`b``c`");
    EXPECT_EQ(closing(3, 3), std::nullopt); // has read all runs to the end
    EXPECT_EQ(closing(1, 1), 2U);
    EXPECT_EQ(closing(3, 1), 7U);
    EXPECT_EQ(closing(3, 2), 4U);
    EXPECT_EQ(closing(6, 2), std::nullopt);
    EXPECT_EQ(closing(8, 1), std::nullopt);
}

TEST_F(BackticksTest, areForgottenWithTheirText) {
    read("a`b");
    EXPECT_EQ(closing(2, 1), std::nullopt);
    EXPECT_EQ(closing(0, 2), std::nullopt);
    read("a``b`");
    EXPECT_EQ(closing(3, 1), 4U);
    EXPECT_EQ(closing(0, 2), 1U);
    read("");
    EXPECT_EQ(closing(0, 1), std::nullopt);
}

TEST_F(BackticksTest, closeWhereASearchFromTheStartFindsThem) {
    std::mt19937 random(1); // the same questions every time
    for (int round = 0; round < 5'000; ++round) {
        std::string text;
        for (std::size_t length = random() % 24; length > 0; --length) text += "`` a"[random() % 4];
        read(text);
        for (int question = 0; question < 12; ++question) {
            std::size_t from = random() % (text.size() + 1);
            if (from > 0 && text[from - 1] == '`') // nobody asks from inside a run
                from = std::min(text.find_first_not_of('`', from), text.size());
            const std::size_t run = 1 + random() % 4;
            const std::size_t limit = from + random() % (text.size() - from + 1);

            std::optional<std::size_t> expected;
            for (std::size_t i = from; i < text.size() && !expected;) {
                std::size_t end = i;
                while (end < text.size() && text[end] == '`') ++end;
                if (end - i == run) expected = i;
                i = end + 1;
            }
            if (expected && *expected + run > limit) expected.reset();
            ASSERT_EQ(backticks_.closing(from, run, limit), expected)
                << text << ", " << run << " from " << from << " to " << limit;
        }
    }
}

} // namespace
} // namespace quillmar::Markdown
