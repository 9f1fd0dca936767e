#pragma once

#include "Archives/ByteStream.h"
#include "Platform/DecompressionFilter.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace quillmar {

/// Bytes in memory. What `read` hands out is gone after the next call, as the interface threatens.
class MemoryStream : public ByteStream {
public:
    explicit MemoryStream(Data data) : data_(std::move(data)) {}

    /// From the call on that needs a byte behind the first \p count, a DecompressionError is thrown.
    void failAfter(std::size_t count) { failure_ = count; }

    /// Bytes handed out, those that were skipped not among them.
    std::size_t bytesRead() const { return bytesRead_; }
    std::size_t largestRead() const { return largestRead_; }

    DataView read(std::size_t count) override {
        const std::size_t length = advance(count);
        bytesRead_ += length;
        largestRead_ = std::max(largestRead_, count);
        lent_ = Data(data_, position_ - length, length);
        return lent_;
    }

    bool skip(std::int64_t count, const Deadline&) override {
        lent_ = Data();
        if (count < 0) return false;
        const auto wanted = static_cast<std::size_t>(count);
        return advance(wanted) == wanted;
    }

private:
    std::size_t advance(std::size_t count) {
        const std::size_t length = std::min(count, data_.size() - position_);
        if (count > failure_ - std::min(failure_, position_)) throw DecompressionError("a fault of the test");
        position_ += length;
        return length;
    }

    Data data_;
    Data lent_;
    std::size_t position_ = 0;
    std::size_t failure_ = std::numeric_limits<std::size_t>::max();
    std::size_t bytesRead_ = 0;
    std::size_t largestRead_ = 0;
};

} // namespace quillmar
