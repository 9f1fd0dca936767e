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
    if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
        ::close(descriptor);
        throw FileError::notRegular(url, status.st_mode);
    }
    return descriptor;
}

} // namespace

FileHandle::FileHandle(const FileURL& url) : url_(url) {
    struct stat status {};
    descriptor_ = openRegular(url, status);
    expected_ = static_cast<std::size_t>(status.st_size);
}

FileHandle::~FileHandle() { ::close(descriptor_); }

Data FileHandle::read(std::size_t count) {
    Data data;
    while (data.size() < count) {
        const std::size_t filled = data.size();
        // One byte more than expected, so that the end shows in the same call.
        const std::size_t piece = std::min(count - filled, std::max(readPiece, expected_ + 1));
        data.resize(filled + piece);
        const ssize_t got = ::read(descriptor_, data.data() + filled, piece);
        const std::size_t taken = got > 0 ? static_cast<std::size_t>(got) : 0;
        data.resize(filled + taken);
        expected_ -= std::min(expected_, taken);
        if (got < 0 && errno != EINTR) throw FileError::system(url_, errno);
        if (got == 0) break;
    }
    return data;
}

Data readPrefix(const FileURL& url, std::size_t count) { return FileHandle(url).read(count); }

} // namespace quillmar
