#pragma once

#include "Platform/DateFormat.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillmar {

/// One entry of an archive's table of contents.
struct ArchiveEntry {
    std::string path; ///< normalised: components separated by "/", none of them empty or "."
    bool isDirectory = false;
    std::int64_t size = 0; ///< bytes, as recorded; may be negative in a hostile tar archive
    std::optional<std::int64_t> compressedSize; ///< bytes; known for the files of a zip archive only
    std::optional<Timestamp> modified;
    bool isEncrypted = false;
    bool isLink = false; ///< symbolic or hard
    bool operator==(const ArchiveEntry&) const = default;

    /// \p path without empty and "." components; ".." stays. Empty when nothing else is left.
    static std::string normalize(std::string_view path);
};

} // namespace quillmar
