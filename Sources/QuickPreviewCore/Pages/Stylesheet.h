#pragma once

#include <string_view>

namespace quillmar {

/// `Pages/Stylesheet.css`, embedded by the build: the one stylesheet of every page.
extern const std::string_view stylesheet;

} // namespace quillmar
