#include "Archives/ArchiveError.h"
#include "Archives/ZipReader.h"
#include "Fuzz/FuzzTarget.h"
#include "Fuzz/MemoryFile.h"
#include "Platform/UTF8.h"

namespace quillmar {
namespace {

void requireSoundness(const ArchiveEntry& entry) {
    require(!entry.path.empty());
    require(ArchiveEntry::normalize(entry.path) == entry.path);
    require(UTF8::validPrefix(entry.path) == entry.path.size());
    require(entry.size >= 0 && entry.compressedSize.value_or(0) >= 0);
    require(entry.compressedSize.has_value() != entry.isDirectory);
    require(!entry.isDirectory || entry.size == 0);
}

} // namespace

void fuzz(DataView input) {
    static const MemoryFile file;
    constexpr std::size_t maxEntries = 100;
    try {
        const ArchiveListing listing = ZipReader::listing(file.holding(input), maxEntries);
        require(listing.format == ArchiveFormat::zip);
        require(listing.entries.size() <= maxEntries);
        for (const ArchiveEntry& entry : listing.entries) requireSoundness(entry);
    } catch (const ArchiveError& error) {
        require(error.isDamaged());
    }
}

} // namespace quillmar
