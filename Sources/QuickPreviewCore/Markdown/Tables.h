#pragma once

#include "Markdown/Inlines.h"
#include "Markdown/MarkdownLimits.h"

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

/// What the tables of one document share.
struct SharedByTables {
    /// Cells that may still be written for missing ones; a row that needs more is written with those it has.
    std::size_t paddingCells = MarkdownLimits::maxPaddingCells;
    /// Of the columns of the last table: room that need not be made again.
    std::vector<Alignment> alignments;
};

/// True when \p line over \p next begins a table.
bool beginsTable(std::string_view line, std::string_view next);

/// Appends the table whose header, delimiter and body rows are the lines of \p text.
void appendTable(std::string& html, std::string_view text, Inlines& inlines, SharedByTables& shared);

} // namespace quillmar::Markdown
