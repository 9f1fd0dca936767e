#pragma once

#include "Archives/ArchiveContent.h"
#include "Platform/FileURL.h"

#include <cstddef>

/// Lists a zip archive from its central directory (the zip application note, 4.3.12). Local headers and data
/// are never read.
namespace quillmar::ZipReader {

/// Throws ArchiveError when the end of the archive or its directory cannot be found, and FileError. A directory
/// that goes bad further on yields the entries before, marked incomplete.
ArchiveListing listing(const FileURL& url, std::size_t maxEntries);

} // namespace quillmar::ZipReader
