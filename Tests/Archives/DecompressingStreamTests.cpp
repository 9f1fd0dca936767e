#include "Archives/DecompressingStream.h"

#include "Tests/Helpers/Compress.h"
#include "Tests/Helpers/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

using Algorithm = DecompressionFilter::Algorithm;
using Moment = std::chrono::steady_clock::time_point;

constexpr std::int64_t gzipHeaderBytes = 10;

class DecompressingStreamTest : public testing::Test {
protected:
    /// A stream of what \p member, a gzip member without optional fields, decompresses to.
    DecompressingStream& streamOf(DataView member, const Clock& clock = systemClock) {
        file_ = std::make_unique<FileHandle>(folder_.write("data.gz", member));
        file_->seek(gzipHeaderBytes);
        stream_ = std::make_unique<DecompressingStream>(*file_, Algorithm::deflate, Deadline(1, clock));
        return *stream_;
    }

    const Deadline never{1e6};

private:
    TemporaryFolder folder_;
    std::unique_ptr<FileHandle> file_;
    std::unique_ptr<DecompressingStream> stream_;
};

TEST_F(DecompressingStreamTest, readsWhatIsThereAndThenNothing) {
    auto& stream = streamOf(gzip(std::string(100, 'x')));
    EXPECT_EQ(stream.read(512), std::string(100, 'x'));
    EXPECT_EQ(stream.read(512), "");
    EXPECT_FALSE(stream.skip(1, never));
}

TEST_F(DecompressingStreamTest, skipsNothingWithoutReading) {
    auto& stream = streamOf("1234567890"); // no data behind the header: reading would fail
    EXPECT_TRUE(stream.skip(0, never));
}

TEST_F(DecompressingStreamTest, skipsAndReadsAcrossItsPieces) {
    std::string text;
    for (int i = 0; i < 200'000; ++i) text += std::to_string(i) + ",";
    auto& stream = streamOf(gzip(text));
    std::size_t at = 0;
    for (const std::size_t step : {1U, 511U, 262'144U, 262'143U, 3U, 400'000U}) {
        EXPECT_TRUE(stream.skip(static_cast<std::int64_t>(step), never));
        at += step;
        EXPECT_EQ(stream.read(512), text.substr(at, 512));
        at += 512;
    }
    EXPECT_FALSE(stream.skip(static_cast<std::int64_t>(text.size()), never));
    EXPECT_EQ(stream.read(1), "");
}

TEST_F(DecompressingStreamTest, refusesToSkipBackwards) { EXPECT_FALSE(streamOf(gzip("abc")).skip(-1, never)); }

TEST_F(DecompressingStreamTest, throwsOnlyWhenTheBytesBehindACutAreWanted) {
    const Data member = gzip(std::string(300'000, 'x') + "tail");
    auto& stream = streamOf(DataView(member).substr(0, member.size() - 12));
    EXPECT_EQ(stream.read(512), std::string(512, 'x'));
    EXPECT_THROW(stream.read(400'000), DecompressionError);
    EXPECT_THROW(streamOf(DataView(member).substr(0, 11)).read(1), DecompressionError);
}

TEST_F(DecompressingStreamTest, looksAtTheClockWhileSkipping) {
    auto& stream = streamOf(gzip(std::string(8'000'000, 'x')));
    int looks = 0;
    const Clock clock = [&looks] { return Moment(std::chrono::seconds(++looks)); };
    const Deadline inTwoLooks(2.5, clock); // its making is the first look
    EXPECT_FALSE(stream.skip(8'000'000, inTwoLooks));
    EXPECT_EQ(looks, 4);
    EXPECT_NE(stream.read(1), ""); // the data goes on, only the time is over
}

TEST_F(DecompressingStreamTest, givesUpOnInputThatNeverMeansAnything) {
    // Empty stored blocks (RFC 1951, 3.2.4), none of them the last.
    Data blocks(static_cast<std::size_t>(gzipHeaderBytes), ' ');
    for (int i = 0; i < 100'000; ++i) blocks.append("\0\0\0\xFF\xFF", 5);
    int looks = 0;
    auto& stream = streamOf(blocks, [&looks] { return Moment(std::chrono::seconds(++looks)); });
    EXPECT_THROW(stream.read(512), DecompressionError);
    EXPECT_LE(looks, 3);
}

} // namespace
} // namespace quillmar
