#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Text and source code with line numbers.
namespace quillmar::TextPage {

/// Lines drawn. A browser lays out ten thousand at once; more would keep the reader waiting.
inline constexpr std::size_t maxLines = 10'000;

/// The name of the language that a file \p name stands for, by its whole name or its extension.
std::optional<std::string_view> language(std::string_view name);

/// True when long lines of a file \p name are prose or records and wrap; code scrolls sideways.
bool wraps(std::string_view name);

/// Line feeds that no carriage return precedes, and one more when the text does not end with such a line feed;
/// 0 for the empty text.
std::int64_t lineCount(std::string_view text);

/// The whole document. \p icon is an attachment's reference; \p note stands above the text.
std::string html(std::string_view text, std::string_view title, const std::optional<std::string>& icon,
                 const std::vector<std::string>& facts, bool wrap, const std::optional<std::string>& note);

} // namespace quillmar::TextPage
