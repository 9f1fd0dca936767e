#pragma once

#include <string>

namespace quillmar {

/// \p path without symbolic links; empty when nothing is there.
std::string realPath(const std::string& path);

} // namespace quillmar
