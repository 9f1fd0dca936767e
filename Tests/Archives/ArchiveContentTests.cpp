#include "Archives/ArchiveContent.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

TEST(ArchiveFormat, hasANameForPeople) {
    EXPECT_EQ(displayName(ArchiveFormat::zip), "ZIP archive");
    EXPECT_EQ(displayName(ArchiveFormat::tar), "Tar archive");
    EXPECT_EQ(displayName(ArchiveFormat::tarGzip), "Tar archive, gzip-compressed");
    EXPECT_EQ(displayName(ArchiveFormat::tarXz), "Tar archive, xz-compressed");
    EXPECT_EQ(displayName(ArchiveFormat::gzip), "Gzip-compressed file");
    EXPECT_EQ(displayName(ArchiveFormat::xz), "XZ-compressed file");
}

} // namespace
} // namespace quillmar
