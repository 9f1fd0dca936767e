#pragma once

#include "Archives/ArchiveContent.h"
#include "Platform/FileURL.h"
#include "Support/Deadline.h"

/// Recognises archives and compressed files by their content, not by their names.
namespace quillmar::ArchiveReader {

/// The content of the file at \p url. \p budget, in seconds, bounds the listing of a tar archive. Throws
/// ArchiveError, and FileError when the file cannot be read.
ArchiveContent read(const FileURL& url, double budget, const Clock& clock = systemClock);

} // namespace quillmar::ArchiveReader
