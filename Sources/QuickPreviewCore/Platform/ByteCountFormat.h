#pragma once

#include <cstdint>
#include <string>

namespace quillmar {

/// \p bytes as people read file sizes: decimal units, "Zero KB", "1 byte", "999 bytes", "2 KB", "1.2 MB",
/// "4.2 GB". No digit after the point for KB, up to one for MB, up to two above; rounded half to even. The
/// number is written as in the user's locale, the unit in English.
std::string formattedSize(std::int64_t bytes);

} // namespace quillmar
