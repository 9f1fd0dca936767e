#pragma once

#include "Markdown/ImageResolver.h"

#include <string>
#include <string_view>

namespace quillmar::Markdown {

/// \p html without what could run code, load frames or forms, or reach files that are not the document's
/// images. Five passes, each over what the one before left: blocked elements, blocked tags, event attributes,
/// script URLs, image tags. It rewrites text and does not parse HTML: markup that a removal creates stays.
std::string sanitizeHTML(std::string_view html, const ImageResolver& resolveImage);

/// The same, appended to \p output.
void appendSanitizedHTML(std::string& output, std::string_view html, const ImageResolver& resolveImage);

} // namespace quillmar::Markdown
