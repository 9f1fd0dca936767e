#pragma once

#include "Platform/DateFormat.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// What the rows of archives and folders share.
namespace quillmar::ListingRow {

/// Code points of a name that a row shows. No file system has longer names, and thousands of rows repeat them.
inline constexpr std::size_t maxNameLength = 1'024;

/// An image, or a blank of the chevron's width without a \p source, which is an attachment's reference.
std::string iconTag(const std::optional<std::string>& source);

/// The row above all others.
inline constexpr std::string_view heading =
    "<div class=\"row heading\"><span>Name</span>"
    "<span class=\"size\">Size</span><span class=\"date\">Modified</span></div>";

/// Appends \p name, escaped; a longer one is cut at `maxNameLength` and ends in "…".
void appendName(std::string& html, std::string_view name);

/// Appends the day and the minute; nothing without a date.
void appendDate(std::string& html, const std::optional<Timestamp>& date);

/// Appends a last row that says how many items have none; nothing for 0.
void appendOmitted(std::string& html, std::int64_t count);

} // namespace quillmar::ListingRow
