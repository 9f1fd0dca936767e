#pragma once

#include "Archives/ArchiveContent.h"
#include "Archives/ByteStream.h"

/// Lists a tar archive from a sequential stream: old tar, ustar, GNU long names, pax. Never throws on bad data:
/// trouble after the first header ends the listing and marks it incomplete.
namespace quillmar::TarReader {

/// \p first is the block already read; \p stream stands just behind it and stays open.
ArchiveListing listing(ByteStream& stream, DataView first, ArchiveFormat format, const Deadline& deadline,
                       std::size_t maxEntries);

} // namespace quillmar::TarReader
