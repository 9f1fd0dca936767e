#include "Archives/TarReader.h"

#include "Archives/ArchiveLimits.h"
#include "Archives/PaxRecords.h"
#include "Archives/TarHeader.h"
#include "Platform/DecompressionFilter.h"
#include "Platform/FileError.h"
#include "Platform/Text.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace quillmar::TarReader {
namespace {

using namespace TarHeader;

/// Type flags: POSIX.1, pax, "ustar Interchange Format" and "pax Extended Header"; the capital letters are
/// GNU's.
namespace Type {
constexpr char oldFile = '\0';
constexpr char file = '0';
constexpr char hardLink = '1';
constexpr char symbolicLink = '2';
constexpr char directory = '5';
constexpr char contiguousFile = '7';
constexpr char extendedHeader = 'x';
constexpr char globalExtendedHeader = 'g';
constexpr char longName = 'L';
constexpr char longLinkName = 'K';
} // namespace Type

/// How the listing goes on behind a header.
enum class Progress { next, complete, incomplete };

/// What the entries of one type have in common.
struct Kind {
    bool isListed = true;
    bool isDirectory = false;
    bool isLink = false;
    bool hasSize = true; ///< the size field is shown, and that many bytes of data follow
};

Kind kind(char type, bool nameEndsInSlash) {
    switch (type) {
    case Type::directory: return {.isDirectory = true};
    case Type::hardLink: return {.isDirectory = nameEndsInSlash, .isLink = true};
    case Type::symbolicLink: return {.isDirectory = nameEndsInSlash, .isLink = true, .hasSize = false};
    case Type::oldFile:
    case Type::file:
    case Type::contiguousFile: return {.isDirectory = nameEndsInSlash};
    default:
        if (nameEndsInSlash) return {.isDirectory = true, .hasSize = false};
        return {.isListed = false};
    }
}

/// \p size rounded up to whole blocks; none when negative or too large.
std::optional<std::int64_t> paddedToBlocks(std::int64_t size) {
    constexpr auto block = static_cast<std::int64_t>(blockSize);
    if (size < 0 || size > std::numeric_limits<std::int64_t>::max() - (block - 1)) return std::nullopt;
    return (size + block - 1) / block * block;
}

bool isZero(DataView block) { return block.find_first_not_of('\0') == block.npos; }

/// One pass over an archive, header by header.
class Lister {
public:
    Lister(ByteStream& stream, const Deadline& deadline, std::size_t maxEntries)
        : stream_(stream), deadline_(deadline), maxEntries_(maxEntries) {}

    /// \p block is not the stream's own: what stands behind a header is passed over.
    Progress visit(DataView block);

    std::vector<ArchiveEntry> takeEntries() { return std::move(entries_); }

private:
    Progress readExtendedHeader(std::int64_t size);
    Progress readLongName(std::int64_t size);
    Progress visitEntry(DataView block, std::int64_t size);
    void findName(DataView block);
    std::optional<Timestamp> modified(DataView block) const;
    bool append(ArchiveEntry entry);
    DataView readExtension(std::int64_t size);
    Progress skip(std::int64_t size, std::size_t alreadyRead = 0);

    ByteStream& stream_;
    const Deadline& deadline_;
    std::size_t maxEntries_;
    std::vector<ArchiveEntry> entries_;
    std::size_t pathBytes_ = 0; ///< of all entries

    // For the next entry only.
    PaxRecords pax_;
    std::optional<Data> longName_;

