#include "Platform/LocalTime.h"

#include "Tests/Helpers/Environment.h"

#include <cstdlib>
#include <ctime>
#include <gtest/gtest.h>
#include <limits>

namespace quillmar {
namespace {

constexpr Timestamp minute = 60;
constexpr Timestamp hour = 3'600;
constexpr Timestamp day = 24 * hour;
constexpr auto largest = std::numeric_limits<int>::max();
constexpr auto smallest = std::numeric_limits<int>::min();

std::optional<Timestamp> timeIn(const std::string& zone, const LocalTime& time) {
    const ScopedEnvironment environment{{"TZ", zone}};
    return timestamp(time);
}

/// The moment of \p time if the zone were UTC.
Timestamp utc(const LocalTime& time) { return timeIn("UTC0", time).value_or(0); }

/// What a clock in the zone of TZ shows at \p time.
LocalTime wallAt(Timestamp time) {
    const std::time_t seconds = time;
    std::tm fields{};
    ::tzset();
    ::localtime_r(&seconds, &fields);
    return {.year = fields.tm_year + 1'900,
            .month = fields.tm_mon + 1,
            .day = fields.tm_mday,
            .hour = fields.tm_hour,
            .minute = fields.tm_min,
            .second = fields.tm_sec};
}

TEST(LocalTime, countsSecondsInUTC) {
    EXPECT_EQ(utc({1970, 1, 1, 0, 0, 0}), 0);
    EXPECT_EQ(utc({1970, 1, 1, 0, 0, 1}), 1);
    EXPECT_EQ(utc({1969, 12, 31, 23, 59, 59}), -1);
    EXPECT_EQ(utc({2024, 3, 4, 9, 15, 0}), 1'709'543'700);
    EXPECT_EQ(utc({2000, 2, 29, 0, 0, 0}), 951'782'400);
    EXPECT_EQ(utc({2107, 12, 31, 23, 59, 58}), 4'354'819'198);
    EXPECT_EQ(utc({1, 1, 1, 0, 0, 0}), -62'135'596'800);
    EXPECT_EQ(utc({9999, 12, 31, 23, 59, 59}), 253'402'300'799);
}

TEST(LocalTime, countsEveryDayOfEightCenturies) {
    // The C library's own calendar, which is Gregorian throughout.
    const ScopedEnvironment environment{{"TZ", "UTC0"}};
    for (Timestamp time = -180'000 * day; time < 110'000 * day; time += day)
        ASSERT_EQ(timestamp(wallAt(time)), time) << time;
}

TEST(LocalTime, rollsOver) {
    EXPECT_EQ(utc({2024, 13, 1, 0, 0, 0}), utc({2025, 1, 1, 0, 0, 0}));
    EXPECT_EQ(utc({2024, 15, 31, 0, 0, 0}), utc({2025, 3, 31, 0, 0, 0}));
    EXPECT_EQ(utc({2024, 0, 1, 0, 0, 0}), utc({2023, 12, 1, 0, 0, 0}));
    EXPECT_EQ(utc({2024, -12, 1, 0, 0, 0}), utc({2022, 12, 1, 0, 0, 0}));
    EXPECT_EQ(utc({2024, 3, 0, 0, 0, 0}), utc({2024, 2, 29, 0, 0, 0}));
    EXPECT_EQ(utc({2023, 2, 31, 0, 0, 0}), utc({2023, 3, 3, 0, 0, 0}));
    EXPECT_EQ(utc({1980, 0, 0, 0, 0, 0}), utc({1979, 11, 30, 0, 0, 0}));
    EXPECT_EQ(utc({2024, 2, 28, 31, 63, 62}), utc({2024, 2, 29, 8, 4, 2}));
    EXPECT_EQ(utc({2024, 1, 1, 0, 0, -1}), utc({2023, 12, 31, 23, 59, 59}));
}

TEST(LocalTime, readsTheZoneOfTZ) {
    const LocalTime noon{2024, 1, 15, 12, 0, 0};
    EXPECT_EQ(timeIn("UTC0", noon), utc(noon));
    EXPECT_EQ(timeIn("", noon), utc(noon)) << "an empty TZ is UTC";
    EXPECT_EQ(timeIn("No/Such_Zone", noon), utc(noon));
    EXPECT_EQ(timeIn("America/New_York", noon), utc(noon) + 5 * hour);
    EXPECT_EQ(timeIn(":America/New_York", noon), utc(noon) + 5 * hour);
    EXPECT_EQ(timeIn("Asia/Kathmandu", noon), utc(noon) - 5 * hour - 45 * minute);
    EXPECT_EQ(timeIn("<+14>-14", noon), utc(noon) - 14 * hour);
    EXPECT_EQ(timeIn("WEST24:59:59", noon), utc(noon) + 25 * hour - 1);
    EXPECT_EQ(timeIn("EAST-24:59:59", noon), utc(noon) - 25 * hour + 1);
}

TEST(LocalTime, noticesThatTheZoneHasChanged) {
    const LocalTime noon{2024, 7, 15, 12, 0, 0};
    EXPECT_EQ(timeIn("Europe/Berlin", noon), utc(noon) - 2 * hour);
    EXPECT_EQ(timeIn("America/New_York", noon), utc(noon) + 4 * hour);
    EXPECT_EQ(timeIn("Europe/Berlin", noon), utc(noon) - 2 * hour);
    {
        const ScopedEnvironment environment{{"TZ", std::nullopt}};
        EXPECT_TRUE(timestamp(noon).has_value()) << "the system's own zone";
    }
    EXPECT_EQ(timeIn("Asia/Tokyo", noon), utc(noon) - 9 * hour);
}

TEST(LocalTime, readsATimeThatDoesNotOccurWithTheOffsetBefore) {
    // 02:00 becomes 03:00; the clock shows 01:59:59, then 03:00:00.
    const LocalTime skipped{2024, 3, 31, 2, 30, 0};
    EXPECT_EQ(timeIn("Europe/Berlin", {2024, 3, 31, 1, 59, 59}), utc(skipped) - 30 * minute - 1 - hour);
    EXPECT_EQ(timeIn("Europe/Berlin", {2024, 3, 31, 2, 0, 0}), utc(skipped) - 30 * minute - hour);
    EXPECT_EQ(timeIn("Europe/Berlin", skipped), utc(skipped) - hour);
    EXPECT_EQ(timeIn("Europe/Berlin", {2024, 3, 31, 2, 59, 59}), utc(skipped) + 30 * minute - 1 - hour);
    EXPECT_EQ(timeIn("Europe/Berlin", {2024, 3, 31, 3, 0, 0}), utc(skipped) + 30 * minute - 2 * hour);

    const LocalTime southern{2024, 10, 6, 2, 15, 0};
    EXPECT_EQ(timeIn("Australia/Sydney", southern), utc(southern) - 10 * hour);
    EXPECT_EQ(timeIn("Australia/Lord_Howe", southern), utc(southern) - 10 * hour - 30 * minute);
    const LocalTime midnight{2017, 10, 15, 0, 30, 0};
    EXPECT_EQ(timeIn("America/Sao_Paulo", midnight), utc(midnight) + 3 * hour);
}

TEST(LocalTime, readsATimeThatOccursTwiceAsTheFirst) {
    // 03:00 becomes 02:00; the clock shows 02:59:59, then 02:00:00 again.
    const LocalTime repeated{2024, 10, 27, 2, 30, 0};
    EXPECT_EQ(timeIn("Europe/Berlin", {2024, 10, 27, 1, 59, 59}), utc(repeated) - 30 * minute - 1 - 2 * hour);
    EXPECT_EQ(timeIn("Europe/Berlin", {2024, 10, 27, 2, 0, 0}), utc(repeated) - 30 * minute - 2 * hour);
    EXPECT_EQ(timeIn("Europe/Berlin", repeated), utc(repeated) - 2 * hour);
    EXPECT_EQ(timeIn("Europe/Berlin", {2024, 10, 27, 2, 59, 59}), utc(repeated) + 30 * minute - 1 - 2 * hour);
    EXPECT_EQ(timeIn("Europe/Berlin", {2024, 10, 27, 3, 0, 0}), utc(repeated) + 30 * minute - hour);

    const LocalTime southern{2024, 4, 7, 2, 15, 0};
    EXPECT_EQ(timeIn("Australia/Sydney", southern), utc(southern) - 11 * hour);
    EXPECT_EQ(timeIn("Australia/Lord_Howe", {2024, 4, 7, 1, 45, 0}), utc({2024, 4, 7, 1, 45, 0}) - 11 * hour);
    const LocalTime newYork{2024, 11, 3, 1, 0, 0};
    EXPECT_EQ(timeIn("America/New_York", newYork), utc(newYork) + 4 * hour);
}

TEST(LocalTime, followsRulesFarAhead) {
    const std::string centralEurope = "CET-1CEST,M3.5.0,M10.5.0/3";
    EXPECT_EQ(timeIn(centralEurope, {2106, 3, 28, 2, 30, 0}), utc({2106, 3, 28, 1, 30, 0}));
    EXPECT_EQ(timeIn(centralEurope, {2106, 10, 31, 2, 30, 0}), utc({2106, 10, 31, 0, 30, 0}));
    EXPECT_EQ(timeIn(centralEurope, {2106, 7, 1, 0, 0, 0}), utc({2106, 6, 30, 22, 0, 0}));
    EXPECT_EQ(timeIn("Europe/Berlin", {2106, 10, 31, 2, 30, 0}), utc({2106, 10, 31, 0, 30, 0}));
}

TEST(LocalTime, knowsTheDayThatAZoneLeftOut) {
    // Samoa crossed the date line: 30 December 2011 did not occur there.
    const LocalTime skipped{2011, 12, 30, 12, 0, 0};
    EXPECT_EQ(timeIn("Pacific/Apia", skipped), utc(skipped) + 10 * hour);
    EXPECT_EQ(timeIn("Pacific/Apia", {2011, 12, 29, 23, 59, 59}), utc({2011, 12, 29, 23, 59, 59}) + 10 * hour);
    EXPECT_EQ(timeIn("Pacific/Apia", {2011, 12, 31, 0, 0, 0}), utc({2011, 12, 31, 0, 0, 0}) - 14 * hour);
    // And Kwajalein the whole of 21 August 1993.
    const LocalTime kwajalein{1993, 8, 21, 12, 0, 0};
    EXPECT_EQ(timeIn("Pacific/Kwajalein", kwajalein), utc(kwajalein) + 12 * hour);
}

TEST(LocalTime, isTheFirstMomentThatShowsIt) {
    // There and back again, with a different time of day at each step.
    for (const char* zone :
         {"Europe/Berlin", "America/New_York", "Australia/Lord_Howe", "America/Sao_Paulo", "Asia/Gaza",
          "Africa/Casablanca", "Antarctica/Troll", "Europe/Dublin", "Pacific/Chatham", "America/Caracas"}) {
        const ScopedEnvironment environment{{"TZ", zone}};
        for (Timestamp time = 1'460'000'000; time < 1'460'000'000 + 800 * day; time += 7 * hour + 300) {
            const auto found = timestamp(wallAt(time));
            ASSERT_TRUE(found.has_value());
            ASSERT_LE(*found, time) << zone;
            ASSERT_GE(*found, time - 3 * hour) << zone;
            const LocalTime shown = wallAt(*found);
            const LocalTime expected = wallAt(time);
            ASSERT_EQ(shown.hour, expected.hour) << zone << ' ' << time;
            ASSERT_EQ(shown.minute, expected.minute) << zone << ' ' << time;
        }
    }
}

TEST(LocalTime, takesFieldsOfAnySize) {
    const ScopedEnvironment environment{{"TZ", "Europe/Berlin"}};
    for (const int value : {smallest, smallest + 1, -1, 0, largest - 1, largest}) {
        timestamp({value, value, value, value, value, value});
        timestamp({value, 1, 1, 0, 0, 0});
        timestamp({2024, value, 1, 0, 0, 0});
        timestamp({2024, 1, value, 0, 0, 0});
        timestamp({2024, 1, 1, value, value, value});
    }
    EXPECT_FALSE(timestamp({largest, largest, largest, 0, 0, 0}).has_value());
    EXPECT_FALSE(timestamp({smallest, smallest, smallest, 0, 0, 0}).has_value());
}

} // namespace
} // namespace quillmar
