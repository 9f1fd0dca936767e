#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace quillmar {

/// A moment: whole seconds since 1970-01-01 00:00 UTC, rounded down.
using Timestamp = std::int64_t;

/// Day and minute in the local zone, as the user's locale writes them: "Mar 4, 2024 at 9:15 AM". Gregorian in
/// every locale. None when the local date is outside the years 1 to 9999.
std::optional<std::string> formattedDate(Timestamp time);

} // namespace quillmar
