#include "Platform/ParallelLoop.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <string>
#include <vector>

namespace quillmar {
namespace {

TEST(ParallelLoop, callsWithEachNumberOnce) {
    std::vector<std::atomic<int>> calls(1'000);
    concurrentPerform(calls.size(), [&calls](std::size_t i) { ++calls.at(i); });
    for (std::size_t i = 0; i < calls.size(); ++i) EXPECT_EQ(calls[i], 1) << i;
}

TEST(ParallelLoop, callsNothingForNoNumbers) {
    std::atomic<int> calls = 0;
    concurrentPerform(0, [&calls](std::size_t) { ++calls; });
    EXPECT_EQ(calls, 0);
}

TEST(ParallelLoop, callsOnceForOneNumber) {
    std::vector<std::size_t> numbers;
    concurrentPerform(1, [&numbers](std::size_t i) { numbers.push_back(i); });
    EXPECT_EQ(numbers, std::vector<std::size_t>{0});
}

TEST(ParallelLoop, throwsWhatACallThrew) {
    try {
        concurrentPerform(100, [](std::size_t i) {
            if (i == 57) throw std::runtime_error("the 57th");
        });
        FAIL() << "nothing was thrown";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "the 57th");
    }
}

TEST(ParallelLoop, throwsOnceWhenEveryCallThrows) {
    EXPECT_THROW(concurrentPerform(100, [](std::size_t i) { throw std::out_of_range(std::to_string(i)); }),
                 std::out_of_range);
}

TEST(ParallelLoop, makesTheOtherCallsWhenOneThrows) {
    std::vector<std::atomic<int>> calls(100);
    EXPECT_THROW(concurrentPerform(calls.size(),
                                   [&calls](std::size_t i) {
                                       ++calls.at(i);
                                       if (i == 0) throw std::runtime_error("the first");
                                   }),
                 std::runtime_error);
    for (std::size_t i = 0; i < calls.size(); ++i) EXPECT_EQ(calls[i], 1) << i;
}

TEST(ParallelLoop, worksAgainAfterAnException) {
    EXPECT_THROW(concurrentPerform(2, [](std::size_t) { throw std::runtime_error("once"); }),
                 std::runtime_error);
    std::atomic<std::size_t> sum = 0;
    concurrentPerform(5, [&sum](std::size_t i) { sum += i; });
    EXPECT_EQ(sum, 10U);
}

TEST(ParallelLoop, hasAThreadAtLeast) { EXPECT_GE(concurrentThreads(), 1U); }

} // namespace
} // namespace quillmar
