#include "Support/SaturatingSum.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

TEST(SaturatingSum, stopsAtTheLimits) {
    constexpr auto largest = std::numeric_limits<std::int64_t>::max();
    constexpr auto smallest = std::numeric_limits<std::int64_t>::min();
    EXPECT_EQ(saturatingSum(2, 3), 5);
    EXPECT_EQ(saturatingSum(largest, 1), largest);
    EXPECT_EQ(saturatingSum(largest, largest), largest);
    EXPECT_EQ(saturatingSum(smallest, -1), smallest);
    EXPECT_EQ(saturatingSum(largest, smallest), -1);
}

} // namespace
} // namespace quillmar
