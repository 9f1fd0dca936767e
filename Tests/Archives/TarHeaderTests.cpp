#include "Archives/TarHeader.h"

#include "Tests/Helpers/TarBuilder.h"

#include <gtest/gtest.h>
#include <limits>

namespace quillmar {
namespace {

using namespace TarHeader;

constexpr auto largest = std::numeric_limits<std::int64_t>::max();

/// \p bytes as a field of their own.
std::optional<std::int64_t> numberIn(const Data& bytes) {
    return number(bytes, {.offset = 0, .length = bytes.size()});
}

Data block(const Data& bytes) {
    Data all = bytes;
    all.resize(blockSize);
    return all;
}

TEST(TarHeader, readsOctalNumbers) {
    EXPECT_EQ(numberIn("755"), 0755);
    EXPECT_EQ(numberIn("00000000173"), 123);
    EXPECT_EQ(numberIn("777777777777"), 0777777777777);
    EXPECT_EQ(numberIn("0"), 0);
}

TEST(TarHeader, trimsSpacesAndZeroBytesAroundANumber) {
    EXPECT_EQ(numberIn(Data("  644 \0", 7)), 0644);
    EXPECT_EQ(numberIn(Data("\0 \0 17 \0 ", 9)), 017);
}

TEST(TarHeader, readsABlankNumberAsZero) {
    EXPECT_EQ(numberIn(Data(12, '\0')), 0);
    EXPECT_EQ(numberIn(Data(12, ' ')), 0);
    EXPECT_EQ(numberIn(Data(" \0 \0", 4)), 0);
}

TEST(TarHeader, readsSigns) {
    EXPECT_EQ(numberIn("-1"), -1);
    EXPECT_EQ(numberIn("+17"), 017);
    EXPECT_EQ(numberIn(" -0000000017 "), -017);
    EXPECT_EQ(numberIn("-0"), 0);
}

TEST(TarHeader, readsNothingElseAsANumber) {
    for (const Data& text :
         {Data("8"), Data("12x"), Data("x"), Data("+"), Data("-"), Data("+-1"), Data("--1"), Data("- 1"),
          Data("0x1"), Data("0o7"), Data("1 2"),
          Data("1\0"
               "2",
               3),
          Data("1_0"), Data("\t7"), Data("7\n"), Data("1.0"), Data("0\u0661"), Data("7\xFF")})
        EXPECT_EQ(numberIn(text), std::nullopt) << text;
}

TEST(TarHeader, readsNoNumberOutsideTheBlock) {
    EXPECT_EQ(number("", sizeField), std::nullopt);
    EXPECT_EQ(number(Data(124, '7'), sizeField), std::nullopt);
    EXPECT_EQ(number("7", {.offset = std::numeric_limits<std::size_t>::max(), .length = 1}), std::nullopt);
    EXPECT_EQ(number("7", {.offset = 0, .length = 0}), std::nullopt);
}

TEST(TarHeader, readsTheDigitsThatACutBlockHas) { EXPECT_EQ(number(Data(126, '7'), sizeField), 077); }

TEST(TarHeader, refusesAnOctalNumberBeyond64Bits) {
    EXPECT_EQ(numberIn("777777777777777777777"), largest);
    EXPECT_EQ(numberIn("1000000000000000000000"), std::nullopt);
    EXPECT_EQ(numberIn("-1000000000000000000000"), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(numberIn("-1000000000000000000001"), std::nullopt);
}

TEST(TarHeader, readsBase256) {
    EXPECT_EQ(numberIn(base256(0)), 0);
    EXPECT_EQ(numberIn("\x80\x01\x02"), 0x0102);
    EXPECT_EQ(numberIn("\x81\x02"), 0x0102);
    EXPECT_EQ(numberIn(base256(8'589'934'592)), 8'589'934'592);
    EXPECT_EQ(numberIn(base256(largest)), largest);
}

TEST(TarHeader, stopsBase256AtTheLimitOf64Bits) {
    EXPECT_EQ(numberIn(base256(std::uint64_t{1} << 63)), largest);
    EXPECT_EQ(numberIn(base256(std::numeric_limits<std::uint64_t>::max())), largest);
    EXPECT_EQ(numberIn("\x80\x01" + Data(10, '\0')), largest);
    EXPECT_EQ(numberIn(Data(12, '\xFF')), largest);
    EXPECT_EQ(numberIn("\xFF" + Data(154, '\0')), largest);
}

TEST(TarHeader, seesNoSignInBase256) { EXPECT_EQ(numberIn("\xFF\xFF"), 0x7FFF); }

TEST(TarHeader, endsTextAtTheFirstZero) {
    EXPECT_EQ(text(block(Data("name\0rest", 9)), nameField), "name");
    EXPECT_EQ(text(block(""), nameField), "");
    EXPECT_EQ(text(Data(blockSize, 'a'), nameField), Data(100, 'a'));
    EXPECT_EQ(text("short", nameField), "short");
    EXPECT_EQ(text("short", prefixField), "");
}

TEST(TarHeader, acceptsABlockThatCarriesItsSum) {
    EXPECT_TRUE(isHeader(header({.name = "a"})));
    EXPECT_TRUE(isHeader(header({.name = "a", .magic = gnuMagic()})));
}

TEST(TarHeader, needsNoMagic) { EXPECT_TRUE(isHeader(header({.name = "a", .magic = {}}))); }

TEST(TarHeader, refusesABlockWithAnyOtherSum) {
    Data block = header({.name = "a"});
    block[0] = 'b';
    EXPECT_FALSE(isHeader(block));
    const auto sum = unsignedSum(withChecksumField(block, "        "));
    EXPECT_TRUE(isHeader(withChecksumField(block, octal(sum, 8))));
    EXPECT_FALSE(isHeader(withChecksumField(block, octal(sum + 1, 8))));
    EXPECT_FALSE(isHeader(withChecksumField(block, octal(sum - 1, 8))));
    EXPECT_FALSE(isHeader(withChecksumField(block, octal(-sum, 8))));
}

TEST(TarHeader, acceptsASumOfSignedBytes) {
    const Data spaces = withChecksumField(block("caf\xC3\xA9"), "        ");
    EXPECT_NE(signedSum(spaces), unsignedSum(spaces));
    EXPECT_TRUE(isHeader(withChecksumField(spaces, octal(signedSum(spaces), 8))));
    EXPECT_TRUE(isHeader(withChecksumField(spaces, octal(unsignedSum(spaces), 8))));
}

TEST(TarHeader, acceptsANegativeSumOfSignedBytes) {
    const Data spaces = withChecksumField(block("\x80\x80\x80"), "        ");
    ASSERT_EQ(signedSum(spaces), 8 * 32 - 3 * 128);
    EXPECT_TRUE(isHeader(withChecksumField(spaces, "-0000200"))); // -128
}

TEST(TarHeader, refusesTheNegativeOfASum) {
    EXPECT_FALSE(isHeader(withChecksumField(block("abc"), "-0001046")));
}

TEST(TarHeader, acceptsASumInBase256) {
    EXPECT_TRUE(isHeader(withChecksumField(block("a"), base256(256 + 'a', 8))));
}

TEST(TarHeader, acceptsTheLargestSum) {
    const Data full(blockSize, '\xFF');
    EXPECT_TRUE(isHeader(withChecksumField(full, octal(504 * 255 + 256, 8))));
    EXPECT_TRUE(isHeader(withChecksumField(full, "-0000370"))); // 504 * -1 + 256 = -248
}

TEST(TarHeader, refusesABlankOrZeroChecksum) {
    // The signed bytes sum to 0: 8 spaces and two of -128.
    const Data zeroSum = block("\x80\x80");
    ASSERT_EQ(signedSum(withChecksumField(zeroSum, "        ")), 0);
    for (const Data& field : {Data(8, ' '), Data(8, '\0'), Data(8, '0'), Data("-0000000"), base256(0, 8)}) {
        EXPECT_FALSE(isHeader(withChecksumField(zeroSum, field)));
        EXPECT_FALSE(isHeader(withChecksumField(header({.name = "a"}), field)));
    }
}

TEST(TarHeader, refusesAChecksumThatIsNoNumber) {
    EXPECT_FALSE(isHeader(withChecksumField(header({.name = "a"}), "checksum")));
    EXPECT_FALSE(isHeader(withChecksumField(header({.name = "a"}), Data(8, '\xFF'))));
}

TEST(TarHeader, refusesAnEmptyBlockWhateverItsChecksum) {
    EXPECT_FALSE(isHeader(block("")));
    EXPECT_FALSE(isHeader(withChecksumField(block(""), octal(256, 8))));
    EXPECT_TRUE(isHeader(withChecksumField(block("\x01"), octal(257, 8))));
}

TEST(TarHeader, refusesAnythingButOneBlock) {
    const Data one = header({.name = "a"});
    EXPECT_FALSE(isHeader(""));
    EXPECT_FALSE(isHeader(one.substr(0, 511)));
    EXPECT_FALSE(isHeader(one + Data(1, '\0')));
}

} // namespace
} // namespace quillmar
