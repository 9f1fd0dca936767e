#pragma once

#include "Benchmarks/Figures/Report.h"

/// The tables of docs/benchmarks.md, a file each.
namespace quillmar::Figures {

/// Ours and what a user would run instead, in turn.
void comparisons(const Report& report);

/// The command's peak for every kind.
void memory(const Report& report);

/// What twice as much takes, for every kind.
void growth(const Report& report);

void hostileMarkdown(const Report& report);
void hostileArchives(const Report& report);

} // namespace quillmar::Figures
