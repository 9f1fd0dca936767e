#include "Archives/ArchiveEntry.h"

#include <gtest/gtest.h>
#include <string_view>

namespace quillmar {
namespace {

using namespace std::string_view_literals;

TEST(ArchiveEntry, normalizesItsPath) {
    struct Case {
        std::string_view path;
        std::string_view normalized;
    };
    for (const auto& [path, normalized] : {
             Case{"a", "a"},
             Case{"a/b", "a/b"},
             Case{"a/./b", "a/b"},
             Case{"a/b/", "a/b"},
             Case{"./a//b/", "a/b"},
             Case{"/a/b", "a/b"},
             Case{"//a///b//", "a/b"},
             Case{"a/.", "a"},
             Case{"../x", "../x"},
             Case{"a/../b", "a/../b"},
             Case{"...", "..."},
             Case{".a/b.", ".a/b."},
             Case{"a\\b", "a\\b"},
             Case{" / ", " / "},
             Case{"a\0b/\0"sv, "a\0b/\0"sv},
         })
        EXPECT_EQ(ArchiveEntry::normalize(path), normalized) << path;
}

TEST(ArchiveEntry, hasNoPathWhenNothingIsLeft) {
    for (const std::string_view path : {"", ".", "./", "/", "//", "././.", "/./"})
        EXPECT_EQ(ArchiveEntry::normalize(path), "") << path;
}

TEST(ArchiveEntry, normalizesAPathOfManyComponents) {
    std::string path;
    std::string expected = "a";
    for (int i = 0; i < 100'000; ++i) path += "./a//";
    for (int i = 1; i < 100'000; ++i) expected += "/a";
    EXPECT_EQ(ArchiveEntry::normalize(path), expected);
}

TEST(ArchiveEntry, isEqualWhenEveryFieldIs) {
    const ArchiveEntry entry{.path = "a",
                             .isDirectory = false,
                             .size = 1,
                             .compressedSize = 2,
                             .modified = 3,
                             .isEncrypted = true,
                             .isLink = false};
    ArchiveEntry other = entry;
    EXPECT_EQ(other, entry);
    other.modified.reset();
    EXPECT_NE(other, entry);
}

} // namespace
} // namespace quillmar
