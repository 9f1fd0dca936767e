#pragma once

#include "Platform/Data.h"
#include "Platform/FileURL.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace quillmar {

/// A regular file, open for reading; closed when it goes. Pipes, sockets and devices are never opened: reading
/// them could block for ever or take bytes away from their owner.
class FileHandle {
public:
    /// Throws FileError.
    explicit FileHandle(const FileURL& url);
    ~FileHandle();
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;

    /// The next bytes, at most \p count; fewer only at the end of the file. Memory is taken for what is there,
    /// not for what is asked. Throws FileError.
    Data read(std::size_t count);
    /// The same into \p room; the number of bytes that were there.
    std::size_t read(std::span<char> room);
    /// The same from \p offset on, without moving the handle.
    std::size_t read(std::span<char> room, std::int64_t offset) const;

    /// Bytes in the file now. Throws FileError.
    std::int64_t size() const;
    std::int64_t offset() const;
    /// \p offset is not negative; it may lie behind the end. Throws FileError.
    void seek(std::int64_t offset);

private:
    /// What one call of the system gives; 0 at the end.
    std::size_t readOnce(std::span<char> room);

    FileURL url_;
    int descriptor_;
    std::int64_t openedSize_; ///< when it was opened; only a hint for how much to ask
};

/// The first bytes of the file, at most \p count. Throws FileError.
Data readPrefix(const FileURL& url, std::size_t count);

} // namespace quillmar
