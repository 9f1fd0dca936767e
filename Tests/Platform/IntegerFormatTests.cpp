#include "Platform/IntegerFormat.h"

#include "Tests/Helpers/Environment.h"

#include <gtest/gtest.h>
#include <limits>
#include <unicode/numberformatter.h>

namespace quillmar {
namespace {

std::string integerIn(const std::string& locale, std::int64_t value) {
    const ScopedEnvironment environment{{"LC_ALL", locale}};
    return formattedInteger(value);
}

TEST(FormattedInteger, groupsDigitsInThrees) {
    EXPECT_EQ(integerIn("C", 0), "0");
    EXPECT_EQ(integerIn("C", 999), "999");
    EXPECT_EQ(integerIn("C", 1'000), "1,000");
    EXPECT_EQ(integerIn("C", -999), "-999");
    EXPECT_EQ(integerIn("C", -1'234), "-1,234");
    EXPECT_EQ(integerIn("C", 1'234'567), "1,234,567");
    EXPECT_EQ(integerIn("C", std::numeric_limits<std::int64_t>::max()), "9,223,372,036,854,775,807");
    EXPECT_EQ(integerIn("C", std::numeric_limits<std::int64_t>::min()), "-9,223,372,036,854,775,808");
}

TEST(FormattedInteger, writesUSEnglishAsICUDoes) {
    const ScopedEnvironment environment{{"LC_ALL", "en_US.UTF-8"}};
    const auto formatter = icu::number::NumberFormatter::withLocale(icu::Locale::getUS());
    // Every length, from both ends of the 64-bit integers to zero.
    for (std::int64_t limit :
         {std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()}) {
        for (std::int64_t value = limit; value != 0; value = value / 3 * 2) {
            UErrorCode status = U_ZERO_ERROR;
            std::string expected;
            formatter.formatInt(value, status).toString(status).toUTF8String(expected);
            ASSERT_TRUE(U_SUCCESS(status));
            ASSERT_EQ(formattedInteger(value), expected);
        }
    }
}

TEST(FormattedInteger, writesSeparatorsAndDigitsOfTheLocale) {
    EXPECT_EQ(integerIn("en_GB", 1'234'567), "1,234,567");
    EXPECT_EQ(integerIn("de_DE.UTF-8", -1'234'567), "-1.234.567");
    EXPECT_EQ(integerIn("fr_FR", 1'234'567), "1\u202F234\u202F567");
    EXPECT_EQ(integerIn("hi_IN", 1'234'567), "12,34,567");
    EXPECT_EQ(integerIn("ar_EG", 1'234), "١٬٢٣٤");
    EXPECT_EQ(integerIn("de_DE", std::numeric_limits<std::int64_t>::min()), "-9.223.372.036.854.775.808");
}

TEST(FormattedInteger, leavesFourDigitsTogetherWhereTheLocaleDoes) {
    EXPECT_EQ(integerIn("es_ES", 1'234), "1234");
    EXPECT_EQ(integerIn("es_ES", 12'345), "12.345");
    EXPECT_EQ(integerIn("pl_PL", 1'234), "1234");
    EXPECT_EQ(integerIn("pt_PT", 1'234), "1234");
    EXPECT_EQ(integerIn("pt_BR", 1'234), "1.234");
}

TEST(FormattedInteger, asksTheVariableForNumbers) {
    const ScopedEnvironment environment{
        {"LC_ALL", std::nullopt}, {"LC_NUMERIC", "de_DE"}, {"LC_TIME", "C"}, {"LANG", "C"}};
    EXPECT_EQ(formattedInteger(1'234), "1.234");
}

} // namespace
} // namespace quillmar
