#pragma once

#include "Platform/FileURL.h"

#include <stdexcept>

namespace quillmar {

/// A file that cannot be opened or read. `what()` is a whole sentence for the user, the item's name in it.
class FileError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;

    /// The sentence for the system's error number \p code (`errno`).
    static FileError system(const FileURL& url, int code);
    /// The sentence for an item that has no bytes to read: a folder, a named pipe, a socket, a device.
    /// \p mode is the item's `st_mode`.
    static FileError notRegular(const FileURL& url, unsigned mode);
};

} // namespace quillmar
