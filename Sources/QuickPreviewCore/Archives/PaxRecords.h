#pragma once

#include "Platform/Data.h"
#include "Platform/DateFormat.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>

namespace quillmar {

/// The pax records that wait for a tar archive's next entry (POSIX.1, pax, "pax Extended Header"): keywords and
/// values, of which three matter here.
class PaxRecords {
public:
    /// Adds the records of one extended header; a later value of a keyword replaces the earlier. A record is a
    /// line, and its declared length is ignored. Lines without a space or "=" are none.
    void merge(DataView extendedHeader);
    void clear();

    /// UTF-8 bytes of all keywords and values.
    std::size_t byteCount() const { return byteCount_; }

    /// "path"; valid until the records change.
    const std::optional<std::string>& path() const { return path_; }
    /// "size" in bytes; none when absent or no number of 64 bits. May be negative.
    std::optional<std::int64_t> size() const { return size_; }

    /// What "mtime" says.
    struct Modified {
        std::optional<Timestamp> time; ///< rounded down; none when it is outside 64 bits
        bool operator==(const Modified&) const = default;
    };
    /// None when "mtime" is absent or no number: sign, digits with an optional point, optional exponent,
    /// finite.
    const std::optional<Modified>& modified() const { return modified_; }

private:
    void set(DataView keyword, DataView value);

    std::map<std::string, std::size_t> valueBytes_; ///< by keyword; what most of them say is of no use here
    std::size_t byteCount_ = 0;
    std::optional<std::string> path_;
    std::optional<std::int64_t> size_;
    std::optional<Modified> modified_;
};

} // namespace quillmar
