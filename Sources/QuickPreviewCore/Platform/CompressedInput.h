#pragma once

#include "Platform/FileHandle.h"

#include <vector>

namespace quillmar {

/// The compressed side of a filter: a file, read a piece at a time.
class CompressedInput {
public:
    /// \p file must outlive this object.
    explicit CompressedInput(FileHandle& file) : file_(file), buffer_(pieceBytes) {}

    /// The next piece; empty at the end of the file. Lives until the next call. Throws FileError.
    std::span<char> next() { return std::span(buffer_).first(file_.read(buffer_)); }

private:
    /// Bytes read of the file at a time.
    static constexpr std::size_t pieceBytes = 65'536;

    FileHandle& file_;
    std::vector<char> buffer_;
};

} // namespace quillmar
