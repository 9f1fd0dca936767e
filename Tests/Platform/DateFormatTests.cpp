#include "Platform/DateFormat.h"

#include "Tests/Helpers/Environment.h"

#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <unicode/dtptngen.h>
#include <unicode/gregocal.h>
#include <unicode/smpdtfmt.h>

namespace quillmar {
namespace {

constexpr Timestamp march4 = 1'709'543'700;        // 2024-03-04 09:15 UTC
constexpr Timestamp firstSecond = -62'135'596'800; // 0001-01-01 00:00:00 UTC
constexpr Timestamp lastSecond = 253'402'300'799;  // 9999-12-31 23:59:59 UTC
constexpr const char* centralEurope = "CET-1CEST,M3.5.0,M10.5.0/3";

std::string dateIn(const std::string& locale, Timestamp time, const std::string& zone = "UTC0") {
    const ScopedEnvironment environment{{"LC_ALL", locale}, {"TZ", zone}};
    return formattedDate(time).value_or("none");
}

TEST(FormattedDate, isDayAndMinuteInEnglish) {
    EXPECT_EQ(dateIn("C", march4), "Mar 4, 2024 at 9:15\u202FAM");
    EXPECT_EQ(dateIn("C", march4 + 59), "Mar 4, 2024 at 9:15\u202FAM");
    EXPECT_EQ(dateIn("C", 0), "Jan 1, 1970 at 12:00\u202FAM");
    EXPECT_EQ(dateIn("C", 12 * 3'600 + 5 * 60), "Jan 1, 1970 at 12:05\u202FPM");
    EXPECT_EQ(dateIn("C", 13 * 3'600), "Jan 1, 1970 at 1:00\u202FPM");
    EXPECT_EQ(dateIn("C", -1), "Dec 31, 1969 at 11:59\u202FPM");
}

TEST(FormattedDate, writesUSEnglishAsICUDoes) {
    const ScopedEnvironment environment{{"LC_ALL", "en_US.UTF-8"}, {"TZ", "UTC0"}};
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::DateTimePatternGenerator> generator(
        icu::DateTimePatternGenerator::createInstance(icu::Locale::getUS(), status));
    ASSERT_TRUE(U_SUCCESS(status));
    generator->setDateTimeFormat(UDAT_MEDIUM, u"{1} 'at' {0}", status);
    icu::SimpleDateFormat format(generator->getBestPattern(u"yMMMdjmm", status), icu::Locale::getUS(), status);
    auto calendar = std::make_unique<icu::GregorianCalendar>(*icu::TimeZone::getGMT(), status);
    calendar->setGregorianChange(-1e15, status);
    format.adoptCalendar(calendar.release());
    ASSERT_TRUE(U_SUCCESS(status));

    // Three years and some hours, minutes and seconds apart: all months, hours and lengths of a year.
    for (Timestamp time = firstSecond; time <= lastSecond; time += 98'765'432) {
        std::string expected;
        icu::UnicodeString text;
        format.format(static_cast<UDate>(time) * 1'000, text).toUTF8String(expected);
        ASSERT_EQ(formattedDate(time), expected) << time;
    }
}

TEST(FormattedDate, followsTheLocale) {
    EXPECT_EQ(dateIn("en_GB.UTF-8", march4), "4 Mar 2024 at 09:15");
    EXPECT_EQ(dateIn("en_CA", march4), "Mar 4, 2024 at 9:15\u202Fa.m.");
    EXPECT_EQ(dateIn("fr_FR.UTF-8", march4), "4 mars 2024 à 09:15");
    EXPECT_EQ(dateIn("fr_CA", march4), "4 mars 2024 à 09 h 15");
    EXPECT_EQ(dateIn("de_DE.UTF-8", march4), "4. März 2024, 09:15");
    EXPECT_EQ(dateIn("es_ES", march4), "4 mar 2024, 9:15");
    EXPECT_EQ(dateIn("pl_PL", march4), "4 mar 2024, 09:15");
    EXPECT_EQ(dateIn("ja_JP", march4), "2024年3月4日 9:15");
    EXPECT_EQ(dateIn("sr_RS@latin", march4), "4. mar 2024. 09:15");
}

TEST(FormattedDate, isGregorianInEveryLocale) {
    EXPECT_EQ(dateIn("th_TH", march4), "4 มี.ค. 2024 09:15");
    EXPECT_EQ(dateIn("fa_IR", march4), "۴ مارس ۲۰۲۴، ۹:۱۵");
    EXPECT_EQ(dateIn("ar_SA", march4), "٤ مارس ٢٠٢٤، ٩:١٥ ص");
}

TEST(FormattedDate, neverFallsBackToTheJulianCalendar) {
    constexpr Timestamp dayOfNoJulianCalendar = -12'219'681'600; // 1582-10-10 12:00 UTC
    constexpr Timestamp endOfFebruary1500 = -14'826'675'600;     // 1500-02-28 23:00 UTC
    EXPECT_EQ(dateIn("C", dayOfNoJulianCalendar), "Oct 10, 1582 at 12:00\u202FPM");
    EXPECT_EQ(dateIn("en_GB", dayOfNoJulianCalendar), "10 Oct 1582 at 12:00");
    EXPECT_EQ(dateIn("C", endOfFebruary1500 + 3'600), "Mar 1, 1500 at 12:00\u202FAM");
    EXPECT_EQ(dateIn("en_GB", endOfFebruary1500), "28 Feb 1500 at 23:00");
    EXPECT_EQ(dateIn("en_GB", endOfFebruary1500 + 3'600), "1 Mar 1500 at 00:00");
}

TEST(FormattedDate, isInTheLocalZone) {
    EXPECT_EQ(dateIn("C", march4, centralEurope), "Mar 4, 2024 at 10:15\u202FAM");
    EXPECT_EQ(dateIn("en_GB", march4, centralEurope), "4 Mar 2024 at 10:15");
    EXPECT_EQ(dateIn("C", march4, "XYZ-5:45"), "Mar 4, 2024 at 3:00\u202FPM");
    EXPECT_EQ(dateIn("C", march4, "PST8"), "Mar 4, 2024 at 1:15\u202FAM");
    EXPECT_EQ(dateIn("C", march4, ""), "Mar 4, 2024 at 9:15\u202FAM");
    EXPECT_EQ(dateIn("C", march4, "no such zone"), "Mar 4, 2024 at 9:15\u202FAM");
}

TEST(FormattedDate, followsSummerTime) {
    constexpr Timestamp change = 1'711'846'800; // 2024-03-31 01:00 UTC
    for (const char* locale : {"en_GB", "en_AU"}) {
        const std::string before = locale == std::string("en_GB") ? "01:59" : "1:59\u202Fam";
        const std::string after = locale == std::string("en_GB") ? "03:00" : "3:00\u202Fam";
        EXPECT_EQ(dateIn(locale, change - 1, centralEurope), "31 Mar 2024 at " + before);
        EXPECT_EQ(dateIn(locale, change, centralEurope), "31 Mar 2024 at " + after);
    }
}

TEST(FormattedDate, noticesThatTheZoneHasChanged) {
    const ScopedEnvironment locale{{"LC_ALL", "C"}, {"TZ", "XYZ-1"}};
    EXPECT_EQ(formattedDate(0), "Jan 1, 1970 at 1:00\u202FAM");
    {
        const ScopedEnvironment zone{{"TZ", "XYZ-2"}};
        EXPECT_EQ(formattedDate(0), "Jan 1, 1970 at 2:00\u202FAM");
        const ScopedEnvironment systemZone{{"TZ", std::nullopt}};
        EXPECT_TRUE(formattedDate(0));
    }
    EXPECT_EQ(formattedDate(0), "Jan 1, 1970 at 1:00\u202FAM");
}

TEST(FormattedDate, isNoneOutsideTheYears1To9999) {
    for (const char* locale : {"C", "de_DE"}) {
        EXPECT_NE(dateIn(locale, firstSecond), "none");
        EXPECT_NE(dateIn(locale, lastSecond), "none");
        EXPECT_EQ(dateIn(locale, firstSecond - 1), "none");
        EXPECT_EQ(dateIn(locale, lastSecond + 1), "none");
        EXPECT_EQ(dateIn(locale, std::numeric_limits<Timestamp>::min(), centralEurope), "none");
        EXPECT_EQ(dateIn(locale, std::numeric_limits<Timestamp>::max(), centralEurope), "none");
    }
    EXPECT_EQ(dateIn("C", firstSecond), "Jan 1, 1 at 12:00\u202FAM");
    EXPECT_EQ(dateIn("en_GB", firstSecond), "1 Jan 1 at 00:00");
    EXPECT_EQ(dateIn("en_GB", lastSecond), "31 Dec 9999 at 23:59");
}

TEST(FormattedDate, countsTheYearsInTheLocalZone) {
    EXPECT_EQ(dateIn("C", firstSecond, "XYZ1"), "none");
    EXPECT_EQ(dateIn("C", lastSecond + 1, "XYZ1"), "Dec 31, 9999 at 11:00\u202FPM");
    EXPECT_EQ(dateIn("C", lastSecond, "XYZ-1"), "none");
}

TEST(FormattedDate, asksTheVariableForTimes) {
    const ScopedEnvironment environment{
        {"LC_ALL", std::nullopt}, {"LC_TIME", "en_GB"}, {"LC_NUMERIC", "C"}, {"LANG", "C"}, {"TZ", "UTC0"}};
    EXPECT_EQ(formattedDate(march4), "4 Mar 2024 at 09:15");
}

TEST(FormattedDate, isSomeTextInALocaleThatNobodyKnows) {
    for (const char* locale : {"xx_YY", "tlh", "zz_999", "und"}) EXPECT_NE(dateIn(locale, march4), "none");
}

} // namespace
} // namespace quillmar
