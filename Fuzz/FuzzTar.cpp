#include "Archives/ArchiveLimits.h"
#include "Archives/PaxRecords.h"
#include "Archives/TarReader.h"
#include "Fuzz/FuzzTarget.h"
#include "Platform/UTF8.h"
#include "Tests/Helpers/TarBuilder.h"

#include <algorithm>
#include <chrono>

namespace quillmar {
namespace {

/// What the input's first byte chooses.
struct Choices {
    bool setsChecksums; ///< a fuzzer hardly ever guesses one
    bool fails;         ///< the data ends in a fault
    bool runsOutOfTime;
    std::size_t maxEntries;
};

Choices choices(char byte) {
    const auto bits = static_cast<unsigned char>(byte);
    return {.setsChecksums = (bits & 1U) != 0,
            .fails = (bits & 2U) != 0,
            .runsOutOfTime = (bits & 4U) != 0,
            .maxEntries = (bits & 8U) != 0 ? std::size_t{3} : ArchiveLimits::maxEntries};
}

bool isZero(DataView block) { return block.find_first_not_of('\0') == block.npos; }

Data sound(DataView block) {
    if (block.size() != TarHeader::blockSize || isZero(block)) return Data(block);
    return withChecksum(Data(block));
}

/// Gives each block that is read alone the checksum that makes it a header.
class ChecksumSetter : public MemoryStream {
public:
    using MemoryStream::MemoryStream;
    DataView read(std::size_t count) override {
        block_ = sound(MemoryStream::read(count));
        return block_;
    }

private:
    Data block_;
};

/// A clock that moves a second at each look.
Deadline deadline(double seconds) {
    return Deadline(seconds, [now = std::chrono::steady_clock::time_point()]() mutable {
        now += std::chrono::seconds(1);
        return now;
    });
}

ArchiveListing listed(MemoryStream& stream, DataView first, const Choices& choices) {
    return TarReader::listing(stream, first, ArchiveFormat::tar, deadline(choices.runsOutOfTime ? 3.5 : 1e9),
                              choices.maxEntries);
}

ArchiveListing listed(DataView archive, const Choices& choices) {
    const Data first = firstBlock(archive);
    const Data rest(archive.substr(first.size()));
    if (choices.setsChecksums) {
        ChecksumSetter stream(rest);
        if (choices.fails) stream.failAfter(rest.size());
        return listed(stream, sound(first), choices);
    }
    MemoryStream stream(rest);
    if (choices.fails) stream.failAfter(rest.size());
    return listed(stream, first, choices);
}

void requireSoundness(const ArchiveListing& listing, std::size_t maxEntries) {
    require(listing.entries.size() <= maxEntries);
    std::size_t pathBytes = 0;
    for (const ArchiveEntry& entry : listing.entries) {
        require(!entry.path.empty());
        require(ArchiveEntry::normalize(entry.path) == entry.path);
        require(UTF8::validPrefix(entry.path) == entry.path.size());
        require(!entry.compressedSize && !entry.isEncrypted);
        pathBytes += entry.path.size();
    }
    require(pathBytes <= ArchiveLimits::maxPathBytes);
}

} // namespace

void fuzz(DataView input) {
    if (input.empty()) return;
    const Choices chosen = choices(input.front());
    const DataView archive = input.substr(1);
    const ArchiveListing whole = listed(archive, chosen);
    requireSoundness(whole, chosen.maxEntries);

    // A cut archive lists a prefix of the whole.
    const ArchiveListing cut = listed(archive.substr(0, archive.size() / 2), chosen);
    require(cut.entries.size() <= whole.entries.size());
    require(std::equal(cut.entries.begin(), cut.entries.end(), whole.entries.begin()));

    PaxRecords records;
    records.merge(archive);
    require(records.byteCount() <= 3 * archive.size());
    records.modified();
}

} // namespace quillmar
