#pragma once

#include "Platform/Data.h"
#include "Platform/FileHandle.h"

#include <cstddef>
#include <memory>
#include <span>
#include <stdexcept>

namespace quillmar {

/// Compressed data that ends before its stream does, or that is invalid.
class DecompressionError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Decompresses a file from where its handle stands, piece by piece. Reads nothing behind the end of the first
/// stream or member.
class DecompressionFilter {
public:
    enum class Algorithm {
        deflate, ///< raw (RFC 1951), by ISA-L
        xz,      ///< by liblzma, in one thread: the first bytes come soonest
        xzBlocks ///< by liblzma, in several threads where the file is made of blocks that state their sizes
    };

    /// The fastest way to decompress the whole of an xz file that begins with \p head.
    static Algorithm forWholeXz(DataView head);

    struct Piece {
        std::size_t count = 0; ///< bytes written; may be 0 before the end, when input was only consumed
        bool isLast = false;   ///< the stream has ended
    };

    virtual ~DecompressionFilter() = default;

    /// Writes the next bytes to \p room, which is not empty. What was decoded before a fault is delivered
    /// first; the call that can deliver nothing else throws DecompressionError. Takes one piece of input at the
    /// most, so that the caller can look at the clock. Throws FileError.
    virtual Piece read(std::span<char> room) = 0;

    /// \p file must outlive the filter.
    static std::unique_ptr<DecompressionFilter> make(FileHandle& file, Algorithm algorithm);
};

} // namespace quillmar
