#pragma once

#include <string>
#include <string_view>

namespace quillmar::Markdown {

/// The destination to write for \p url: trimmed, spaces as "%20"; "#" when it has a scheme that is not known to
/// be harmless. Not yet escaped.
std::string safeURL(std::string_view url);

/// The same, escaped and appended to \p html.
void appendSafeURL(std::string& html, std::string_view url);

} // namespace quillmar::Markdown
