#pragma once

#include "Platform/Data.h"

#include <cstddef>
#include <optional>
#include <string>

namespace quillmar {

/// The header of a gzip member (RFC 1952, 2.3).
struct GzipHeader {
    std::optional<std::string> originalName; ///< FNAME, from ISO Latin-1; none when absent or empty
    std::size_t headerLength = 0;            ///< bytes before the deflate data

    /// \p data is the start of the file. None when it does not begin with a whole header.
    static std::optional<GzipHeader> parse(DataView data);
    bool operator==(const GzipHeader&) const = default;
};

} // namespace quillmar
