#pragma once

#include "Markdown/ImageResolver.h"
#include "Markdown/Link.h"

#include <string>
#include <string_view>

namespace quillmar::Markdown {

/// \p text without * _ ` [ ] ~.
std::string plainText(std::string_view text);

/// Appends the image that \p link names, or in its place a note that it is missing.
void appendImage(std::string& html, const Link& link, const ImageResolver& resolveImage);

} // namespace quillmar::Markdown
