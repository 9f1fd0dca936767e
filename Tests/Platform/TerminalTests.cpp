#include "Platform/Terminal.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

TEST(PrintableLine, showsControlCharactersAsQuestionMarks) {
    EXPECT_EQ(printableLine("a\nb\x1B[2Jc\x7F\u0085"), "a?b?[2Jc??");
    EXPECT_EQ(printableLine("été \U0001F331"), "été \U0001F331");
    EXPECT_EQ(printableLine("a\xFF"), "a\uFFFD");
}

} // namespace
} // namespace quillmar
