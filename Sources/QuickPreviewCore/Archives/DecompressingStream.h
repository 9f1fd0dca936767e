#pragma once

#include "Archives/ByteStream.h"
#include "Platform/DecompressionFilter.h"

#include <memory>

namespace quillmar {

/// The bytes that a file decompresses to. Holds no more of them than the largest single read and one piece.
class DecompressingStream : public ByteStream {
public:
    /// \p file stands where the compressed data begins; it must outlive the stream. When no byte has come out
    /// by \p deadline, reading ends in a DecompressionError: input may be endless without meaning anything.
    DecompressingStream(FileHandle& file, DecompressionFilter::Algorithm algorithm, Deadline deadline);

    DataView read(std::size_t count) override;
    bool skip(std::int64_t count, const Deadline& deadline) override;

private:
    void fill(std::size_t count);
    std::size_t available() const { return end_ - position_; }

    std::unique_ptr<DecompressionFilter> filter_;
    Deadline deadline_;
    Data pending_;             ///< room for decompressed bytes
    std::size_t position_ = 0; ///< of the first that is not yet handed out
    std::size_t end_ = 0;      ///< behind the last
    bool ended_ = false;
};

} // namespace quillmar
