#pragma once

#include "Markdown/Line.h"

namespace quillmar::Markdown {

/// True when \p line has a quote marker ("> text").
inline bool beginsQuote(const Line& line) { return !line.isIndentedAsCode() && line.first() == '>'; }

/// \p line, which begins a quote, without its marker and one space behind it.
inline Line stripQuote(const Line& line) {
    std::string_view rest = line.content().substr(1);
    if (rest.starts_with(' ')) rest.remove_prefix(1);
    return Line(rest);
}

} // namespace quillmar::Markdown
