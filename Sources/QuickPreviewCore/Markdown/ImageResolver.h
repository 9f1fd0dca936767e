#pragma once

#include <functional>
#include <optional>
#include <string>

namespace quillmar {

/// Takes the path of an image as the document has it, percent-encoding removed, and returns the URL under
/// which the page can show it; none when there is no such image.
using ImageResolver = std::function<std::optional<std::string>(const std::string& path)>;

} // namespace quillmar
