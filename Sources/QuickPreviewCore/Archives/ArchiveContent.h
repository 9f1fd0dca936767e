#pragma once

#include "Archives/ArchiveEntry.h"
#include "Platform/Data.h"

#include <string_view>
#include <variant>
#include <vector>

namespace quillmar {

enum class ArchiveFormat {
    zip,
    tar,
    tarGzip, ///< tar inside a gzip stream
    tarXz,   ///< tar inside an xz stream
    gzip,    ///< a single compressed file
    xz,      ///< a single compressed file
};

/// For a person: "ZIP archive", "Tar archive, gzip-compressed".
std::string_view displayName(ArchiveFormat format);

/// A table of contents.
struct ArchiveListing {
    ArchiveFormat format = ArchiveFormat::zip;
    std::vector<ArchiveEntry> entries; ///< in the order of the archive
    bool isComplete = true;            ///< false when a limit, the deadline or bad data ended the listing early
    bool operator==(const ArchiveListing&) const = default;
};

/// A single compressed file that is no archive.
struct CompressedFile {
    ArchiveFormat format = ArchiveFormat::gzip;
    std::string originalName;                 ///< of the file after decompression
    std::optional<std::int64_t> originalSize; ///< bytes, as recorded (gzip: modulo 2^32); a hint
    Data sample;                              ///< the first decompressed bytes
    bool sampleIsComplete = true;
    bool operator==(const CompressedFile&) const = default;
};

using ArchiveContent = std::variant<ArchiveListing, CompressedFile>;

} // namespace quillmar
