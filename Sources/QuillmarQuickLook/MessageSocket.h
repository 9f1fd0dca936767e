#pragma once

#include "Platform/Data.h"

#include <chrono>
#include <cstddef>
#include <optional>

namespace quillmar {

/// Messages of bytes between processes of this machine, each with its length in front. The other side is not
/// trusted: neither its lengths nor its patience.
class MessageSocket {
public:
    /// \p descriptor is a connected stream socket and outlives this object. \p patience is for each message.
    MessageSocket(int descriptor, std::chrono::milliseconds patience)
        : descriptor_(descriptor), patience_(patience) {}

    /// False when the other side is gone or does not take it in time.
    bool send(DataView message) const;

    /// None when the other side is gone, says nothing in time, or says more than \p maxBytes.
    std::optional<Data> receive(std::size_t maxBytes) const;

    /// For those who wait as long as it takes.
    static constexpr std::chrono::milliseconds forever{-1};

private:
    using Moment = std::chrono::steady_clock::time_point;

    bool wait(short events, Moment end) const;
    bool sendAll(const char* bytes, std::size_t count, Moment end) const;
    bool receiveAll(char* room, std::size_t count, Moment end) const;

    int descriptor_;
    std::chrono::milliseconds patience_;
};

} // namespace quillmar
