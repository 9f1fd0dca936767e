#pragma once

#include "Platform/CompressedInput.h"
#include "Platform/DecompressionFilter.h"

#include <lzma.h>

namespace quillmar {

/// The first stream of an xz file through liblzma.
class XzFilter : public DecompressionFilter {
public:
    enum class Threads { one, several };

    XzFilter(FileHandle& file, Threads threads);
    ~XzFilter() override;
    XzFilter(const XzFilter&) = delete;
    XzFilter& operator=(const XzFilter&) = delete;

    Piece read(std::span<char> room) override;

private:
    CompressedInput input_;
    lzma_stream stream_ = LZMA_STREAM_INIT;
    bool inputEnded_ = false;
    lzma_ret status_ = LZMA_OK;
};

} // namespace quillmar
