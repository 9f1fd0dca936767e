#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// What the rows of archives and folders share.
namespace quillmar::ListingRow {

/// Code points of a name that a row shows. No file system has longer names, and thousands of rows repeat them.
inline constexpr std::size_t maxNameLength = 1'024;

/// An image, or a blank of the chevron's width without a \p source, which is an attachment's reference.
std::string iconTag(const std::optional<std::string>& source);

/// Appends \p name, escaped; a longer one is cut at `maxNameLength` and ends in "…".
void appendName(std::string& html, std::string_view name);

} // namespace quillmar::ListingRow
