#pragma once

#include "Platform/Data.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <zlib.h>

namespace quillmar {

/// Red, green, blue, alpha; as a PNG has them, not multiplied.
using Pixel = std::array<int, 4>;

constexpr Pixel red{255, 0, 0, 255};
constexpr Pixel blue{0, 0, 255, 255};
constexpr Pixel clear{0, 0, 0, 0};

inline Data bigEndianBytes(std::uint32_t value) {
    Data bytes;
    for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(value >> shift & 0xFFU);
    return bytes;
}

/// A chunk of a PNG (PNG, 5.3): length, type, data, check sum of both.
inline Data pngChunk(const std::string& type, const Data& content) {
    const Data checked = type + content;
    const auto sum =
        ::crc32(0, reinterpret_cast<const Bytef*>(checked.data()), static_cast<uInt>(checked.size()));
    return bigEndianBytes(static_cast<std::uint32_t>(content.size())) + checked +
           bigEndianBytes(static_cast<std::uint32_t>(sum));
}

/// A PNG that says that it is \p width by \p height pixels, with the compressed rows \p rows.
inline Data pngOf(std::uint32_t width, std::uint32_t height, const Data& rows) {
    using namespace std::string_literals;
    constexpr uLong level = 9;
    uLongf size = ::compressBound(static_cast<uLong>(rows.size()));
    Data packed(size, '\0');
    ::compress2(reinterpret_cast<Bytef*>(packed.data()), &size, reinterpret_cast<const Bytef*>(rows.data()),
                static_cast<uLong>(rows.size()), level);
    packed.resize(size);
    return "\x89PNG\r\n\x1A\n"s +
           pngChunk("IHDR", bigEndianBytes(width) + bigEndianBytes(height) + "\x08\x06\0\0\0"s) +
           pngChunk("IDAT", packed) + pngChunk("IEND", {});
}

/// A picture of one colour.
inline Data png(std::uint32_t width, std::uint32_t height, const Pixel& colour) {
    Data row(1, '\0'); // no filter
    for (std::uint32_t x = 0; x < width; ++x)
        for (const int value : colour) row += static_cast<char>(value);
    Data rows;
    for (std::uint32_t y = 0; y < height; ++y) rows += row;
    return pngOf(width, height, rows);
}

/// A picture of one colour, \p width by \p height.
inline Data svg(int width, int height, const std::string& colour) {
    return R"(<svg xmlns="http://www.w3.org/2000/svg" width=")" + std::to_string(width) + R"(" height=")" +
           std::to_string(height) + R"("><rect width="100%" height="100%" fill=")" + colour + R"("/></svg>)";
}

/// An icon as the renderer gives it: 8 bits, with alpha or (when nothing is clear) without, not interlaced.
class Icon {
public:
    explicit Icon(DataView png) {
        constexpr std::size_t signatureBytes = 8;
        constexpr std::size_t frameBytes = 12;
        Data packed;
        for (DataView rest = png.substr(std::min(signatureBytes, png.size())); rest.size() >= frameBytes;) {
            const std::size_t length = number(rest, 0);
            const DataView content = rest.substr(8, length);
            if (rest.substr(4, 4) == "IHDR") {
                width = number(content, 0);
                height = number(content, 4);
                pixelBytes_ = content.substr(8, 2) == "\x08\x06" ? 4 : 3; // with alpha or without
            }
            if (rest.substr(4, 4) == "IDAT") packed += content;
            rest.remove_prefix(std::min(rest.size(), length + frameBytes));
        }
        bytes_.resize(height * (1 + width * pixelBytes_));
        uLongf size = static_cast<uLongf>(bytes_.size());
        if (::uncompress(reinterpret_cast<Bytef*>(bytes_.data()), &size,
                         reinterpret_cast<const Bytef*>(packed.data()),
                         static_cast<uLong>(packed.size())) != Z_OK ||
            size != bytes_.size())
            throw std::runtime_error("no PNG");
        for (std::size_t y = 0; y < height; ++y) unfilter(y);
    }

    Pixel at(std::size_t x, std::size_t y) const {
        Pixel pixel{0, 0, 0, 255};
        for (std::size_t i = 0; i < pixelBytes_; ++i)
            pixel.at(i) = byte(y, static_cast<std::ptrdiff_t>(x * pixelBytes_ + i));
        return pixel;
    }

    bool isClear() const {
        for (std::size_t y = 0; y < height; ++y)
            for (std::size_t x = 0; x < width; ++x)
                if (at(x, y)[3] != 0) return false;
        return true;
    }

    std::size_t width = 0;
    std::size_t height = 0;

private:
    static std::size_t number(DataView data, std::size_t offset) {
        std::size_t value = 0;
        for (const char c : data.substr(offset, 4)) value = value << 8U | static_cast<unsigned char>(c);
        return value;
    }

    /// 0 outside of the picture, as filters want it.
    int byte(std::size_t y, std::ptrdiff_t x) const {
        if (x < 0 || y >= height) return 0;
        return static_cast<unsigned char>(
            bytes_[y * (1 + width * pixelBytes_) + 1 + static_cast<std::size_t>(x)]);
    }

    /// PNG, 9.2.
    void unfilter(std::size_t y) {
        const std::size_t start = y * (1 + width * pixelBytes_);
        const int filter = bytes_[start];
        for (std::size_t i = 0; i < width * pixelBytes_; ++i) {
            const auto x = static_cast<std::ptrdiff_t>(i);
            const auto step = static_cast<std::ptrdiff_t>(pixelBytes_);
            const int left = byte(y, x - step);
            const int above = y > 0 ? byte(y - 1, x) : 0;
            const int corner = y > 0 ? byte(y - 1, x - step) : 0;
            const std::array predictions{0, left, above, (left + above) / 2, nearest(left, above, corner)};
            auto& value = bytes_[start + 1 + i];
            value = static_cast<char>(byte(y, x) + predictions.at(static_cast<std::size_t>(filter)));
        }
    }

    static int nearest(int left, int above, int corner) {
        const int estimate = left + above - corner;
        const int toLeft = std::abs(estimate - left);
        const int toAbove = std::abs(estimate - above);
        const int toCorner = std::abs(estimate - corner);
        if (toLeft <= toAbove && toLeft <= toCorner) return left;
        return toAbove <= toCorner ? above : corner;
    }

    std::size_t pixelBytes_ = 0;
    Data bytes_;
};

} // namespace quillmar
