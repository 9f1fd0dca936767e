#pragma once

#include "Platform/UniformType.h"

#include <string>
#include <string_view>
#include <vector>

/// The names that icons of types have in themes (freedesktop.org, icon names).
namespace quillmar::IconNames {

/// The best first: what the type and its ancestors are called as MIME types, then what icons of such things are
/// called, at last what every theme has.
std::vector<std::string> ofType(const UniformType& type);

/// Whose type nobody knows.
std::vector<std::string> ofUnknown();

} // namespace quillmar::IconNames