    Data name_; ///< of the entry at hand; kept for its memory
};

Progress Lister::visit(DataView block) {
    if (block.size() != blockSize || isZero(block)) return Progress::complete;
    if (!isHeader(block)) return Progress::incomplete;
    if (entries_.size() >= maxEntries_ || deadline_.passed()) return Progress::incomplete;
    const std::int64_t size = pax_.size() ? *pax_.size() : number(block, sizeField).value_or(0);
    switch (block[typeField.offset]) {
    case Type::extendedHeader: return readExtendedHeader(size);
    case Type::longName: return readLongName(size);
    case Type::globalExtendedHeader:
    case Type::longLinkName: return skip(size);
    default: return visitEntry(block, size);
    }
}

Progress Lister::readExtendedHeader(std::int64_t size) {
    const DataView data = readExtension(size);
    pax_.merge(data);
    if (pax_.byteCount() > ArchiveLimits::maxPendingPaxBytes) return Progress::incomplete;
    return skip(size, data.size());
}

Progress Lister::readLongName(std::int64_t size) {
    const DataView data = readExtension(size);
    longName_ = data.substr(0, data.find('\0'));
    return skip(size, data.size());
}

/// At most a mebibyte of the record of \p size bytes that begins here.
DataView Lister::readExtension(std::int64_t size) {
    const auto count = std::clamp<std::int64_t>(size, 0, ArchiveLimits::maxExtensionBytes);
    return stream_.read(static_cast<std::size_t>(count));
}

/// Passes over the data of \p size bytes and its padding, of which \p alreadyRead bytes are behind us.
Progress Lister::skip(std::int64_t size, std::size_t alreadyRead) {
    const auto padded = paddedToBlocks(size);
    if (!padded) return Progress::incomplete;
    const auto rest = *padded - static_cast<std::int64_t>(alreadyRead);
    return stream_.skip(rest, deadline_) ? Progress::next : Progress::incomplete;
}

Progress Lister::visitEntry(DataView block, std::int64_t size) {
    findName(block);
    const Kind kindOfEntry = kind(block[typeField.offset], name_.ends_with('/'));
    const std::int64_t listedSize = kindOfEntry.hasSize ? size : 0;
    ArchiveEntry entry{.path = ArchiveEntry::normalize(name_),
                       .isDirectory = kindOfEntry.isDirectory,
                       .size = listedSize,
                       .compressedSize = std::nullopt,
                       .modified = modified(block),
                       .isLink = kindOfEntry.isLink};
    longName_.reset();
    pax_.clear();
    if (kindOfEntry.isListed && !append(std::move(entry))) return Progress::incomplete;
    return skip(listedSize);
}

void Lister::findName(DataView block) {
    if (const auto& path = pax_.path()) {
        name_ = *path;
        return;
    }
    if (longName_) {
        name_ = *longName_;
    } else {
        name_.clear();
        const DataView prefix = text(block, prefixField);
        if (!prefix.empty() && text(block, magicField) == "ustar") name_.append(prefix).push_back('/');
        name_.append(text(block, nameField));
    }
    name_ = repairedText(std::move(name_));
}

std::optional<Timestamp> Lister::modified(DataView block) const {
    if (const auto& pax = pax_.modified()) return pax->time;
    return number(block, modifiedField);
}

/// False when the listing's limit is met. An entry without a path is left out.
bool Lister::append(ArchiveEntry entry) {
    if (entry.path.empty()) return true;
    if (entry.path.size() > ArchiveLimits::maxPathBytes - pathBytes_) return false;
    pathBytes_ += entry.path.size();
    entries_.push_back(std::move(entry));
    return true;
}

/// Visits one block after the other; whether the archive's end was reached.
bool reachesEnd(Lister& lister, ByteStream& stream, DataView first) {
    try {
        // A copy: the stream's own bytes last until the next call only.
        Data block(first);
        for (;;) {
            const Progress progress = lister.visit(block);
            if (progress != Progress::next) return progress == Progress::complete;
            block = stream.read(blockSize);
        }
    } catch (const DecompressionError&) {
        return false;
    } catch (const FileError&) {
        return false;
    }
}

} // namespace

ArchiveListing listing(ByteStream& stream, DataView first, ArchiveFormat format, const Deadline& deadline,
                       std::size_t maxEntries) {
    Lister lister(stream, deadline, maxEntries);
    const bool isComplete = reachesEnd(lister, stream, first);
    return {.format = format, .entries = lister.takeEntries(), .isComplete = isComplete};
}

} // namespace quillmar::TarReader
