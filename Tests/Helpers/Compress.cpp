#include "Tests/Helpers/Compress.h"

#include <lzma.h>
#include <stdexcept>
#include <zlib.h>

namespace quillmar {

Data gzip(DataView data) {
    z_stream stream{};
    constexpr int gzipFormat = 16 + MAX_WBITS;
    if (deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, gzipFormat, MAX_MEM_LEVEL,
                     Z_DEFAULT_STRATEGY) != Z_OK)
        throw std::runtime_error("deflateInit2");
    Data out(deflateBound(&stream, data.size()) + 32, '\0');
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(data.data()));
    stream.avail_in = static_cast<uInt>(data.size());
    stream.next_out = reinterpret_cast<Bytef*>(out.data());
    stream.avail_out = static_cast<uInt>(out.size());
    if (deflate(&stream, Z_FINISH) != Z_STREAM_END) throw std::runtime_error("deflate");
    out.resize(stream.total_out);
    deflateEnd(&stream);
    return out;
}

Data xz(DataView data, std::size_t blockBytes) {
    lzma_stream stream = LZMA_STREAM_INIT;
    lzma_mt options{};
    options.threads = 1;
    options.block_size = blockBytes;
    options.preset = 1;
    options.check = LZMA_CHECK_CRC64;
    const lzma_ret started = blockBytes > 0 ? lzma_stream_encoder_mt(&stream, &options)
                                            : lzma_easy_encoder(&stream, 1, LZMA_CHECK_CRC64);
    if (started != LZMA_OK) throw std::runtime_error("lzma encoder");
    Data out(data.size() + 65'536, '\0');
    stream.next_in = reinterpret_cast<const std::uint8_t*>(data.data());
    stream.avail_in = data.size();
    stream.next_out = reinterpret_cast<std::uint8_t*>(out.data());
    stream.avail_out = out.size();
    if (lzma_code(&stream, LZMA_FINISH) != LZMA_STREAM_END) throw std::runtime_error("lzma_code");
    out.resize(stream.total_out);
    lzma_end(&stream);
    return out;
}

} // namespace quillmar
