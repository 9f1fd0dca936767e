#include "Platform/FileHandle.h"

#include "Platform/FileError.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quillmar {
namespace {

/// Bytes asked of the system at a time where its word on the size is not to be relied on: files that are made
/// up while they are read report none, files that grow too few.
constexpr std::size_t readPiece = 65'536;

void requireRegular(const FileURL& url, const struct stat& status) {
    if (!S_ISREG(status.st_mode)) throw FileError::notRegular(url, status.st_mode);
}

/// A descriptor of the file; its status in \p status.
int openRegular(const FileURL& url, struct stat& status) {
    // Opening alone can act on a device or wait at a pipe, so the item is looked at before; and once more
    // after, because somebody may have exchanged it.
    if (::stat(url.path().c_str(), &status) != 0) throw FileError::system(url, errno);
    requireRegular(url, status);
    const int descriptor = ::open(url.path().c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (descriptor < 0) throw FileError::system(url, errno);
    const int error = ::fstat(descriptor, &status) == 0 ? 0 : errno;
    if (error == 0 && S_ISREG(status.st_mode)) return descriptor;
    ::close(descriptor);
    if (error != 0) throw FileError::system(url, error);
    throw FileError::notRegular(url, status.st_mode);
}

} // namespace

FileHandle::FileHandle(const FileURL& url) : url_(url) {
    struct stat status {};
    descriptor_ = openRegular(url, status);
    openedSize_ = status.st_size;
}

FileHandle::~FileHandle() { ::close(descriptor_); }

Data FileHandle::read(std::size_t count) {
    Data data;
    // A second piece would make the text grow, which takes twice the room.
    auto expected = static_cast<std::size_t>(std::max<std::int64_t>(openedSize_ - offset(), 0));
    while (data.size() < count) {
        const std::size_t filled = data.size();
        // One byte more than expected, so that the end shows in the same call.
        const std::size_t piece = std::min(count - filled, std::max(readPiece, expected + 1));
        data.resize(filled + piece);
        const std::size_t taken = readOnce(std::span(data).subspan(filled));
        data.resize(filled + taken);
        expected -= std::min(expected, taken);
        if (taken == 0) break;
    }
    return data;
}

std::size_t FileHandle::read(std::span<char> room) {
    std::size_t filled = 0;
    while (filled < room.size()) {
        const std::size_t taken = readOnce(room.subspan(filled));
        if (taken == 0) break;
        filled += taken;
    }
    return filled;
}

std::size_t FileHandle::read(std::span<char> room, std::int64_t offset) const {
    std::size_t filled = 0;
    while (filled < room.size()) {
        const std::span<char> rest = room.subspan(filled);
        const ssize_t taken =
            ::pread(descriptor_, rest.data(), rest.size(), offset + static_cast<std::int64_t>(filled));
        if (taken < 0 && errno == EINTR) continue;
        if (taken < 0) throw FileError::system(url_, errno);
        if (taken == 0) break;
        filled += static_cast<std::size_t>(taken);
    }
    return filled;
}

std::size_t FileHandle::readOnce(std::span<char> room) {
    ssize_t taken = -1;
    do {
        taken = ::read(descriptor_, room.data(), room.size());
    } while (taken < 0 && errno == EINTR);
    if (taken < 0) throw FileError::system(url_, errno);
    return static_cast<std::size_t>(taken);
}

std::int64_t FileHandle::size() const {
    struct stat status {};
    if (::fstat(descriptor_, &status) != 0) throw FileError::system(url_, errno);
    return status.st_size;
}

std::int64_t FileHandle::offset() const { return ::lseek(descriptor_, 0, SEEK_CUR); }

void FileHandle::seek(std::int64_t offset) {
    if (::lseek(descriptor_, offset, SEEK_SET) < 0) throw FileError::system(url_, errno);
}

Data readPrefix(const FileURL& url, std::size_t count) { return FileHandle(url).read(count); }

} // namespace quillmar
