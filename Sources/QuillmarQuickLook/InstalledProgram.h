#pragma once

#include <string>

namespace quillmar {

/// The absolute path of the program \p name of this installation: beside the one that runs, in its folder of
/// helpers, or, seen from there, in the folder of commands. Empty when it is not installed.
std::string installedProgram(const std::string& name);

} // namespace quillmar
