#include "QuillmarQuickLook/MessageSocket.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <poll.h>
#include <sys/socket.h>

namespace quillmar {

using Length = std::uint32_t;

bool MessageSocket::send(DataView message) const {
    const Moment end = std::chrono::steady_clock::now() + patience_;
    const auto length = static_cast<Length>(message.size());
    return sendAll(reinterpret_cast<const char*>(&length), sizeof length, end) &&
           sendAll(message.data(), message.size(), end);
}

std::optional<Data> MessageSocket::receive(std::size_t maxBytes) const {
    const Moment end = std::chrono::steady_clock::now() + patience_;
    Length length = 0;
    if (!receiveAll(reinterpret_cast<char*>(&length), sizeof length, end) || length > maxBytes)
        return std::nullopt;
    // Memory is written for what comes, not for what is announced; room that stays empty costs nothing.
    constexpr std::size_t roomAhead = 33'554'432;
    constexpr std::size_t pieceBytes = 65'536;
    Data message;
    message.reserve(std::min<std::size_t>(length, roomAhead));
    while (message.size() < length) {
        const std::size_t start = message.size();
        message.resize(std::min<std::size_t>(length, start + pieceBytes));
        if (!receiveAll(message.data() + start, message.size() - start, end)) return std::nullopt;
    }
    return message;
}

/// True when the socket is ready for one of \p events.
bool MessageSocket::wait(short events, Moment end) const {
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
        const int timeout =
            patience_ == forever ? -1 : static_cast<int>(std::max<std::int64_t>(left.count(), 0));
        pollfd entry{.fd = descriptor_, .events = events, .revents = 0};
        const int ready = ::poll(&entry, 1, timeout);
        if (ready > 0) return true;
        if (ready == 0 || errno != EINTR) return false;
    }
}

bool MessageSocket::sendAll(const char* bytes, std::size_t count, Moment end) const {
    while (count > 0) {
        const ssize_t sent = ::send(descriptor_, bytes, count, MSG_NOSIGNAL | MSG_DONTWAIT);
        if (sent < 0) {
            if (errno != EINTR && (errno != EAGAIN || !wait(POLLOUT, end))) return false;
            continue;
        }
        bytes += sent;
        count -= static_cast<std::size_t>(sent);
    }
    return true;
}

bool MessageSocket::receiveAll(char* room, std::size_t count, Moment end) const {
    while (count > 0) {
        const ssize_t received = ::recv(descriptor_, room, count, MSG_DONTWAIT);
        if (received == 0) return false;
        if (received < 0) {
            if (errno != EINTR && (errno != EAGAIN || !wait(POLLIN, end))) return false;
            continue;
        }
        room += received;
        count -= static_cast<std::size_t>(received);
    }
    return true;
}

} // namespace quillmar
