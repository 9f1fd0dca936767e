#pragma once

#include "Platform/Data.h"

#include <string>

namespace quillmar {

/// \p data in base 64 with padding (RFC 4648, 4).
std::string base64(DataView data);

} // namespace quillmar
