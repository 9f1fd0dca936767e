#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Text into HTML. Values are kept as plain text everywhere and escaped where markup is written.
namespace quillmar::HTML {

/// \p text with & < > " ' replaced by references, wherever they stand: safe between tags and inside quoted
/// attribute values.
std::string escape(std::string_view text);

/// The same, appended to \p html.
void appendEscaped(std::string& html, std::string_view text);
void appendEscaped(std::string& html, char character);

/// "1 line", "0 lines", "2 entries": \p n as the user's locale writes it, and the noun. Without \p plural the
/// plural is \p singular and "s".
std::string count(std::int64_t n, std::string_view singular,
                  std::optional<std::string_view> plural = std::nullopt);

} // namespace quillmar::HTML
