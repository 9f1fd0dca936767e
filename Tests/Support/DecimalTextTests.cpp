#include "Support/DecimalText.h"

#include <clocale>
#include <gtest/gtest.h>
#include <limits>

namespace quillmar {
namespace {

TEST(DecimalText, hasAFixedNumberOfDigits) {
    EXPECT_EQ(decimalText(0.6, 2), "0.60");
    EXPECT_EQ(decimalText(100, 1), "100.0");
    EXPECT_EQ(decimalText(37.46, 1), "37.5");
    EXPECT_EQ(decimalText(0, 1), "0.0");
}

TEST(DecimalText, usesAPointInEveryLocale) {
    // Where no such locale is installed the test still shows that nothing but the value decides.
    const char* german = std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
    EXPECT_EQ(decimalText(1.5, 1), "1.5") << (german != nullptr ? german : "C");
    std::setlocale(LC_NUMERIC, "C");
}

TEST(DecimalText, writesTheLargestValueToo) {
    EXPECT_EQ(decimalText(std::numeric_limits<double>::max(), 2).size(), 309U + 3);
}

} // namespace
} // namespace quillmar
