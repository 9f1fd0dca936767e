#include "Support/ByteReader.h"

#include <gtest/gtest.h>
#include <limits>

namespace quillmar {
namespace {

constexpr auto largest = std::numeric_limits<std::int64_t>::max();
constexpr auto smallest = std::numeric_limits<std::int64_t>::min();

TEST(ByteReader, readsLittleEndianNumbers) {
    EXPECT_EQ(ByteReader("\x34\x12\xFF").u16(0), 0x1234U);
    EXPECT_EQ(ByteReader("\x34\x12\xFF").u16(1), 0xFF12U);
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
