#pragma once

#include <string_view>

/// A small set of icons of our own, for machines without any theme; `BuiltIn/` holds them.
namespace quillmar::BuiltInIcons {

/// The SVG called \p name; empty when there is none.
std::string_view svg(std::string_view name);

} // namespace quillmar::BuiltInIcons
