#include "Platform/DirectoryReader.h"

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <dirent.h>
#include <string_view>
#include <sys/syscall.h>
#include <unistd.h>

namespace quillmar {
namespace {

/// What the kernel writes for an entry before its name (`struct linux_dirent64`).
struct EntryHead {
    std::uint64_t inode;
    std::int64_t offset;
    std::uint16_t length; ///< bytes up to the next entry
    std::uint8_t type;
};
constexpr std::size_t nameOffset = offsetof(EntryHead, type) + 1;

ItemKind kindOfType(std::uint8_t type) {
    switch (type) {
    case DT_UNKNOWN: return ItemKind::unknown;
    case DT_DIR: return ItemKind::folder;
    case DT_REG: return ItemKind::regularFile;
    case DT_LNK: return ItemKind::symbolicLink;
    default: return ItemKind::other;
    }
}

bool isItselfOrParent(const char* name) {
    return std::string_view(name) == "." || std::string_view(name) == "..";
}

} // namespace

DirectoryReader::DirectoryReader() : buffer_(std::make_unique_for_overwrite<Buffer>()) {}

void DirectoryReader::start(const Directory& directory) {
    descriptor_ = directory.descriptor_;
    position_ = 0;
    filled_ = 0;
    error_ = 0;
}

std::optional<DirectoryReader::Entry> DirectoryReader::next() {
    while (position_ < filled_ || fill()) {
        const char* entry = buffer_->data() + position_;
        EntryHead head{};
        std::memcpy(&head, entry, nameOffset);
        position_ += head.length;
        const char* name = entry + nameOffset;
        if (!isItselfOrParent(name)) return Entry{.name = name, .kind = kindOfType(head.type)};
    }
    return std::nullopt;
}

/// False at the end.
bool DirectoryReader::fill() {
    const long filled = ::syscall(SYS_getdents64, descriptor_, buffer_->data(), buffer_->size());
    if (filled < 0) error_ = errno;
    position_ = 0;
    filled_ = filled > 0 ? static_cast<std::size_t>(filled) : 0;
    return filled_ > 0;
}

} // namespace quillmar
