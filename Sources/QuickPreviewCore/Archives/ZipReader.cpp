#include "Archives/ZipReader.h"

#include "Archives/ArchiveError.h"
#include "Archives/ArchiveLimits.h"
#include "Archives/ZipFileHeader.h"
#include "Archives/ZipFormat.h"
#include "Platform/FileHandle.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace quillmar {
namespace {

using ZipFormat::number;
namespace End = ZipFormat::EndOfCentralDirectory;
namespace Zip64End = ZipFormat::Zip64EndOfCentralDirectory;
namespace Locator = ZipFormat::Zip64Locator;

/// Where the central directory lies, by the word of the archive's end.
struct CentralDirectory {
    std::uint64_t entries; ///< a hint: how much room to make
    std::uint64_t size;    ///< bytes
    std::uint64_t offset;  ///< bytes from the start of the file
};

/// The last bytes of the file: an end of central directory record and the longest comment.
Data readTail(FileHandle& file, std::int64_t fileSize) {
    const std::int64_t length = std::min(fileSize, End::size + End::maxCommentBytes);
    file.seek(fileSize - length);
    return file.read(static_cast<std::size_t>(length));
}

/// The place of the record in \p tail. The comment may hold the signature too; the last one counts.
std::size_t findEnd(DataView tail) {
    constexpr auto size = static_cast<std::size_t>(End::size);
    const std::size_t place = tail.size() < size ? tail.npos : tail.rfind(End::signature, tail.size() - size);
    if (place == tail.npos) throw ArchiveError::damaged("The end of the archive is missing.");
    return place;
}

/// The ZIP64 record that the locator before byte \p end of \p tail points to. None when there is no locator or
/// nothing of the kind where it points.
std::optional<CentralDirectory> zip64Directory(FileHandle& file, std::int64_t fileSize, DataView tail,
                                               std::int64_t end) {
    const ByteReader reader(tail);
    const std::int64_t locator = end - Locator::size;
    if (!reader.slice(locator, Locator::size).starts_with(Locator::signature)) return {};
    const std::uint64_t place = number(reader, locator, Locator::recordOffset);
    if (fileSize < Zip64End::size || place > static_cast<std::uint64_t>(fileSize - Zip64End::size)) return {};

    file.seek(static_cast<std::int64_t>(place));
    const Data record = file.read(static_cast<std::size_t>(Zip64End::size));
    if (!record.starts_with(Zip64End::signature)) return {};
    const ByteReader fields(record);
    return CentralDirectory{.entries = number(fields, 0, Zip64End::totalEntries),
                            .size = number(fields, 0, Zip64End::directorySize),
                            .offset = number(fields, 0, Zip64End::directoryOffset)};
}

CentralDirectory findDirectory(FileHandle& file, std::int64_t fileSize) {
    const Data tail = readTail(file, fileSize);
    const auto end = static_cast<std::int64_t>(findEnd(tail));
    const ByteReader reader(tail);
    const CentralDirectory directory{.entries = number(reader, end, End::totalEntries),
                                     .size = number(reader, end, End::directorySize),
                                     .offset = number(reader, end, End::directoryOffset)};
    if (directory.entries != ZipFormat::overflow16 && directory.size != ZipFormat::overflow32 &&
        directory.offset != ZipFormat::overflow32)
        return directory;
    return zip64Directory(file, fileSize, tail, end).value_or(directory);
}

Data readDirectory(FileHandle& file, std::int64_t fileSize, const CentralDirectory& directory) {
    const auto available = static_cast<std::uint64_t>(fileSize);
    if (directory.size > ArchiveLimits::maxDirectoryBytes || directory.size > available ||
        directory.offset > available - directory.size)
        throw ArchiveError::damaged("The archive's table of contents is damaged.");
    file.seek(static_cast<std::int64_t>(directory.offset));
    return file.read(static_cast<std::size_t>(directory.size));
}

/// The entries of \p data, a central directory; \p expected of them by the archive's word.
ArchiveListing walk(DataView data, std::uint64_t expected, std::size_t maxEntries) {
    namespace Header = ZipFormat::CentralFileHeader;
    const ByteReader directory(data);
    const auto end = static_cast<std::int64_t>(data.size());

    ArchiveListing listing{.format = ArchiveFormat::zip, .entries = {}, .isComplete = false};
    const std::size_t possible = data.size() / static_cast<std::size_t>(Header::size);
    listing.entries.reserve(std::min({maxEntries, possible, static_cast<std::size_t>(expected)}));

    std::size_t pathBytesLeft = ArchiveLimits::maxPathBytes;
    std::int64_t position = 0;
    while (end - position >= Header::size &&
           directory.slice(position, Header::size).starts_with(Header::signature)) {
        if (listing.entries.size() >= maxEntries) return listing;
        ZipFileHeader header = ZipFileHeader::parse(directory, position);
        if (header.entry) {
            if (header.entry->path.size() > pathBytesLeft) return listing;
            pathBytesLeft -= header.entry->path.size();
            listing.entries.push_back(*std::move(header.entry));
        }
        position += header.length;
    }
    listing.isComplete = position >= end;
    return listing;
}

} // namespace

ArchiveListing ZipReader::listing(const FileURL& url, std::size_t maxEntries) {
    FileHandle file(url);
    const std::int64_t fileSize = file.size();
    const CentralDirectory directory = findDirectory(file, fileSize);
    return walk(readDirectory(file, fileSize, directory), directory.entries, maxEntries);
}

} // namespace quillmar
