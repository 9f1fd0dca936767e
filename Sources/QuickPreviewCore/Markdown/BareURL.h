#pragma once

#include <cstddef>
#include <string_view>

namespace quillmar::Markdown {

/// The web address ("https://…", "http://…", "www.…") that begins at \p position of \p text, without the
/// punctuation at its end; empty when none does. \p text is a whole text, or that of one link.
std::string_view bareURL(std::string_view text, std::size_t position);

/// True when \p address lacks a scheme: "https://" is understood.
bool beginsWithWWW(std::string_view address);

} // namespace quillmar::Markdown
