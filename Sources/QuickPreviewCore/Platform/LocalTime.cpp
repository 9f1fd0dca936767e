#include "Platform/LocalTime.h"

#include "Platform/LocalZone.h"

#include <chrono>
#include <cstddef>
#include <ctime>
#include <vector>

namespace quillmar {
namespace {

constexpr std::int64_t secondsOfHour = 3'600;
constexpr std::int64_t secondsOfDay = 24 * secondsOfHour;

/// Rounded down, unlike "/". \p divisor is positive.
constexpr std::int64_t quotient(std::int64_t dividend, std::int64_t divisor) {
    return dividend / divisor - (dividend % divisor < 0 ? 1 : 0);
}

/// Days from 1970-01-01; fields outside their ranges roll over.
std::int64_t daysOf(std::int64_t year, std::int64_t month, std::int64_t day) {
    // The Gregorian calendar repeats itself every 400 years; the standard's knows fewer years than `int`.
    constexpr std::int64_t monthsOfCycle = 4'800;
    constexpr std::int64_t daysOfCycle = 146'097;
    const std::int64_t months = 12 * year + month - 1;
    const std::int64_t cycle = quotient(months, monthsOfCycle);
    const auto monthOfCycle = static_cast<unsigned>(months - cycle * monthsOfCycle);
    const std::chrono::sys_days firstOfMonth = std::chrono::year(static_cast<int>(monthOfCycle / 12)) /
                                               std::chrono::month(monthOfCycle % 12 + 1) / std::chrono::day(1);
    return cycle * daysOfCycle + firstOfMonth.time_since_epoch().count() + day - 1;
}

std::int64_t secondsOf(std::int64_t days, std::int64_t hour, std::int64_t minute, std::int64_t second) {
    return days * secondsOfDay + hour * secondsOfHour + minute * 60 + second;
}

/// Seconds by which the wall is ahead of UTC at \p time. Asked of the wall, because `tm_gmtoff` leaves out the
/// leap seconds that the zones under "right/" count.
std::optional<std::int64_t> offsetAt(Timestamp time) {
    const std::time_t seconds = time;
    std::tm fields{};
    if (localtime_r(&seconds, &fields) == nullptr) return {};
    const std::int64_t days = daysOf(std::int64_t{fields.tm_year} + 1'900, fields.tm_mon + 1, fields.tm_mday);
    return secondsOf(days, fields.tm_hour, fields.tm_min, fields.tm_sec) - time;
}

/// Some days on the wall and the offsets that can hold in them. No zone of the tz database changes its offset
/// twice within a week (since 1980), so one change is all that a period and its margins can hold.
struct Period {
    std::int64_t number = 0;
    unsigned zone = 0; ///< of `updateLocalZone`, which begins at 1
    std::int64_t before = 0;
    std::int64_t after = 0;
    Timestamp change = 0; ///< the first moment of `after`; counts only if that differs from `before`
};
constexpr std::int64_t periodLength = 4 * secondsOfDay;
constexpr std::int64_t margin = 25 * secondsOfHour; ///< TZ cannot name a zone that is further from UTC
static_assert(periodLength + 2 * margin < 7 * secondsOfDay);

/// The first moment behind \p low whose offset is not \p before; it is not behind \p high.
Timestamp changeBetween(Timestamp low, Timestamp high, std::int64_t before) {
    while (high - low > 1) {
        const Timestamp middle = low + (high - low) / 2;
        (offsetAt(middle) == before ? low : high) = middle;
    }
    return high;
}

std::optional<Period> makePeriod(std::int64_t number, unsigned zone) {
    const Timestamp start = number * periodLength - margin;
    const Timestamp end = (number + 1) * periodLength + margin;
    const auto before = offsetAt(start);
    const auto after = offsetAt(end);
    if (!before || !after) return {};
    const Timestamp change = before == after ? start : changeBetween(start, end, *before);
    return Period{.number = number, .zone = zone, .before = *before, .after = *after, .change = change};
}

/// The period of \p wall seconds; null when the system cannot tell. The C library takes up to a microsecond for
/// an offset, so periods are kept. The answer stands until the next call.
const Period* periodOf(std::int64_t wall) {
    constexpr std::size_t slots = 1'024; // eleven years, more than most archives span
    thread_local std::vector<Period> periods(slots);
    const unsigned zone = updateLocalZone();
    const std::int64_t number = quotient(wall, periodLength);
    Period& slot = periods[static_cast<std::size_t>(number) % slots];
    if (slot.zone == zone && slot.number == number) return &slot;
    const auto period = makePeriod(number, zone);
    if (!period) return nullptr;
    slot = *period;
    return &slot;
}

} // namespace

std::optional<Timestamp> timestamp(const LocalTime& time) {
    const std::int64_t wall =
        secondsOf(daysOf(time.year, time.month, time.day), time.hour, time.minute, time.second);
    const Period* period = periodOf(wall);
    if (period == nullptr) return {};
    const Timestamp first = wall - period->before;
    if (period->before == period->after || first < period->change) return first;
    const Timestamp second = wall - period->after;
    return second >= period->change ? second : first;
}

} // namespace quillmar
