#include "Platform/XzFilter.h"

#include <algorithm>
#include <new>
#include <thread>

namespace quillmar {
namespace {

/// Bytes that liblzma may take. Dictionaries are as large as the file says, up to 4 GiB.
constexpr std::uint64_t memoryLimit = 268'435'456;

/// Bytes from which on blocks are decoded one after the other instead of side by side: each thread holds the
/// input and the output of a whole block.
constexpr std::uint64_t memoryLimitOfThreads = 201'326'592;

constexpr std::uint32_t maxThreads = 4;

/// Milliseconds after which the decoder comes back without a byte, so that the caller can look at the clock.
constexpr std::uint32_t patience = 50;

/// Checks of the contents cost time and would only reject what can still be shown.
constexpr std::uint32_t flags = LZMA_IGNORE_CHECK;

lzma_ret startThreads(lzma_stream& stream) {
    lzma_mt options{};
    options.flags = flags;
    options.threads = std::clamp<std::uint32_t>(std::thread::hardware_concurrency(), 1, maxThreads);
    options.timeout = patience;
    options.memlimit_threading = memoryLimitOfThreads;
    options.memlimit_stop = memoryLimit;
    return lzma_stream_decoder_mt(&stream, &options);
}

} // namespace

XzFilter::XzFilter(FileHandle& file, Threads threads) : input_(file) {
    status_ =
        threads == Threads::one ? lzma_stream_decoder(&stream_, memoryLimit, flags) : startThreads(stream_);
    if (status_ != LZMA_OK) throw std::bad_alloc(); // the only way to fail: the arguments are ours
}

bool XzFilter::statesBlockSizes(DataView head) {
    constexpr std::size_t blockFlags = LZMA_STREAM_HEADER_SIZE + 1; // behind the header's size
    constexpr unsigned bothSizes = 0xC0;
    return head.size() > blockFlags && (static_cast<unsigned char>(head[blockFlags]) & bothSizes) == bothSizes;
}

XzFilter::~XzFilter() { lzma_end(&stream_); }

DecompressionFilter::Piece XzFilter::read(std::span<char> room) {
    if (stream_.avail_in == 0 && !inputEnded_ && status_ == LZMA_OK) {
        const auto piece = input_.next();
        stream_.next_in = reinterpret_cast<const std::uint8_t*>(piece.data());
        stream_.avail_in = piece.size();
        inputEnded_ = piece.empty();
    }
    stream_.next_out = reinterpret_cast<std::uint8_t*>(room.data());
    stream_.avail_out = room.size();
    if (status_ == LZMA_OK) status_ = lzma_code(&stream_, inputEnded_ ? LZMA_FINISH : LZMA_RUN);

    const std::size_t count = room.size() - stream_.avail_out;
    const bool isLast = status_ == LZMA_STREAM_END;
    if (count == 0 && !isLast && status_ != LZMA_OK) {
        if (status_ == LZMA_MEM_ERROR) throw std::bad_alloc();
        throw DecompressionError(status_ == LZMA_BUF_ERROR ? "The compressed data is cut short."
                                                           : "The compressed data is invalid.");
    }
    return {count, isLast};
}

} // namespace quillmar
