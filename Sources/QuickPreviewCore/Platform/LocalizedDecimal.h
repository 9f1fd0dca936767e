#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillmar {

/// \p number, written with a point and an optional minus sign ("-1234.5"), as the user's locale writes it: its
/// digits, signs and grouping ("-1.234,5"). None for US English, which needs no help, and when the locale's
/// data is not to be had.
std::optional<std::string> localizedDecimal(std::string_view number);

} // namespace quillmar
