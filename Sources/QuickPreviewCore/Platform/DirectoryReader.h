#pragma once

#include "Platform/Directory.h"

#include <array>
#include <cstddef>
#include <memory>
#include <optional>

namespace quillmar {

/// Reads the names in folders, one folder after the other through one buffer.
class DirectoryReader {
public:
    DirectoryReader();

    /// An item, but for "." and "..", in the order that the file system keeps.
    struct Entry {
        const char* name; ///< bytes, any but NUL and "/"; valid until the next call
        ItemKind kind;
    };

    /// Begins with \p directory, which is open, has not been read before and must outlive the reading.
    void start(const Directory& directory);
    /// None at the end, and when the system fails.
    std::optional<Entry> next();
    /// The number of the system's fault (`errno`), 0 without one.
    int error() const { return error_; }

private:
    bool fill();

    /// Large buffers are slower where folders are small: the system clears what it lends.
    static constexpr std::size_t bufferBytes = 32'768;

    using Buffer = std::array<char, bufferBytes>;

    std::unique_ptr<Buffer> buffer_;
    int descriptor_ = -1;
    std::size_t position_ = 0;
    std::size_t filled_ = 0;
    int error_ = 0;
};

} // namespace quillmar
