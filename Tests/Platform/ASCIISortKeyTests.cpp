#include "Platform/ASCIISortKey.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

// That the order is ICU's is shown by the tests of `naturalOrder`.

TEST(ASCIISortKey, comparesWeightsBeforeCase) {
    EXPECT_LT(asciiSortKey("a"), asciiSortKey("A"));
    EXPECT_LT(asciiSortKey("A"), asciiSortKey("b"));
    EXPECT_LT(asciiSortKey("Ab"), asciiSortKey("aC"));
    EXPECT_LT(asciiSortKey("aB"), asciiSortKey("Ab"));
}

TEST(ASCIISortKey, putsTheShorterNameFirst) {
    EXPECT_LT(asciiSortKey(""), asciiSortKey(" "));
    EXPECT_LT(asciiSortKey("ab"), asciiSortKey("ab "));
    EXPECT_LT(asciiSortKey("AB"), asciiSortKey("ab0"));
}

TEST(ASCIISortKey, readsDigitsAsNumbers) {
    EXPECT_LT(asciiSortKey("a9"), asciiSortKey("a10"));
    EXPECT_EQ(asciiSortKey("a007"), asciiSortKey("a7"));
    EXPECT_EQ(asciiSortKey("000"), asciiSortKey("0"));
    EXPECT_LT(asciiSortKey("0"), asciiSortKey("1"));
    EXPECT_LT(asciiSortKey("$"), asciiSortKey("0"));
    EXPECT_LT(asciiSortKey("9"), asciiSortKey("a"));
}

TEST(ASCIISortKey, ofManyDigitsGrowsNoFasterThanThey) {
    EXPECT_LE(asciiSortKey(std::string(1'000, '7')).size(), 1'020U);
    EXPECT_EQ(asciiSortKey(std::string(1'000, '0')), asciiSortKey("0"));
}

TEST(ASCIISortKey, skipsControls) {
    EXPECT_EQ(asciiSortKey("a\x01\x7F"
                           "b"),
              asciiSortKey("ab"));
    EXPECT_NE(asciiSortKey("1\x01"
                           "2"),
              asciiSortKey("12"));
}

} // namespace
} // namespace quillmar
