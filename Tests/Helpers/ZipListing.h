#pragma once

#include "Archives/ArchiveError.h"
#include "Archives/ArchiveLimits.h"
#include "Archives/ZipReader.h"
#include "Tests/Helpers/TemporaryFolder.h"
#include "Tests/Helpers/ZipBuilder.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

/// What is listed of archives made by `ZipBuilder`.
namespace quillmar::ZipListing {

using Strings = std::vector<std::string>;

inline ArchiveListing list(DataView file, std::size_t maxEntries = ArchiveLimits::maxEntries) {
    const TemporaryFolder folder;
    return ZipReader::listing(folder.write("archive.zip", file), maxEntries);
}

/// The reason why \p file is damaged; empty when it is not.
inline std::string damageOf(DataView file) {
    try {
        list(file);
    } catch (const ArchiveError& error) {
        EXPECT_TRUE(error.isDamaged());
        return error.what();
    }
    return {};
}

inline Strings pathsOf(const ArchiveListing& listing) {
    Strings paths;
    for (const ArchiveEntry& entry : listing.entries) paths.push_back(entry.path);
    return paths;
}

/// The only entry of an archive of \p header.
inline ArchiveEntry entryOf(const ZipBuilder::Header& header) {
    const ArchiveListing listing = list(ZipBuilder::archive({header}));
    EXPECT_TRUE(listing.isComplete);
    EXPECT_EQ(listing.entries.size(), 1U);
    return listing.entries.empty() ? ArchiveEntry{} : listing.entries.front();
}

inline std::string pathOf(const Data& name) { return entryOf({.name = name}).path; }

inline ArchiveEntry file(const std::string& path, std::int64_t size, std::int64_t compressedSize) {
    ArchiveEntry entry;
    entry.path = path;
    entry.size = size;
    entry.compressedSize = compressedSize;
    return entry;
}

inline ArchiveEntry folder(const std::string& path) {
    ArchiveEntry entry;
    entry.path = path;
    entry.isDirectory = true;
    return entry;
}

} // namespace quillmar::ZipListing
