#include "Archives/DecompressingStream.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace quillmar {
namespace {

/// Bytes decompressed at a time. Larger pieces are no faster: these still fit into the processor's cache.
constexpr std::size_t pieceBytes = 262'144;

/// Bytes skipped between two looks at the clock.
constexpr std::int64_t skippedBetweenLooks = 1'048'576;
static_assert(skippedBetweenLooks >= static_cast<std::int64_t>(pieceBytes));

} // namespace

DecompressingStream::DecompressingStream(FileHandle& file, DecompressionFilter::Algorithm algorithm,
                                         Deadline deadline)
    : filter_(DecompressionFilter::make(file, algorithm)), deadline_(std::move(deadline)) {}

/// Makes \p count bytes available, if the data has them.
void DecompressingStream::fill(std::size_t count) {
    if (available() >= count || ended_) return;
    std::memmove(pending_.data(), pending_.data() + position_, available());
    end_ -= std::exchange(position_, 0);
    // A piece more than asked for: the last one rarely ends where the caller does.
    if (pending_.size() < count + pieceBytes) pending_.resize(count + pieceBytes);
    while (end_ < count && !ended_) {
        const auto piece = filter_->read(std::span(pending_).subspan(end_, pieceBytes));
        end_ += piece.count;
        ended_ = piece.isLast;
        if (piece.count == 0 && !ended_ && deadline_.passed())
            throw DecompressionError("The compressed data takes too long to read.");
    }
}

DataView DecompressingStream::read(std::size_t count) {
    fill(count);
    const std::size_t taken = std::min(available(), count);
    return DataView(pending_).substr(std::exchange(position_, position_ + taken), taken);
}

bool DecompressingStream::skip(std::int64_t count, const Deadline& deadline) {
    if (count < 0) return false;
    std::int64_t sinceLook = 0;
    while (count > 0) {
        fill(1);
        if (available() == 0) return false;
        const auto taken = std::min(static_cast<std::int64_t>(available()), count);
        position_ += static_cast<std::size_t>(taken);
        count -= taken;
        sinceLook += taken;
        if (sinceLook < skippedBetweenLooks) continue;
        if (deadline.passed()) return false;
        sinceLook = 0;
    }
    return true;
}

} // namespace quillmar
