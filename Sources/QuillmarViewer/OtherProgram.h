#pragma once

#include <string>

namespace quillmar {

/// Opens \p uri with the user's program for it. Nothing happens when there is none.
void openInOtherProgram(const std::string& uri);

} // namespace quillmar
