#pragma once

#include "Markdown/Inlines.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmar::Markdown {

enum class Alignment : std::uint8_t { none, left, center, right };

/// The cells of a row, trimmed. A "\|" in them still stands as written: see `cellText`.
std::vector<std::string_view> cells(std::string_view line);

/// \p cell with every "\|" a "|".
std::string cellText(std::string_view cell);

/// The alignments of a line like "| --- | :-: |"; none when it is not one.
std::optional<std::vector<Alignment>> tableDelimiter(std::string_view line);

/// True when \p line over \p next begins a table.
bool beginsTable(std::string_view line, std::string_view next);

/// Appends the table whose header, delimiter and body rows are the lines of \p text. \p paddingCells is what
/// the document may still add for missing cells; a row that needs more is written with the cells it has.
void appendTable(std::string& html, std::string_view text, Inlines& inlines, std::size_t& paddingCells);

} // namespace quillmar::Markdown
