#pragma once

#include "Platform/Data.h"
#include "Support/Deadline.h"

#include <cstddef>
#include <cstdint>

namespace quillmar {

/// Bytes that are read from front to back, plain or decompressed on the way.
class ByteStream {
public:
    virtual ~ByteStream() = default;

    /// The next bytes, at most \p count; fewer only at the end of the data, empty behind it. The stream owns
    /// them until the next call. Throws FileError and DecompressionError.
    virtual DataView read(std::size_t count) = 0;

    /// Passes over the next \p count bytes. False when the end came first, when \p count is negative or leads
    /// past the largest offset, and when the deadline has passed on the way. Throws like `read`.
    virtual bool skip(std::int64_t count, const Deadline& deadline) = 0;
};

} // namespace quillmar
