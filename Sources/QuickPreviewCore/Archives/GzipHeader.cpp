#include "Archives/GzipHeader.h"

#include "Platform/Text.h"
#include "Support/ByteReader.h"

namespace quillmar {
namespace {

constexpr std::string_view magic = "\x1F\x8B\x08"; // ID1, ID2 and the only method in use, deflate

enum Flag : unsigned char { hasHeaderCRC = 0x02, hasExtra = 0x04, hasName = 0x08, hasComment = 0x10 };

// Bytes from the header's start; the fields between are of no use to a preview.
constexpr std::size_t flagsOffset = 3;
constexpr std::size_t fixedLength = 10;
constexpr std::size_t extraLengthBytes = 2;
constexpr std::size_t headerCRCBytes = 2;

/// The text from \p start up to its zero byte; none when there is no such byte.
std::optional<DataView> zeroTerminated(DataView data, std::size_t start) {
    const std::size_t end = data.find('\0', start);
    if (end == data.npos) return std::nullopt;
    return data.substr(start, end - start);
}

} // namespace

std::optional<GzipHeader> GzipHeader::parse(DataView data) {
    if (!data.starts_with(magic) || data.size() < fixedLength) return std::nullopt;
    const auto flags = static_cast<unsigned char>(data[flagsOffset]);
    GzipHeader header{.originalName = std::nullopt, .headerLength = fixedLength};
    if ((flags & hasExtra) != 0) header.headerLength += extraLengthBytes + ByteReader(data).u16(fixedLength);
    if ((flags & hasName) != 0) {
        const auto name = zeroTerminated(data, header.headerLength);
        if (!name) return std::nullopt;
        if (!name->empty()) header.originalName = textFromLatin1(*name);
        header.headerLength += name->size() + 1;
    }
    if ((flags & hasComment) != 0) {
        const auto comment = zeroTerminated(data, header.headerLength);
        if (!comment) return std::nullopt;
        header.headerLength += comment->size() + 1;
    }
    if ((flags & hasHeaderCRC) != 0) header.headerLength += headerCRCBytes;
    if (header.headerLength > data.size()) return std::nullopt;
    return header;
}

} // namespace quillmar
