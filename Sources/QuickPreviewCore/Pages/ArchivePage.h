#pragma once

#include "Archives/ArchiveContent.h"
#include "Platform/FileURL.h"
#include "Support/PreviewAssets.h"

#include <cstdint>
#include <string>

/// The page of an archive: figures, and its contents as a tree that opens without script.
namespace quillmar::ArchivePage {

/// The whole document. \p archiveSize is the size of the file at \p url, bytes.
std::string html(const ArchiveListing& listing, const FileURL& url, std::int64_t archiveSize,
                 PreviewAssets& assets);

} // namespace quillmar::ArchivePage
