#include "Archives/TarHeader.h"

#include "Archives/SignedInteger.h"

#include <limits>

namespace quillmar::TarHeader {
namespace {

/// What an empty block sums to: its checksum field counts as eight spaces.
constexpr std::int64_t emptySum = static_cast<std::int64_t>(checksumField.length) * ' ';

// Sums of 32 bits without a condition: the compiler makes vector instructions of them.

std::int64_t sumOfUnsignedBytes(DataView bytes) {
    std::uint32_t sum = 0;
    for (const char byte : bytes) sum += static_cast<unsigned char>(byte);
    return sum;
}

std::int64_t sumOfSignedBytes(DataView bytes) {
    std::int32_t sum = 0;
    for (const char byte : bytes) sum += static_cast<signed char>(byte);
    return sum;
}

/// The bytes of \p field as far as \p block has them.
DataView bytes(DataView block, Field field) {
    if (field.offset >= block.size()) return {};
    return block.substr(field.offset, field.length);
}

bool isBase256(DataView field) { return (static_cast<unsigned char>(field.front()) & 0x80U) != 0; }

std::int64_t base256(DataView field) {
    constexpr auto largest = std::numeric_limits<std::int64_t>::max();
    std::int64_t value = static_cast<unsigned char>(field.front()) & 0x7FU;
    for (const char byte : field.substr(1)) {
        if (value > largest >> 8) return largest;
        value = value << 8 | static_cast<unsigned char>(byte);
    }
    return value;
}

DataView trimmed(DataView field) {
    constexpr DataView padding(" \0", 2);
    const std::size_t start = field.find_first_not_of(padding);
    if (start == field.npos) return {};
    return field.substr(start, field.find_last_not_of(padding) - start + 1);
}

} // namespace

bool isHeader(DataView block) {
    if (block.size() != blockSize) return false;
    const auto stored = number(block, checksumField);
    // The signed sum of a block may be zero, which a blank field must not match.
    if (!stored || *stored == 0) return false;
    const DataView field = block.substr(checksumField.offset, checksumField.length);
    const auto sum = sumOfUnsignedBytes(block) - sumOfUnsignedBytes(field) + emptySum;
    if (sum <= emptySum) return false;
    // The standard adds unsigned bytes; old writers added whatever `char` was.
    return *stored == sum || *stored == sumOfSignedBytes(block) - sumOfSignedBytes(field) + emptySum;
}

std::optional<std::int64_t> number(DataView block, Field field) {
    const DataView digits = bytes(block, field);
    if (digits.empty()) return std::nullopt;
    if (isBase256(digits)) return base256(digits);
    const DataView octal = trimmed(digits);
    return octal.empty() ? 0 : signedInteger(octal, 8);
}

DataView text(DataView block, Field field) {
    const DataView padded = bytes(block, field);
    return padded.substr(0, padded.find('\0'));
}

} // namespace quillmar::TarHeader
