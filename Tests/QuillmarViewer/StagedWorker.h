#pragma once

#include <string>

/// A worker that does as the item's name says: the viewer then meets what an item could make of a worker that
/// it has taken over.
///
/// "color-RRGGBB...": a page of that colour. "slow...": no answer, ever. "....page": the item itself is the
/// page, as it stands.
namespace quillmar::StagedWorker {

/// Returns the process's exit status.
int run();

/// Makes \p folder one of programs whose workers are this one: the viewer and, as its command, this test
/// program.
void makePrograms(const std::string& folder);

} // namespace quillmar::StagedWorker
