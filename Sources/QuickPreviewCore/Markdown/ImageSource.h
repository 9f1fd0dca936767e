#pragma once

#include "Markdown/ImageResolver.h"

#include <optional>
#include <string>
#include <string_view>

namespace quillmar::Markdown {

/// The URL under which the page may show the image \p source: remote and inline (data) images as they stand,
/// paths through \p resolveImage, and none for every other scheme.
std::optional<std::string> imageSource(std::string_view source, const ImageResolver& resolveImage);

} // namespace quillmar::Markdown
