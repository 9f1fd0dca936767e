#include "Markdown/NextOccurrence.h"

#include <gtest/gtest.h>
#include <random>
#include <string>

namespace quillmar::Markdown {
namespace {

constexpr std::size_t none = std::string_view::npos;

TEST(NextOccurrence, isTheFirstFromAPositionOn) {
    NextOccurrence next(">");
    EXPECT_EQ(next.find("a>b>", 0), 1U);
    EXPECT_EQ(next.find("a>b>", 1), 1U);
    EXPECT_EQ(next.find("a>b>", 2), 3U);
}

TEST(NextOccurrence, mayBeNone) {
    NextOccurrence next(">");
    EXPECT_EQ(next.find("a>b", 2), none);
    EXPECT_EQ(next.find("a>b", 3), none);
}

TEST(NextOccurrence, staysNoneFurtherOn) {
    NextOccurrence next(">");
    const std::string text(100, 'a');
    for (std::size_t position = 0; position <= text.size(); ++position)
        EXPECT_EQ(next.find(text, position), none) << position;
}

TEST(NextOccurrence, mayBeOfSeveralCharacters) {
    NextOccurrence next("-->");
    EXPECT_EQ(next.find("a--->-->", 0), 2U);
    EXPECT_EQ(next.find("a--->-->", 3), 5U);
    EXPECT_EQ(next.find("a--->-->", 6), none);
}

TEST(NextOccurrence, mayBeAskedFromFurtherBack) {
    NextOccurrence next(">");
    EXPECT_EQ(next.find(">a>", 1), 2U);
    EXPECT_EQ(next.find(">a>", 0), 0U);
    EXPECT_EQ(next.find(">a", 1), none);
    EXPECT_EQ(next.find(">a", 0), 0U);
}

TEST(NextOccurrence, isNoneInAnEmptyText) {
    NextOccurrence next(">");
    EXPECT_EQ(next.find("", 0), none);
}

TEST(NextOccurrence, isSoughtAnewInAnotherText) {
    NextOccurrence next(">");
    EXPECT_EQ(next.find("aaa>", 0), 3U);
    next.reset();
    EXPECT_EQ(next.find("a>aa", 0), 1U);
    next.reset();
    EXPECT_EQ(next.find("aaaa", 0), none);
    next.reset();
    EXPECT_EQ(next.find("aaa>", 0), 3U);
}

TEST(NextOccurrence, isWhatASearchFinds) {
    std::mt19937 random(1); // the same questions every time
    for (int round = 0; round < 2'000; ++round) {
        std::string text;
        for (std::size_t length = random() % 24; length > 0; --length) text += "ab"[random() % 2];
        NextOccurrence next("ab");
        for (std::size_t position = 0; position <= text.size(); position += random() % 3)
            ASSERT_EQ(next.find(text, position), text.find("ab", position)) << text << " from " << position;
    }
}

} // namespace
} // namespace quillmar::Markdown
