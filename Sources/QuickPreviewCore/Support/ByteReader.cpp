#include "Support/ByteReader.h"

#include <algorithm>

namespace quillmar {

namespace {

/// The bytes of \p data from \p first to \p end, the lowest first.
std::uint64_t littleEndian(DataView data, std::int64_t first, std::int64_t end) {
    std::uint64_t value = 0;
    for (std::int64_t i = end; i-- > first;)
        value = value << 8 | static_cast<unsigned char>(data[static_cast<std::size_t>(i)]);
    return value;
}

/// \p length is a constant, which makes the usual case a single load.
inline std::uint64_t number(DataView data, std::int64_t offset, std::int64_t length) {
    const auto size = static_cast<std::int64_t>(data.size());
    if (offset >= 0 && offset <= size - length) return littleEndian(data, offset, offset + length);
    if (offset >= size || offset <= -length) return 0;
    const std::int64_t first = std::max<std::int64_t>(offset, 0);
    const std::int64_t end = std::min(offset + length, size);
    return littleEndian(data, first, end) << 8 * (first - offset);
}

} // namespace

std::uint64_t ByteReader::u16(std::int64_t offset) const { return number(data_, offset, 2); }
std::uint64_t ByteReader::u32(std::int64_t offset) const { return number(data_, offset, 4); }
std::uint64_t ByteReader::u64(std::int64_t offset) const { return number(data_, offset, 8); }

DataView ByteReader::slice(std::int64_t offset, std::int64_t length) const {
    const auto size = static_cast<std::int64_t>(data_.size());
    if (offset < 0 || length < 1 || offset >= size) return {};
    return data_.substr(static_cast<std::size_t>(offset),
                        static_cast<std::size_t>(std::min(length, size - offset)));
}

} // namespace quillmar
