#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace quillmar {

/// The whole of \p text as a number of 64 bits: an optional sign and digits of \p base (8 or 10), nothing else.
/// None when it is no such number or does not fit.
std::optional<std::int64_t> signedInteger(std::string_view text, int base);

} // namespace quillmar
