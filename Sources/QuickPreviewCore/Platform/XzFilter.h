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
    /// True when \p head, the start of an xz file, shows a first block that states its sizes (the xz file
    /// format, 3.1.2). Only files with such blocks can be decoded by several threads.
    static bool statesBlockSizes(DataView head);
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
