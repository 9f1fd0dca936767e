#pragma once

#include "Platform/CompressedInput.h"
#include "Platform/DecompressionFilter.h"

struct inflate_state;

namespace quillmar {

/// Raw deflate data (RFC 1951) through ISA-L.
class InflateFilter : public DecompressionFilter {
public:
    explicit InflateFilter(FileHandle& file);
    ~InflateFilter() override;

    Piece read(std::span<char> room) override;

private:
    CompressedInput input_;
    std::unique_ptr<inflate_state> state_;
    bool hasFault_ = false;
};

} // namespace quillmar
