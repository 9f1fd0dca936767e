#include "Platform/InflateFilter.h"

#include <algorithm>
#include <isa-l/igzip_lib.h>
#include <limits>

namespace quillmar {

InflateFilter::InflateFilter(FileHandle& file) : input_(file), state_(std::make_unique<inflate_state>()) {
    isal_inflate_init(state_.get());
    state_->crc_flag = ISAL_DEFLATE; // neither header nor trailer
}

InflateFilter::~InflateFilter() = default;

DecompressionFilter::Piece InflateFilter::read(std::span<char> room) {
    if (!hasFault_ && state_->avail_in == 0 && state_->block_state != ISAL_BLOCK_FINISH) {
        const auto piece = input_.next();
        state_->next_in = reinterpret_cast<std::uint8_t*>(piece.data());
        state_->avail_in = static_cast<std::uint32_t>(piece.size());
    }
    const bool inputEnded = state_->avail_in == 0;
    const auto roomBytes = static_cast<std::uint32_t>(
        std::min<std::size_t>(room.size(), std::numeric_limits<std::uint32_t>::max()));
    state_->next_out = reinterpret_cast<std::uint8_t*>(room.data());
    state_->avail_out = roomBytes;
    if (!hasFault_) hasFault_ = isal_inflate(state_.get()) < 0;

    const std::size_t count = roomBytes - state_->avail_out;
    const bool isLast = state_->block_state == ISAL_BLOCK_FINISH;
    if (count == 0 && !isLast && (hasFault_ || inputEnded))
        throw DecompressionError(hasFault_ ? "The compressed data is invalid."
                                           : "The compressed data is cut short.");
    return {count, isLast};
}

} // namespace quillmar
