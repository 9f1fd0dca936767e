#pragma once

#include "Markdown/Line.h"

#include <string_view>

namespace quillmar::Markdown {

/// True when \p line begins raw HTML: a comment, or an opening or closing tag.
bool isHTMLBlock(const Line& line);

/// True when \p line, which begins raw HTML, begins a comment. It goes on to the line that closes it; any other
/// block goes on to a blank line.
inline bool beginsComment(const Line& line) { return line.content().starts_with("<!--"); }

/// True when a comment ends on \p line. Its first line may close it with the dashes that open it ("<!-->").
inline bool closesComment(std::string_view line) { return line.find("-->") != line.npos; }

} // namespace quillmar::Markdown
