#pragma once

#include "Platform/DateFormat.h"
#include "Platform/FileURL.h"

#include <cstdint>
#include <optional>

namespace quillmar {

/// What an item is, without following it when it is a link.
enum class ItemKind : std::uint8_t {
    unknown, ///< the file system tells only when it is asked for the item's status
    folder,
    regularFile,
    symbolicLink,
    other, ///< pipes, sockets, devices
};

/// What the file system says of one item, which is not followed when it is a link.
struct ItemStatus {
    ItemKind kind = ItemKind::unknown;
    std::int64_t size = 0; ///< bytes, as reported
    Timestamp modified = 0;
};

/// A folder, open for reading; closed when it goes. Items in it are reached through it, so that neither a path
/// that grows too long nor somebody who moves a folder meanwhile leads elsewhere.
class Directory {
public:
    /// The folder at \p url, or the one that a link there leads to. Throws FileError.
    explicit Directory(const FileURL& url);
    /// The folder \p name in \p parent; a link is not followed. Whether that worked, `isOpen` tells.
    Directory(const Directory& parent, const char* name);
    ~Directory();
    Directory(Directory&& other) noexcept : descriptor_(other.descriptor_), error_(other.error_) {
        other.descriptor_ = -1;
    }
    Directory& operator=(Directory&&) = delete;

    bool isOpen() const { return descriptor_ >= 0; }
    /// Why it could not be opened, as a number of the system (`errno`); 0 when it is open.
    int error() const { return error_; }

    /// Of an item in it; none when the item cannot be asked.
    std::optional<ItemStatus> status(const char* name) const;
    /// When something was added to it or removed.
    std::optional<Timestamp> modified() const;
    /// False when its items may be listed but not looked at.
    bool isSearchable() const;
    /// True for what the kernel makes up: processes, devices, settings. No disk holds it.
    bool isOnPseudoFileSystem() const;

private:
    friend class DirectoryReader;

    int descriptor_ = -1;
    int error_ = 0;
};

} // namespace quillmar
