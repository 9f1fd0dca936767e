#include "Tests/QuillmarViewer/Listener.h"

#include <arpa/inet.h>
#include <array>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <stdexcept>
#include <sys/socket.h>
#include <unistd.h>

namespace quillmar {

Listener::Listener() : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    constexpr int waiting = 16;
    if (::bind(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        ::listen(socket_, waiting) != 0)
        throw std::runtime_error("cannot listen");
}

Listener::~Listener() {
    if (visitor_ >= 0) ::close(visitor_);
    ::close(socket_);
}

std::string Listener::url(const std::string& name) const {
    sockaddr_in address{};
    socklen_t size = sizeof address;
    ::getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &size);
    return std::string("http://127.0.0.1:").append(std::to_string(ntohs(address.sin_port))).append("/" + name);
}

bool Listener::wasVisited() {
    if (visitor_ < 0) visitor_ = ::accept4(socket_, nullptr, nullptr, SOCK_CLOEXEC);
    return visitor_ >= 0;
}

void Listener::answerWithRedPicture() {
    constexpr int bound = 5'000; // milliseconds until the request has come
    pollfd waiting{.fd = visitor_, .events = POLLIN, .revents = 0};
    ::poll(&waiting, 1, bound);
    std::array<char, 4'096> request{};
    if (::read(visitor_, request.data(), request.size()) < 0) return;
    const std::string picture = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"300\" height=\"200\">"
                                "<rect width=\"300\" height=\"200\" fill=\"#ff0000\"/></svg>";
    const std::string answer = std::string("HTTP/1.1 200 OK\r\nContent-Type: image/svg+xml\r\n")
                                   .append("Connection: close\r\nContent-Length: ")
                                   .append(std::to_string(picture.size()))
                                   .append("\r\n\r\n" + picture);
    static_cast<void>(::send(visitor_, answer.data(), answer.size(), MSG_NOSIGNAL));
    ::shutdown(visitor_, SHUT_WR);
}

} // namespace quillmar
