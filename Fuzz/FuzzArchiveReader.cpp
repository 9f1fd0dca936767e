#include "Archives/ArchiveError.h"
#include "Archives/ArchiveLimits.h"
#include "Archives/ArchiveReader.h"
#include "Fuzz/FuzzTarget.h"
#include "Fuzz/MemoryFile.h"
#include "Pages/ArchivePage.h"
#include "Platform/UTF8.h"

namespace quillmar {
namespace {

void check(const ArchiveListing& listing, const FileURL& url, std::int64_t archiveSize) {
    require(listing.entries.size() <= ArchiveLimits::maxEntries);
    for (const auto& entry : listing.entries) {
        require(!entry.path.empty());
        require(entry.path == ArchiveEntry::normalize(entry.path));
        require(UTF8::validPrefix(entry.path) == entry.path.size());
    }
    PreviewAssets assets(nullptr);
    const std::string page = ArchivePage::html(listing, url, archiveSize, assets);
    require(UTF8::validPrefix(page) == page.size());
}

void check(const CompressedFile& file) {
    require(file.sample.size() <= ArchiveLimits::sampleBytes);
    require(file.sampleIsComplete == (file.sample.size() < ArchiveLimits::sampleBytes));
    require(UTF8::validPrefix(file.originalName) == file.originalName.size());
}

} // namespace

void fuzz(DataView input) {
    static const MemoryFile file;
    const FileURL url = file.holding(input);
    try {
        const auto content = ArchiveReader::read(url, 1.0);
        if (const auto* listing = std::get_if<ArchiveListing>(&content))
            check(*listing, url, static_cast<std::int64_t>(input.size()));
        else
            check(std::get<CompressedFile>(content));
    } catch (const ArchiveError&) {
        // No archive, or a damaged one: an answer like any other.
    }
}

} // namespace quillmar
