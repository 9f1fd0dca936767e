#pragma once

#include "Platform/Data.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Central directories of zip archives, field by field. Local headers and data are left out: nobody reads them.
namespace quillmar::ZipBuilder {

/// The lowest \p count bytes of \p value, the lowest first.
inline Data littleEndian(std::uint64_t value, int count) {
    Data bytes;
    for (; count > 0; --count, value >>= 8) bytes += static_cast<char>(value & 0xFF);
    return bytes;
}
inline Data u16(std::uint64_t value) { return littleEndian(value, 2); }
inline Data u32(std::uint64_t value) { return littleEndian(value, 4); }
inline Data u64(std::uint64_t value) { return littleEndian(value, 8); }

constexpr std::uint16_t dosDate(int year, int month, int day) {
    return static_cast<std::uint16_t>((year - 1980) << 9 | month << 5 | day);
}
constexpr std::uint16_t dosTime(int hour, int minute, int second) {
    return static_cast<std::uint16_t>(hour << 11 | minute << 5 | second / 2);
}

constexpr std::uint16_t dosHost = 0x0014;  ///< MS-DOS, version 2.0
constexpr std::uint16_t unixHost = 0x0314; ///< Unix, version 2.0

/// One file header of the central directory; the fields that a listing reads.
struct Header {
    Data name;
    Data extra = {};
    Data comment = {};
    std::uint16_t versionMadeBy = unixHost;
    std::uint16_t flags = 0;
    std::uint16_t time = 0;
    std::uint16_t date = 0;
    std::uint32_t compressedSize = 0;
    std::uint32_t size = 0;
    std::uint32_t externalAttributes = 0;
    std::optional<std::uint16_t> nameLength = {}; ///< a lie
    std::optional<std::uint16_t> extraLength = {};
    std::optional<std::uint16_t> commentLength = {};

    Data bytes() const {
        Data data = "PK\x01\x02";
        data += u16(versionMadeBy) + u16(20) + u16(flags); // 20: version needed
        data += u16(8) + u16(time) + u16(date);            // 8: deflate
        data += u32(0x12345678) + u32(compressedSize) + u32(size);
        data += u16(nameLength.value_or(name.size()));
        data += u16(extraLength.value_or(extra.size()));
        data += u16(commentLength.value_or(comment.size()));
        data += u16(0) + u16(0); // disk, internal attributes
        data += u32(externalAttributes);
        data += u32(0); // offset of the local header
        return data + name + extra + comment;
    }
};

/// The end of central directory record.
struct End {
    std::uint16_t entries = 0;
    std::uint32_t size = 0;
    std::uint32_t offset = 0;
    Data comment = {};

    Data bytes() const {
        return "PK\x05\x06" + u16(0) + u16(0) + u16(entries) + u16(entries) + u32(size) + u32(offset) +
               u16(comment.size()) + comment;
    }
};

/// The ZIP64 end of central directory record.
struct Zip64End {
    std::uint64_t entries = 0;
    std::uint64_t size = 0;
    std::uint64_t offset = 0;

    Data bytes() const {
        return "PK\x06\x06" + u64(44) + u16(45) + u16(45) + u32(0) + u32(0) + u64(entries) + u64(entries) +
               u64(size) + u64(offset);
    }
};

inline Data zip64Locator(std::uint64_t recordOffset) {
    return "PK\x06\x07" + u32(0) + u64(recordOffset) + u32(1);
}

/// One block of an extra field.
inline Data extraBlock(std::uint16_t id, const Data& data) { return u16(id) + u16(data.size()) + data; }

inline Data directory(const std::vector<Header>& headers) {
    Data data;
    for (const Header& header : headers) data += header.bytes();
    return data;
}

/// An archive of \p directory, which is to hold \p entries.
inline Data archive(const Data& directory, std::uint16_t entries, const Data& comment = {}) {
    const auto size = static_cast<std::uint32_t>(directory.size());
    return directory + End{.entries = entries, .size = size, .offset = 0, .comment = comment}.bytes();
}
inline Data archive(const std::vector<Header>& headers, const Data& comment = {}) {
    return archive(directory(headers), static_cast<std::uint16_t>(headers.size()), comment);
}

} // namespace quillmar::ZipBuilder
