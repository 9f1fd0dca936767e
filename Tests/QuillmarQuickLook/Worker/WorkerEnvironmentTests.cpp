#include "QuillmarQuickLook/Worker/WorkerEnvironment.h"

#include "Tests/Helpers/Environment.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace quillmar {
namespace {

const std::string memory = std::string("GLIBC_TUNABLES=") + WorkerEnvironment::memoryOfWorkers;

std::ptrdiff_t timesIn(const std::vector<std::string>& variables, const std::string& variable) {
    return std::ranges::count(variables, variable);
}

TEST(WorkerEnvironment, holdsWhatThisProcessHas) {
    const ScopedEnvironment environment{{"QUILLMAR_TEST", "a=b c"}};
    EXPECT_EQ(timesIn(WorkerEnvironment::variables(), "QUILLMAR_TEST=a=b c"), 1);
}

TEST(WorkerEnvironment, saysHowMemoryIsHad) {
    const ScopedEnvironment environment{{"GLIBC_TUNABLES", std::nullopt}};
    EXPECT_EQ(timesIn(WorkerEnvironment::variables(), memory), 1);
}

TEST(WorkerEnvironment, leavesTheUsersTunablesAsTheyAre) {
    const ScopedEnvironment environment{{"GLIBC_TUNABLES", "glibc.malloc.check=3"}};
    const std::vector<std::string> variables = WorkerEnvironment::variables();
    EXPECT_EQ(timesIn(variables, "GLIBC_TUNABLES=glibc.malloc.check=3"), 1);
    EXPECT_EQ(timesIn(variables, memory), 0);
}

} // namespace
} // namespace quillmar
