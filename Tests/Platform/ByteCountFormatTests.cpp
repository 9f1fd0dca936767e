#include "Platform/ByteCountFormat.h"

#include "Tests/Helpers/Environment.h"

#include <gtest/gtest.h>
#include <limits>
#include <unicode/numberformatter.h>
#include <vector>

namespace quillmar {
namespace {

constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t smallest = std::numeric_limits<std::int64_t>::min();

std::string sizeIn(const std::string& locale, std::int64_t bytes) {
    const ScopedEnvironment environment{{"LC_ALL", locale}};
    return formattedSize(bytes);
}

TEST(FormattedSize, countsSingleBytesBelowAThousand) {
    EXPECT_EQ(sizeIn("C", 0), "Zero KB");
    EXPECT_EQ(sizeIn("C", 1), "1 byte");
    EXPECT_EQ(sizeIn("C", 2), "2 bytes");
    EXPECT_EQ(sizeIn("C", 999), "999 bytes");
}

TEST(FormattedSize, showsMoreDigitsInLargerUnits) {
    EXPECT_EQ(sizeIn("C", 1'234), "1 KB");
    EXPECT_EQ(sizeIn("C", 1'234'567), "1.2 MB");
    EXPECT_EQ(sizeIn("C", 1'234'567'890), "1.23 GB");
    EXPECT_EQ(sizeIn("C", 1'234'567'890'123), "1.23 TB");
    EXPECT_EQ(sizeIn("C", 1'234'567'890'123'456), "1.23 PB");
    EXPECT_EQ(sizeIn("C", 1'234'567'890'123'456'789), "1.23 EB");
    EXPECT_EQ(sizeIn("C", largest), "9.22 EB");
}

TEST(FormattedSize, dropsZerosAtTheEnd) {
    EXPECT_EQ(sizeIn("C", 1'000'000), "1 MB");
    EXPECT_EQ(sizeIn("C", 10'000'000), "10 MB");
    EXPECT_EQ(sizeIn("C", 4'200'000'000), "4.2 GB");
    EXPECT_EQ(sizeIn("C", 4'000'000'000), "4 GB");
    EXPECT_EQ(sizeIn("C", 100'000'000'000), "100 GB");
    EXPECT_EQ(sizeIn("C", 4'050'000'000), "4.05 GB");
}

TEST(FormattedSize, roundsHalvesToEven) {
    EXPECT_EQ(sizeIn("C", 1'499), "1 KB");
    EXPECT_EQ(sizeIn("C", 1'500), "2 KB");
    EXPECT_EQ(sizeIn("C", 2'500), "2 KB");
    EXPECT_EQ(sizeIn("C", 2'501), "3 KB");
    EXPECT_EQ(sizeIn("C", 1'250'000), "1.2 MB");
    EXPECT_EQ(sizeIn("C", 1'250'001), "1.3 MB");
    EXPECT_EQ(sizeIn("C", 1'350'000), "1.4 MB");
    EXPECT_EQ(sizeIn("C", 1'005'000'000), "1 GB");
    EXPECT_EQ(sizeIn("C", 1'015'000'000), "1.02 GB");
}

TEST(FormattedSize, takesTheNextUnitInsteadOfAThousand) {
    EXPECT_EQ(sizeIn("C", 1'000), "1 KB");
    EXPECT_EQ(sizeIn("C", 999'499), "999 KB");
    EXPECT_EQ(sizeIn("C", 999'500), "1 MB");
    EXPECT_EQ(sizeIn("C", 999'999), "1 MB");
    EXPECT_EQ(sizeIn("C", 999'949'999), "999.9 MB");
    EXPECT_EQ(sizeIn("C", 999'950'000), "1 GB");
    EXPECT_EQ(sizeIn("C", 999'994'999'999), "999.99 GB");
    EXPECT_EQ(sizeIn("C", 999'995'000'000), "1 TB");
    EXPECT_EQ(sizeIn("C", 999'994'999'999'999), "999.99 TB");
    EXPECT_EQ(sizeIn("C", 999'995'000'000'000), "1 PB");
    EXPECT_EQ(sizeIn("C", 999'994'999'999'999'999), "999.99 PB");
    EXPECT_EQ(sizeIn("C", 999'995'000'000'000'000), "1 EB");
}

TEST(FormattedSize, putsAMinusSignBeforeNegativeSizes) {
    EXPECT_EQ(sizeIn("C", -1), "-1 byte");
    EXPECT_EQ(sizeIn("C", -999), "-999 bytes");
    EXPECT_EQ(sizeIn("C", -1'500), "-2 KB");
    EXPECT_EQ(sizeIn("C", -1'234'567), "-1.2 MB");
    EXPECT_EQ(sizeIn("C", smallest), "-9.22 EB");
}

/// The number by ICU's decimal arithmetic, in the first unit that does not need a thousand.
std::string expectedSize(std::int64_t bytes) {
    struct Unit {
        const char* name;
        int power, fractionDigits;
    };
    for (const Unit& unit : {Unit{"KB", 3, 0}, Unit{"MB", 6, 1}, Unit{"GB", 9, 2}, Unit{"TB", 12, 2},
                             Unit{"PB", 15, 2}, Unit{"EB", 18, 2}}) {
        UErrorCode status = U_ZERO_ERROR;
        std::string number;
        icu::number::NumberFormatter::withLocale(icu::Locale::getUS())
            .scale(icu::number::Scale::powerOfTen(-unit.power))
            .precision(icu::number::Precision::maxFraction(unit.fractionDigits))
            .roundingMode(UNUM_ROUND_HALFEVEN)
            .formatInt(bytes, status)
            .toString(status)
            .toUTF8String(number);
        EXPECT_TRUE(U_SUCCESS(status));
        if (number.find(',') == std::string::npos) return number + ' ' + unit.name;
    }
    return {};
}

TEST(FormattedSize, writesUSEnglishAsICUDoes) {
    const ScopedEnvironment environment{{"LC_ALL", "en_US.UTF-8"}};
    std::vector<std::int64_t> sizes{largest, smallest};
    for (std::int64_t power = 1'000; power <= largest / 10; power *= 10) {
        for (std::int64_t step = 1; step < 200; ++step) sizes.push_back(power / 200 * 9 * step + power);
        for (std::int64_t offset = -1; offset <= 1; ++offset) sizes.push_back(power / 2 * 5 + offset);
    }
    for (const std::int64_t size : sizes) ASSERT_EQ(formattedSize(size), expectedSize(size)) << size;
}

TEST(FormattedSize, writesTheNumberAsTheLocaleDoesAndTheUnitInEnglish) {
    EXPECT_EQ(sizeIn("de_DE.UTF-8", 1'234'567), "1,2 MB");
    EXPECT_EQ(sizeIn("de_CH", 1'234'567), "1.2 MB");
    EXPECT_EQ(sizeIn("es_ES", 999'994'999'999'999'999), "999,99 PB");
    EXPECT_EQ(sizeIn("ar_EG", 1'234'567), "١٫٢ MB");
    EXPECT_EQ(sizeIn("fr_FR", 999), "999 bytes");
    EXPECT_EQ(sizeIn("de_DE", 0), "Zero KB");
    EXPECT_EQ(sizeIn("sv_SE", -1'234'567), "\u22121,2 MB");
    EXPECT_EQ(sizeIn("de_DE", smallest), "-9,22 EB");
}

TEST(FormattedSize, asksTheVariableForNumbers) {
    const ScopedEnvironment environment{
        {"LC_ALL", std::nullopt}, {"LC_NUMERIC", "de_DE"}, {"LC_TIME", "C"}, {"LANG", "C"}};
    EXPECT_EQ(formattedSize(1'234'567), "1,2 MB");
}

} // namespace
} // namespace quillmar
