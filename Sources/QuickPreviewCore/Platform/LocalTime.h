#pragma once

#include "Platform/DateFormat.h"

#include <optional>

namespace quillmar {

/// A date and time of day as a calendar on the wall shows them. Fields may lie outside their ranges (month 13,
/// day 0): they roll over.
struct LocalTime {
    int year = 0;
    int month = 0; ///< 1 is January
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

/// The moment of \p time in the local zone, Gregorian. A time that occurs twice is the first; one that does not
/// occur is read with the offset before the change. None when the system cannot tell.
std::optional<Timestamp> timestamp(const LocalTime& time);

} // namespace quillmar
