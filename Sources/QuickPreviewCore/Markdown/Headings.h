#pragma once

#include "Markdown/Line.h"

#include <optional>
#include <string_view>

namespace quillmar::Markdown {

/// A heading on one line: "## Text ##".
struct ATXHeading {
    int level = 1;         ///< 1 to 6
    std::string_view text; ///< a view into the line, empty or not

    static std::optional<ATXHeading> parse(const Line& line);
};

/// The level (1 or 2) of the heading that \p line makes of the paragraph above it: "===" or "---";
/// 0 when it makes none.
int setextLevel(const Line& line);

} // namespace quillmar::Markdown
