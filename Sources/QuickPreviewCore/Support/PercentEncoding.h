#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillmar {

/// \p text with every "%XX" replaced by its byte (RFC 3986, 2.1). None when a "%" has no two hexadecimal
/// digits behind it, or when the result is not UTF-8.
std::optional<std::string> removingPercentEncoding(std::string_view text);

} // namespace quillmar
