#include "QuillmarQuickLook/FileManagers/ServicesFolder.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace quillmar {
namespace {

/// Bytes of a file that is looked at: several times what the longest path takes, each character quoted.
constexpr std::size_t maxFileBytes = 65'536;

/// Data folders are their user's own (XDG Base Directory, "Referencing this").
constexpr ::mode_t folderMode = S_IRWXU;
constexpr ::mode_t fileMode = S_IRUSR | S_IWUSR | S_IRGRP | S_IROTH;

std::string advice(int code) {
    switch (code) {
    case EACCES:
    case EPERM: return "Make it writable for this user and try again.";
    case EROFS: return "Make its disk writable, or set XDG_DATA_HOME to a folder that is.";
    case ENOSPC:
    case EDQUOT: return "Make room on the disk and try again.";
    case ENOTDIR:
    case ELOOP: return "Put a real folder where a file or a link is, and try again.";
    case EISDIR:
    case ENOTEMPTY:
    case EEXIST: return "Move away the folder that is in its place and try again.";
    default: return "Put that right and try again.";
    }
}

[[noreturn]] void fail(const char* action, const std::string& path, int code) {
    std::string sentence = "Cannot ";
    sentence.append(action).append(" “").append(path).append("”: ");
    sentence.append(std::generic_category().message(code)).append(". ").append(advice(code));
    throw ServicesFolderError(sentence);
}

/// Makes the folder at \p path and those above it.
void makeFolders(const std::string& path) {
    for (std::size_t end = 0; end != path.npos;) {
        end = path.find('/', end + 1);
        const std::string above = path.substr(0, end);
        // Where a folder is, some systems say that they are not writable rather than that it exists.
        if (::mkdir(above.c_str(), folderMode) == 0 || errno == EEXIST || ::access(above.c_str(), F_OK) == 0)
            continue;
        fail("make the folder", above, errno);
    }
}

/// A descriptor of one's own for a while.
class OpenFile {
public:
    explicit OpenFile(int descriptor) : descriptor_(descriptor) {}
    ~OpenFile() {
        if (descriptor_ >= 0) ::close(descriptor_);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    int get() const { return descriptor_; }
    int release() { return std::exchange(descriptor_, -1); }
    void reset(int descriptor) {
        if (descriptor_ >= 0) ::close(descriptor_);
        descriptor_ = descriptor;
    }

private:
    int descriptor_;
};

/// The error number, 0 when all of \p text is on the disk.
int writeAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t count = ::write(descriptor, text.data(), text.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return errno;
        text.remove_prefix(static_cast<std::size_t>(count));
    }
    return ::fsync(descriptor) == 0 ? 0 : errno;
}

} // namespace

ServicesFolder ServicesFolder::made(const std::string& dataFolder) {
    makeFolders(dataFolder);
    return std::move(*open(dataFolder, true));
}

std::optional<ServicesFolder> ServicesFolder::existing(const std::string& dataFolder) {
    return open(dataFolder, false);
}

/// The data folder may be a link, which its user has made; what is below it may not.
std::optional<ServicesFolder> ServicesFolder::open(const std::string& dataFolder, bool isToBeMade) {
    constexpr int flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
    std::string path = dataFolder;
    OpenFile folder(::open(path.c_str(), flags));
    for (const char* below : {"dbus-1", "services"}) {
        if (folder.get() < 0) break;
        path.append("/").append(below);
        if (isToBeMade && ::mkdirat(folder.get(), below, folderMode) != 0 && errno != EEXIST)
            fail("make the folder", path, errno);
        folder.reset(::openat(folder.get(), below, flags | O_NOFOLLOW));
    }
    if (folder.get() >= 0) return ServicesFolder(folder.release(), path);
    if (errno == ENOENT && !isToBeMade) return std::nullopt;
    fail("open the folder", path, errno);
}

ServicesFolder::ServicesFolder(ServicesFolder&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)), path_(std::move(other.path_)) {}

ServicesFolder::~ServicesFolder() {
    if (descriptor_ >= 0) ::close(descriptor_);
}

std::string ServicesFolder::pathOf(const std::string& name) const { return path_ + '/' + name; }

bool ServicesFolder::has(const std::string& name) const {
    struct stat status {};
    if (::fstatat(descriptor_, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0) return true;
    if (errno != ENOENT) fail("look at", pathOf(name), errno);
    return false;
}

std::optional<std::string> ServicesFolder::contents(const std::string& name) const {
    // Opening a pipe would wait for somebody.
    constexpr int flags = O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
    const OpenFile file(::openat(descriptor_, name.c_str(), flags));
    struct stat status {};
    if (file.get() < 0 || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
    std::string text(maxFileBytes, '\0');
    const ssize_t count = ::read(file.get(), text.data(), text.size());
    if (count < 0 || status.st_size != count) return std::nullopt;
    text.resize(static_cast<std::size_t>(count));
    return text;
}

void ServicesFolder::write(const std::string& name, std::string_view text) const {
    // Session buses read no file whose name does not end as those of services do.
    const std::string unfinished = '.' + name + '.' + std::to_string(::getpid());
    ::unlinkat(descriptor_, unfinished.c_str(), 0);
    OpenFile file(::openat(descriptor_, unfinished.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, fileMode));
    if (file.get() < 0) fail("write", pathOf(name), errno);
    int code = writeAll(file.get(), text);
    if (code == 0 && ::renameat(descriptor_, unfinished.c_str(), descriptor_, name.c_str()) != 0) code = errno;
    if (code == 0) return;
    ::unlinkat(descriptor_, unfinished.c_str(), 0);
    fail("write", pathOf(name), code);
}

void ServicesFolder::rename(const std::string& from, const std::string& to) const {
    if (::renameat(descriptor_, from.c_str(), descriptor_, to.c_str()) != 0)
        fail("rename", pathOf(from), errno);
}

void ServicesFolder::remove(const std::string& name) const {
    if (::unlinkat(descriptor_, name.c_str(), 0) != 0) fail("remove", pathOf(name), errno);
}

} // namespace quillmar
