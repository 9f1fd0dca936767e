#pragma once

#include "Archives/TarHeader.h"
#include "Archives/TarReader.h"
#include "Tests/Helpers/MemoryStream.h"

#include <charconv>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Builds tar archives byte by byte: `tar({pax("path", "long"), file("short", "content")})`. A member is the
/// bytes of whole blocks, header and data, so that members can be joined, cut and spoiled.
namespace quillmar {

/// A numeric field as most writers fill it: octal digits, a zero byte behind.
inline Data octal(std::int64_t value, std::size_t length = TarHeader::sizeField.length) {
    Data digits(length, '0');
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + length, value, 8);
    const auto count = static_cast<std::size_t>(end - digits.data());
    return Data(length - 1 - count, '0') + digits.substr(0, count) + Data(1, '\0');
}

/// The same in GNU's base 256, for what takes more digits than there is room.
inline Data base256(std::uint64_t value, std::size_t length = TarHeader::sizeField.length) {
    Data bytes(length, '\0');
    for (std::size_t i = length; i-- > 0 && value > 0; value >>= 8) bytes[i] = static_cast<char>(value & 0xFF);
    bytes[0] = static_cast<char>(bytes[0] | '\x80');
    return bytes;
}

inline Data posixMagic() {
    return {"ustar\0"
            "00",
            8};
}
inline Data gnuMagic() { return {"ustar  \0", 8}; }

/// The fields of a header as its bytes have them; a field that is too long is cut.
struct HeaderFields {
    Data name;
    char type = '0';
    Data size = octal(0);
    Data modified = octal(1'709'543'700); // 2024-03-04 09:15:00 UTC
    Data magic = posixMagic();
    Data prefix = {};
};

inline void put(Data& block, TarHeader::Field field, DataView bytes) {
    block.replace(field.offset, std::min(field.length, bytes.size()), bytes.substr(0, field.length));
}

inline std::int64_t unsignedSum(DataView block) {
    std::int64_t sum = 0;
    for (const char byte : block) sum += static_cast<unsigned char>(byte);
    return sum;
}

inline std::int64_t signedSum(DataView block) {
    std::int64_t sum = 0;
    for (const char byte : block) sum += static_cast<signed char>(byte);
    return sum;
}

/// \p block with \p field in its checksum field.
inline Data withChecksumField(Data block, DataView field) {
    put(block, TarHeader::checksumField, field);
    return block;
}

/// \p block with the checksum that it should have.
inline Data withChecksum(const Data& block) {
    const auto sum = unsignedSum(withChecksumField(block, "        "));
    return withChecksumField(block, octal(sum, TarHeader::checksumField.length));
}

inline Data header(const HeaderFields& fields) {
    Data block(TarHeader::blockSize, '\0');
    put(block, TarHeader::nameField, fields.name);
    put(block, TarHeader::sizeField, fields.size);
    put(block, TarHeader::modifiedField, fields.modified);
    block[TarHeader::typeField.offset] = fields.type;
    put(block, {.offset = TarHeader::magicField.offset, .length = 8}, fields.magic);
    put(block, TarHeader::prefixField, fields.prefix);
    return withChecksum(block);
}

inline Data padded(Data data) {
    data.resize((data.size() + TarHeader::blockSize - 1) / TarHeader::blockSize * TarHeader::blockSize);
    return data;
}

inline Data member(HeaderFields fields, const Data& content) {
    fields.size = octal(static_cast<std::int64_t>(content.size()));
    return header(fields) + padded(content);
}

inline Data file(const Data& name, const Data& content = {}) { return member({.name = name}, content); }
inline Data directory(const Data& name) { return header({.name = name, .type = '5'}); }
inline Data symbolicLink(const Data& name) { return header({.name = name, .type = '2'}); }
inline Data hardLink(const Data& name) { return header({.name = name, .type = '1'}); }

/// GNU's headers before a name or a link's target of any length.
inline Data longName(const Data& name) {
    return member({.name = "././@LongLink", .type = 'L', .magic = gnuMagic()}, name + Data(1, '\0'));
}
inline Data longLinkName(const Data& target) {
    return member({.name = "././@LongLink", .type = 'K', .magic = gnuMagic()}, target + Data(1, '\0'));
}

/// One pax record: its length, its own digits included, a space, keyword=value and a line feed.
inline Data paxRecord(const Data& keyword, const Data& value) {
    const Data rest = " " + keyword + "=" + value + "\n";
    std::size_t length = rest.size();
    while (length != rest.size() + std::to_string(length).size())
        length = rest.size() + std::to_string(length).size();
    return std::to_string(length) + rest;
}

/// A pax header of these records, sound or not.
inline Data paxHeader(const Data& records, char type = 'x') {
    return member({.name = "PaxHeaders/x", .type = type}, records);
}
inline Data pax(const Data& keyword, const Data& value) { return paxHeader(paxRecord(keyword, value)); }
inline Data globalPax(const Data& keyword, const Data& value) {
    return paxHeader(paxRecord(keyword, value), 'g');
}

inline Data joined(std::initializer_list<Data> members) {
    Data bytes;
    for (const Data& one : members) bytes += one;
    return bytes;
}

inline Data endOfArchive() { return Data(2 * TarHeader::blockSize, '\0'); }
inline Data tar(std::initializer_list<Data> members) { return joined(members) + endOfArchive(); }

// Reading back.

using Strings = std::vector<std::string>;

inline Data firstBlock(DataView archive) { return Data(archive.substr(0, TarHeader::blockSize)); }

/// A stream that stands behind the archive's first block.
inline MemoryStream streamBehindFirstBlock(DataView archive) {
    return MemoryStream(Data(archive.substr(std::min(archive.size(), TarHeader::blockSize))));
}

inline ArchiveListing list(DataView archive, std::size_t maxEntries = 20'000) {
    MemoryStream stream = streamBehindFirstBlock(archive);
    return TarReader::listing(stream, firstBlock(archive), ArchiveFormat::tar, Deadline(3'600), maxEntries);
}

inline Strings pathsOf(const ArchiveListing& listing) {
    Strings paths;
    for (const ArchiveEntry& entry : listing.entries) paths.push_back(entry.path);
    return paths;
}

} // namespace quillmar
