#include "Platform/DecompressionFilter.h"

#include "Tests/Helpers/Compress.h"
#include "Tests/Helpers/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <lzma.h>
#include <random>

namespace quillmar {
namespace {

using Algorithm = DecompressionFilter::Algorithm;

struct Outcome {
    Data data;
    bool hasFault = false;
    bool operator==(const Outcome&) const = default;
};

/// Everything that \p compressed gives, \p roomBytes at a time.
Outcome decompressed(DataView compressed, Algorithm algorithm, std::size_t roomBytes = 4'096) {
    const TemporaryFolder folder;
    FileHandle file(folder.write("data", compressed));
    const auto filter = DecompressionFilter::make(file, algorithm);
    Outcome outcome;
    Data room(roomBytes, '\0');
    try {
        while (true) {
            const auto piece = filter->read(std::span(room));
            outcome.data.append(room, 0, piece.count);
            if (piece.isLast) return outcome;
        }
    } catch (const DecompressionError&) {
        outcome.hasFault = true;
    }
    return outcome;
}

/// Deflate data without the header and trailer of gzip, which has neither name nor extra field here.
Data deflate(DataView data) {
    const Data member = gzip(data);
    return member.substr(10, member.size() - 18);
}

Data text(std::size_t bytes) {
    std::mt19937 random(7);
    Data data;
    while (data.size() < bytes)
        data += std::to_string(random() % 10'000) + (random() % 7 == 0 ? "\n" : " beds and ");
    data.resize(bytes);
    return data;
}

TEST(DecompressionFilter, givesBackWhatWasCompressed) {
    const Data original = text(300'000);
    for (const std::size_t room : {1U, 1'000U, 65'536U, 1'000'000U}) {
        EXPECT_EQ(decompressed(deflate(original), Algorithm::deflate, room), (Outcome{original, false}))
            << room;
        EXPECT_EQ(decompressed(xz(original), Algorithm::xz, room), (Outcome{original, false})) << room;
    }
    EXPECT_EQ(decompressed(xz(original, 50'000), Algorithm::xzBlocks), (Outcome{original, false}));
    EXPECT_EQ(decompressed(xz(original), Algorithm::xzBlocks), (Outcome{original, false}));
}

TEST(DecompressionFilter, givesNothingForNothing) {
    EXPECT_EQ(decompressed(deflate(""), Algorithm::deflate), (Outcome{"", false}));
    EXPECT_EQ(decompressed(xz(""), Algorithm::xz), (Outcome{"", false}));
    EXPECT_EQ(decompressed("", Algorithm::deflate), (Outcome{"", true}));
    EXPECT_EQ(decompressed("", Algorithm::xz), (Outcome{"", true}));
}

TEST(DecompressionFilter, ignoresWhatFollowsTheFirstStream) {
    const Data original = text(1'000);
    EXPECT_EQ(decompressed(deflate(original) + "trailer and more", Algorithm::deflate),
              (Outcome{original, false}));
    EXPECT_EQ(decompressed(xz(original) + xz("second"), Algorithm::xz), (Outcome{original, false}));
    EXPECT_EQ(decompressed(xz(original) + "garbage", Algorithm::xzBlocks), (Outcome{original, false}));
}

TEST(DecompressionFilter, deliversWhatCameBeforeACutAndThenFails) {
    const Data original = text(20'000);
    for (const auto& [compressed, algorithm] :
         {std::pair(deflate(original), Algorithm::deflate), std::pair(xz(original), Algorithm::xz),
          std::pair(xz(original, 5'000), Algorithm::xzBlocks)}) {
        std::size_t longest = 0;
        for (std::size_t length = 0; length < compressed.size(); length += 13) {
            const auto outcome = decompressed(DataView(compressed).substr(0, length), algorithm);
            ASSERT_TRUE(outcome.hasFault) << length;
            ASSERT_TRUE(original.starts_with(outcome.data)) << length;
            longest = std::max(longest, outcome.data.size());
        }
        EXPECT_GT(longest, original.size() / 2);
    }
}

TEST(DecompressionFilter, failsOnInvalidCodesBehindWhatWasGood) {
    // A stored block of four bytes (RFC 1951, 3.2.4), then a block of the reserved type 3.
    const Data data("\0\4\0\xFB\xFF"
                    "good\7",
                    10);
    EXPECT_EQ(decompressed(data, Algorithm::deflate), (Outcome{"good", true}));
    EXPECT_EQ(decompressed("\7", Algorithm::deflate), (Outcome{"", true}));
}

TEST(DecompressionFilter, survivesDamageAnywhere) {
    const Data original = text(5'000);
    for (const auto& [compressed, algorithm] :
         {std::pair(deflate(original), Algorithm::deflate), std::pair(xz(original), Algorithm::xz),
          std::pair(xz(original, 2'000), Algorithm::xzBlocks)})
        for (std::size_t at = 0; at < compressed.size(); at += 7) {
            Data damaged = compressed;
            damaged[at] = static_cast<char>(~damaged[at]);
            EXPECT_LE(decompressed(damaged, algorithm).data.size(), 10 * original.size());
        }
}

TEST(DecompressionFilter, takesSeveralThreadsForBlocksThatStateTheirSizes) {
    EXPECT_EQ(DecompressionFilter::forWholeXz(xz(text(5'000), 2'000)), Algorithm::xzBlocks);
    EXPECT_EQ(DecompressionFilter::forWholeXz(xz(text(5'000))), Algorithm::xz);
    EXPECT_EQ(DecompressionFilter::forWholeXz(xz("x").substr(0, 13)), Algorithm::xz);
}

TEST(DecompressionFilter, refusesADictionaryOfGigabytes) {
    // The first block's header: LZMA2 with the largest dictionary that liblzma knows (xz file format, 5.3.1).
    Data damaged = xz("x");
    constexpr std::size_t blockHeader = 12;
    ASSERT_EQ(damaged[blockHeader + 2], '\x21');
    damaged[blockHeader + 4] = 40;
    const auto crc = lzma_crc32(reinterpret_cast<const std::uint8_t*>(damaged.data()) + blockHeader, 8, 0);
    for (std::size_t i = 0; i < 4; ++i) damaged[blockHeader + 8 + i] = static_cast<char>(crc >> (8 * i));
    EXPECT_EQ(decompressed(damaged, Algorithm::xz), (Outcome{"", true}));
}

} // namespace
} // namespace quillmar
