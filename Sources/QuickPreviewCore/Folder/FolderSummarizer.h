#pragma once

#include "Folder/DirectorySize.h"
#include "Folder/FolderSummary.h"
#include "Support/Deadline.h"

namespace quillmar::FolderSummarizer {

/// The children of the folder at \p url, each measured with everything in it. Measuring ends \p budget seconds
/// from now; reading the folder itself has no limit. Children that cannot be asked are left out. Throws
/// FileError when the folder cannot be listed.
FolderSummary summarize(const FileURL& url, double budget, const Clock& clock = systemClock);

/// Bytes of all regular files in the folder at \p url, by their length rather than the room they take, hard
/// links once each. Links are not followed, what cannot be read is passed over. No size when the folder cannot
/// be opened, or when \p deadline is now or in the past.
DirectorySize directorySize(const FileURL& url, const Deadline& deadline);

} // namespace quillmar::FolderSummarizer
