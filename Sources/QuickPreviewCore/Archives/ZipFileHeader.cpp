#include "Archives/ZipFileHeader.h"

#include "Archives/ZipFormat.h"
#include "Platform/LocalTime.h"
#include "Platform/Text.h"
#include "Platform/UTF8.h"

#include <algorithm>
#include <limits>

namespace quillmar {
namespace {

using ZipFormat::number;
namespace Header = ZipFormat::CentralFileHeader;

/// A length field; 16 bits at the most.
std::int64_t lengthOf(const ByteReader& bytes, std::int64_t start, ZipFormat::Field field) {
    return static_cast<std::int64_t>(number(bytes, start, field));
}

/// What the extra field may know better than the header.
struct Refinable {
    std::uint64_t size;
    std::uint64_t compressedSize;
    std::optional<Timestamp> modified;
};

void applyZip64Sizes(Refinable& values, const ByteReader& bytes, std::int64_t data) {
    for (std::uint64_t* value : {&values.size, &values.compressedSize}) {
        if (*value != ZipFormat::overflow32) continue;
        *value = bytes.u64(data);
        data += ZipFormat::Zip64Sizes::valueLength;
    }
}

void applyExtendedTimestamp(Refinable& values, const ByteReader& bytes, std::int64_t data) {
    namespace Stamp = ZipFormat::ExtendedTimestamp;
    if ((bytes.u16(data) & Stamp::modifiedFlag) == 0) return;
    values.modified = static_cast<Timestamp>(number(bytes, data, Stamp::modified));
}

/// Takes what is wanted of the blocks between \p start and \p end. Only the start of a block need lie between;
/// one that claims more is read from whatever follows.
void applyExtraField(Refinable& values, const ByteReader& bytes, std::int64_t start, std::int64_t end) {
    namespace Block = ZipFormat::ExtraBlock;
    while (end - start >= Block::size) {
        const std::uint64_t id = number(bytes, start, Block::id);
        const std::int64_t length = lengthOf(bytes, start, Block::dataLength);
        const std::int64_t data = start + Block::size;
        if (id == ZipFormat::Zip64Sizes::id && length >= ZipFormat::Zip64Sizes::minDataLength)
            applyZip64Sizes(values, bytes, data);
        if (id == ZipFormat::ExtendedTimestamp::id && length >= ZipFormat::ExtendedTimestamp::minDataLength)
            applyExtendedTimestamp(values, bytes, data);
        start = data + length;
    }
}

/// Archives say in several ways how they encode names, and often wrongly; the bytes themselves are asked.
std::string normalizedPath(DataView name) {
    if (UTF8::validPrefix(name) == name.size()) return ArchiveEntry::normalize(name);
    return ArchiveEntry::normalize(textFromCodePage437(name));
}

/// None when \p date is blank. The fields may hold month 0 or hour 31.
std::optional<Timestamp> dosDateTime(std::uint64_t date, std::uint64_t time) {
    if (date == 0) return {};
    const auto day = static_cast<int>(date);
    const auto second = static_cast<int>(time);
    return timestamp({.year = (day >> 9) + 1980,
                      .month = day >> 5 & 15,
                      .day = day & 31,
                      .hour = second >> 11,
                      .minute = second >> 5 & 63,
                      .second = (second & 31) * 2});
}

std::int64_t bytesFrom(std::uint64_t size) {
    constexpr std::uint64_t largest = std::numeric_limits<std::int64_t>::max();
    return static_cast<std::int64_t>(std::min(size, largest));
}

} // namespace

ZipFileHeader ZipFileHeader::parse(const ByteReader& directory, std::int64_t offset) {
    const auto value = [&](ZipFormat::Field field) { return number(directory, offset, field); };
    const std::int64_t nameStart = offset + Header::size;
    const std::int64_t extraStart = nameStart + lengthOf(directory, offset, Header::nameLength);
    const std::int64_t extraEnd = extraStart + lengthOf(directory, offset, Header::extraLength);
    const std::int64_t end = extraEnd + lengthOf(directory, offset, Header::commentLength);
    const DataView name = directory.slice(nameStart, extraStart - nameStart);

    ZipFileHeader header{.entry = {}, .length = end - offset};
    std::string path = normalizedPath(name);
    if (path.empty()) return header;

    Refinable values{value(Header::uncompressedSize), value(Header::compressedSize), {}};
    applyExtraField(values, directory, extraStart, extraEnd);
    if (!values.modified) values.modified = dosDateTime(value(Header::date), value(Header::time));

    const std::uint64_t attributes = value(Header::externalAttributes);
    const bool isUnix = value(Header::versionMadeBy) >> 8 == Header::unixHost;
    const std::uint64_t modeKind = isUnix ? attributes >> 16 & Header::modeKind : 0;
    const bool isDOSDirectory = !isUnix && (attributes & Header::directoryAttribute) != 0;

    ArchiveEntry& entry = header.entry.emplace();
    entry.path = std::move(path);
    entry.isDirectory = name.ends_with('/') || modeKind == Header::modeDirectory || isDOSDirectory;
    if (!entry.isDirectory) {
        entry.size = bytesFrom(values.size);
        entry.compressedSize = bytesFrom(values.compressedSize);
    }
    entry.modified = values.modified;
    entry.isEncrypted = (value(Header::flags) & Header::encryptedFlag) != 0;
    entry.isLink = modeKind == Header::modeSymbolicLink;
    return header;
}

} // namespace quillmar
