#pragma once

#include <cstdint>
#include <string>

namespace quillmar {

/// \p value with the grouping of the user's locale: "1,234" in English.
std::string formattedInteger(std::int64_t value);

} // namespace quillmar
