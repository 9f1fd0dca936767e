#pragma once

#include "Platform/FileURL.h"

#include <array>
#include <cstddef>
#include <dirent.h>
#include <fcntl.h>
#include <string_view>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

/// What a process may try; true when it succeeds.
namespace quillmar::Attempts {

inline bool open(const std::string& path, int flags) {
    const int descriptor = ::open(path.c_str(), flags | O_CLOEXEC, 0600);
    if (descriptor >= 0) ::close(descriptor);
    return descriptor >= 0;
}

inline bool readFile(const FileURL& url) {
    const int descriptor = ::open(url.path().c_str(), O_RDONLY | O_CLOEXEC);
    char byte = 0;
    const bool isRead = descriptor >= 0 && ::read(descriptor, &byte, 1) == 1;
    if (descriptor >= 0) ::close(descriptor);
    return isRead;
}

inline bool listFolder(const FileURL& url) {
    DIR* folder = ::opendir(url.path().c_str());
    const bool isListed = folder != nullptr && ::readdir(folder) != nullptr;
    if (folder != nullptr) ::closedir(folder);
    return isListed;
}

/// A socket that listens at \p name, which is not in the file system.
class AbstractListener {
public:
    explicit AbstractListener(std::string_view name)
        : socket_(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        address_.sun_family = AF_UNIX;
        name.copy(address_.sun_path + 1, sizeof address_.sun_path - 1);
        isListening_ = ::bind(socket_, address(), sizeof address_) == 0 && ::listen(socket_, 1) == 0;
    }
    ~AbstractListener() { ::close(socket_); }
    AbstractListener(const AbstractListener&) = delete;
    AbstractListener& operator=(const AbstractListener&) = delete;

    bool isListening() const { return isListening_; }
    bool connect(int descriptor) const { return ::connect(descriptor, address(), sizeof address_) == 0; }

private:
    const sockaddr* address() const { return reinterpret_cast<const sockaddr*>(&address_); }

    int socket_;
    sockaddr_un address_{};
    bool isListening_ = false;
};

} // namespace quillmar::Attempts
