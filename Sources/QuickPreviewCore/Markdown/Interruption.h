#pragma once

#include "Markdown/Line.h"
#include "Markdown/ThematicBreak.h"

namespace quillmar::Markdown {

/// False when \p line can only be text: it begins with a letter or the like. Most lines do.
bool mayBeginBlock(const Line& line);

/// True when \p line ends a paragraph, the rows of a table, and the quotes and lists whose text it would
/// otherwise continue without their markers. \p breaks is of the same line.
bool interrupts(const Line& line, ThematicBreaks& breaks);

} // namespace quillmar::Markdown
