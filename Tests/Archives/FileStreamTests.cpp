#include "Archives/FileStream.h"

#include "Tests/Helpers/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <limits>

namespace quillmar {
namespace {

constexpr auto largest = std::numeric_limits<std::int64_t>::max();

class FileStreamTest : public testing::Test {
protected:
    TemporaryFolder folder;
    FileHandle file{folder.write("data", "0123456789")};
    FileStream stream{file};
    Deadline never{1e6};
};

TEST_F(FileStreamTest, readsUntilTheEnd) {
    EXPECT_EQ(stream.read(4), "0123");
    EXPECT_EQ(stream.read(400), "456789");
    EXPECT_EQ(stream.read(4), "");
}

TEST_F(FileStreamTest, skipsBySeeking) {
    EXPECT_TRUE(stream.skip(3, never));
    EXPECT_TRUE(stream.skip(0, never));
    EXPECT_EQ(stream.read(2), "34");
    EXPECT_TRUE(stream.skip(5, never));
    EXPECT_EQ(stream.read(2), "");
}

TEST_F(FileStreamTest, aSkipPastTheEndStopsThere) {
    EXPECT_FALSE(stream.skip(1'000, never));
    EXPECT_EQ(stream.read(1), "");
    EXPECT_TRUE(stream.skip(0, never));
}

TEST_F(FileStreamTest, refusesSkipsThatNoFileCanHold) {
    stream.read(1);
    EXPECT_FALSE(stream.skip(largest, never));
    EXPECT_FALSE(stream.skip(-1, never));
    EXPECT_EQ(stream.read(1), "1");
}

} // namespace
} // namespace quillmar
