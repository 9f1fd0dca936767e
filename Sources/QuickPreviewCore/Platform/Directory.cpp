#include "Platform/Directory.h"

#include "Platform/FileError.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

namespace quillmar {
namespace {

/// Nothing waits at a pipe or a terminal that has taken the folder's place.
constexpr int openFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;

// Magic numbers that the kernel keeps in its own sources only.
constexpr unsigned configfsMagic = 0x62656570;
constexpr unsigned fusectlMagic = 0x65735543;
constexpr unsigned mqueueMagic = 0x19800202;
constexpr unsigned rpcPipefsMagic = 0x67596969;

constexpr std::array<unsigned, 20> pseudoFileSystems{
    PROC_SUPER_MAGIC,     SYSFS_MAGIC,         DEBUGFS_MAGIC, TRACEFS_MAGIC,  SECURITYFS_MAGIC,
    CGROUP_SUPER_MAGIC,   CGROUP2_SUPER_MAGIC, BPF_FS_MAGIC,  PSTOREFS_MAGIC, EFIVARFS_MAGIC,
    BINFMTFS_MAGIC,       DEVPTS_SUPER_MAGIC,  SELINUX_MAGIC, SMACK_MAGIC,    NSFS_MAGIC,
    RDTGROUP_SUPER_MAGIC, configfsMagic,       fusectlMagic,  mqueueMagic,    rpcPipefsMagic,
};

ItemKind kindOfMode(unsigned mode) {
    switch (mode & S_IFMT) {
    case S_IFDIR: return ItemKind::folder;
    case S_IFREG: return ItemKind::regularFile;
    case S_IFLNK: return ItemKind::symbolicLink;
    default: return ItemKind::other;
    }
}

} // namespace

Directory::Directory(const FileURL& url) : descriptor_(::open(url.path().c_str(), openFlags)) {
    if (descriptor_ < 0) throw FileError::system(url, errno);
}

Directory::Directory(const Directory& parent, const char* name)
    : descriptor_(::openat(parent.descriptor_, name, openFlags | O_NOFOLLOW)), error_(isOpen() ? 0 : errno) {}

Directory::~Directory() {
    if (isOpen()) ::close(descriptor_);
}

std::optional<ItemStatus> Directory::status(const char* name) const {
    struct stat status {};
    if (::fstatat(descriptor_, name, &status, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT) != 0) return std::nullopt;
    return ItemStatus{
        .kind = kindOfMode(status.st_mode), .size = status.st_size, .modified = status.st_mtim.tv_sec};
}

std::optional<Timestamp> Directory::modified() const {
    struct stat status {};
    if (::fstat(descriptor_, &status) != 0) return std::nullopt;
    return status.st_mtim.tv_sec;
}

bool Directory::isSearchable() const { return ::faccessat(descriptor_, ".", X_OK, AT_EACCESS) == 0; }

bool Directory::isOnPseudoFileSystem() const {
    struct statfs status {};
    if (::fstatfs(descriptor_, &status) != 0) return false;
    return std::ranges::find(pseudoFileSystems, static_cast<unsigned>(status.f_type)) !=
           pseudoFileSystems.end();
}

} // namespace quillmar
