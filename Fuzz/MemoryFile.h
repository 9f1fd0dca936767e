#pragma once

#include "Platform/Data.h"
#include "Platform/FileURL.h"

#include <string>
#include <sys/mman.h>
#include <unistd.h>

namespace quillmar {

/// A file without a disk, for readers that want one; the same for every input.
class MemoryFile {
public:
    MemoryFile() : descriptor_(::memfd_create("input", 0)) {}
    ~MemoryFile() { ::close(descriptor_); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    /// The place of the file, which now holds \p data.
    FileURL holding(DataView data) const {
        const bool isWritten =
            ::ftruncate(descriptor_, 0) == 0 &&
            ::pwrite(descriptor_, data.data(), data.size(), 0) == static_cast<ssize_t>(data.size());
        if (!isWritten) ::_exit(1);
        return FileURL::standardized("/proc/self/fd/" + std::to_string(descriptor_), FileURL::root());
    }

private:
    int descriptor_;
};

} // namespace quillmar
