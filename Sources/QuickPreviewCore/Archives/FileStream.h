#pragma once

#include "Archives/ByteStream.h"
#include "Platform/FileHandle.h"

namespace quillmar {

/// The bytes of a file from where its handle stands. Skipping takes no time: the stream keeps its own place in
/// the file, and the handle stays where it is.
class FileStream : public ByteStream {
public:
    /// \p file must outlive the stream.
    explicit FileStream(FileHandle& file) : file_(file), position_(file.offset()), end_(file.size()) {}

    DataView read(std::size_t count) override;
    /// A skip past the end stops there.
    bool skip(std::int64_t count, const Deadline& deadline) override;

private:
    FileHandle& file_;
    std::int64_t position_; ///< of the next byte in the file
    std::int64_t end_;
    Data data_;
};

} // namespace quillmar
