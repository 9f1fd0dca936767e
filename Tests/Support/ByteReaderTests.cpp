#include "Support/ByteReader.h"

#include <gtest/gtest.h>
#include <limits>
#include <string_view>

namespace quillmar {
namespace {

using namespace std::string_view_literals;

constexpr auto largest = std::numeric_limits<std::int64_t>::max();
constexpr auto smallest = std::numeric_limits<std::int64_t>::min();

TEST(ByteReader, readsLittleEndianNumbers) {
    const ByteReader reader("\x34\x12\xFF\xEE\xDD\xCC\xBB\xAA\x99");
    EXPECT_EQ(reader.u16(0), 0x1234U);
    EXPECT_EQ(reader.u16(1), 0xFF12U);
    EXPECT_EQ(reader.u32(0), 0xEEFF1234U);
    EXPECT_EQ(reader.u32(5), 0x99AABBCCU);
    EXPECT_EQ(reader.u64(0), 0xAABBCCDDEEFF1234U);
    EXPECT_EQ(reader.u64(1), 0x99AABBCCDDEEFF12U);
    EXPECT_EQ(ByteReader("\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF").u64(0), 0xFFFFFFFFFFFFFFFFU);
    EXPECT_EQ(ByteReader("\0\0\0\x80"sv).u32(0), 0x80000000U);
}

TEST(ByteReader, readsZeroOutsideTheBytes) {
    const ByteReader reader("\x7F");
    EXPECT_EQ(reader.u16(0), 0x7FU);
    EXPECT_EQ(reader.u16(1), 0U);
    EXPECT_EQ(reader.u16(-1), 0x7F00U);
    EXPECT_EQ(reader.u16(-2), 0U);
    EXPECT_EQ(reader.u16(largest), 0U);
    EXPECT_EQ(reader.u16(smallest), 0U);
    EXPECT_EQ(ByteReader("").u16(-1), 0U);
    EXPECT_EQ(ByteReader("").u16(0), 0U);
}

TEST(ByteReader, readsLongNumbersThatLieOutsideInPart) {
    const ByteReader reader("\x11\x22\x33");
    EXPECT_EQ(reader.u32(0), 0x00332211U);
    EXPECT_EQ(reader.u32(2), 0x33U);
    EXPECT_EQ(reader.u32(-1), 0x33221100U);
    EXPECT_EQ(reader.u32(-3), 0x11000000U);
    EXPECT_EQ(reader.u32(-4), 0U);
    EXPECT_EQ(reader.u64(0), 0x332211U);
    EXPECT_EQ(reader.u64(-2), 0x3322110000U);
    EXPECT_EQ(reader.u64(-7), 0x1100000000000000U);
    EXPECT_EQ(reader.u64(-8), 0U);
    for (const std::int64_t offset : {smallest, smallest + 7, std::int64_t{3}, largest - 7, largest}) {
        EXPECT_EQ(reader.u32(offset), 0U) << offset;
        EXPECT_EQ(reader.u64(offset), 0U) << offset;
    }
    EXPECT_EQ(ByteReader("").u64(-3), 0U);
}

TEST(ByteReader, cutsASliceAtTheEnd) {
    const ByteReader reader("abcde");
    EXPECT_EQ(reader.slice(2, 10), "cde");
    EXPECT_EQ(reader.slice(1, 2), "bc");
    EXPECT_EQ(reader.slice(0, largest), "abcde");
    EXPECT_EQ(reader.slice(4, largest), "e");
}

TEST(ByteReader, givesAnEmptySliceOutsideTheBytes) {
    const ByteReader reader("abcde");
    EXPECT_EQ(reader.slice(-1, 3), "");
    EXPECT_EQ(reader.slice(5, 1), "");
    EXPECT_EQ(reader.slice(0, 0), "");
    EXPECT_EQ(reader.slice(0, smallest), "");
    EXPECT_EQ(reader.slice(largest, largest), "");
}

TEST(ByteReader, givesTheWholeBufferWithoutACopy) {
    const std::string data = "abc";
    EXPECT_EQ(ByteReader(data).slice(0, 3).data(), data.data());
}

} // namespace
} // namespace quillmar
