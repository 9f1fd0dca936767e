#include "Support/ByteReader.h"

#include <algorithm>

namespace quillmar {

std::uint64_t ByteReader::u16(std::int64_t offset) const {
    const auto size = static_cast<std::int64_t>(data_.size());
    const auto byte = [&](std::int64_t position) -> std::uint64_t {
        return static_cast<unsigned char>(data_[static_cast<std::size_t>(position)]);
    };
    const std::uint64_t low = offset >= 0 && offset < size ? byte(offset) : 0;
    const std::uint64_t high = offset >= -1 && offset < size - 1 ? byte(offset + 1) : 0;
    return low | high << 8;
}

DataView ByteReader::slice(std::int64_t offset, std::int64_t length) const {
    const auto size = static_cast<std::int64_t>(data_.size());
    if (offset < 0 || length < 1 || offset >= size) return {};
    return data_.substr(static_cast<std::size_t>(offset),
                        static_cast<std::size_t>(std::min(length, size - offset)));
}

} // namespace quillmar
