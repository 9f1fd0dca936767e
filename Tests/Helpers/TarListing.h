#pragma once

#include "Tests/Helpers/TarBuilder.h"

#include <gtest/gtest.h>

namespace quillmar {

/// A block that is no header.
inline Data noise() { return Data(TarHeader::blockSize, '?'); }

/// A file's header that says nothing of its data.
inline Data headerOfSize(const Data& size, char type = '0', const Data& name = "big") {
    return header({.name = name, .type = type, .size = size});
}

inline ArchiveEntry onlyEntry(const ArchiveListing& listing) {
    EXPECT_EQ(listing.entries.size(), 1U);
    return listing.entries.empty() ? ArchiveEntry{} : listing.entries.front();
}

/// The listing has these paths and has missed the rest.
inline void expectIncomplete(const ArchiveListing& listing, const Strings& paths) {
    EXPECT_EQ(pathsOf(listing), paths);
    EXPECT_FALSE(listing.isComplete);
}

inline void expectComplete(const ArchiveListing& listing, const Strings& paths) {
    EXPECT_EQ(pathsOf(listing), paths);
    EXPECT_TRUE(listing.isComplete);
}

} // namespace quillmar
