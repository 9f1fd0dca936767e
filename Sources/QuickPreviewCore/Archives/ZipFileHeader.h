#pragma once

#include "Archives/ArchiveEntry.h"
#include "Support/ByteReader.h"

#include <cstdint>
#include <optional>

namespace quillmar {

/// One file header of a zip archive's central directory (the zip application note, 4.3.12).
struct ZipFileHeader {
    std::optional<ArchiveEntry> entry; ///< none when nothing is left of its path
    std::int64_t length = 0;           ///< bytes to the next header: name, extra field and comment included

    /// The header at \p offset of \p directory, where its fixed part stands. What its lengths claim behind the
    /// end of the directory is cut from the name and zero elsewhere.
    static ZipFileHeader parse(const ByteReader& directory, std::int64_t offset);
};

} // namespace quillmar
