#pragma once

#include "Platform/Data.h"

#include <cstdint>

namespace quillmar {

/// Little-endian numbers and slices of a byte buffer. Total: no offset or length makes it fail; what lies
/// outside the bytes reads as zero.
class ByteReader {
public:
    /// \p data must outlive the reader and every slice.
    explicit ByteReader(DataView data) : data_(data) {}

    /// 16, 32 or 64 bits from \p offset on.
    std::uint64_t u16(std::int64_t offset) const;
    std::uint64_t u32(std::int64_t offset) const;
    std::uint64_t u64(std::int64_t offset) const;
    /// At most \p length bytes from \p offset on; what runs past the end is cut. Empty when \p offset is
    /// negative or behind the end, or \p length is not positive.
    DataView slice(std::int64_t offset, std::int64_t length) const;

private:
    DataView data_;
};

} // namespace quillmar
