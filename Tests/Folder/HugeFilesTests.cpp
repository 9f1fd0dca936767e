#include "Folder/FolderSummarizer.h"

#include "Tests/Helpers/Environment.h"
#include "Tests/Helpers/Summaries.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <limits>
#include <string>
#include <unistd.h>

namespace quillmar {
namespace {

constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();

/// Sparse files as long as files can be: 8 EiB in memory, less on most disks.
class HugeFilesTest : public testing::Test {
protected:
    /// The length of the file, in bytes.
    std::int64_t write(const std::string& name) const {
        const std::string path = folder.write(name, "").path();
        for (std::int64_t length = most; length > 0; length /= 2)
            if (::truncate(path.c_str(), length) == 0) return length;
        throw std::runtime_error("no length will do");
    }

    FolderSummary summarize() const { return FolderSummarizer::summarize(folder.url("."), ample); }

    /// What \p count files of \p length bytes have together.
    static std::int64_t sum(std::int64_t count, std::int64_t length) {
        return length > most / count ? most : count * length;
    }

    const ScopedEnvironment inMemory{
        {"TMPDIR", std::filesystem::is_directory("/dev/shm") ? "/dev/shm" : "/tmp"}};
    const TemporaryFolder folder;
};

TEST_F(HugeFilesTest, addUpToTheLimitAtMost) {
    std::int64_t length = 0;
    for (const char* name : {"a", "b", "c"}) length = write(name);
    const FolderSummary summary = summarize();
    for (const FolderItem& item : summary.items) EXPECT_EQ(item.size, length);
    EXPECT_EQ(summary.totalSize, sum(3, length));
    EXPECT_TRUE(summary.isComplete);
}

TEST_F(HugeFilesTest, inOneFolderAddUpToTheLimitAtMost) {
    folder.makeFolder("folder");
    std::int64_t length = 0;
    for (const char* name : {"folder/a", "folder/b"}) length = write(name);
    folder.write("folder/c", "123");
    const std::int64_t expected = length == most ? most : 2 * length + 3;
    EXPECT_EQ(itemOf(summarize(), "folder").size, expected);
    EXPECT_EQ(FolderSummarizer::directorySize(folder.url("folder"), Deadline(ample)),
              (DirectorySize{.size = expected, .isComplete = true}));
}

TEST_F(HugeFilesTest, inSeveralFoldersAddUpToTheLimitAtMost) {
    std::int64_t length = 0;
    for (const char* name : {"a", "a/b", "a/c"}) {
        folder.makeFolder(name);
        length = write(std::string(name).append("/file"));
    }
    EXPECT_EQ(itemOf(summarize(), "a").size, sum(3, length));
}

TEST_F(HugeFilesTest, ofAKindAddUpToTheLimitAtMost) {
    std::int64_t length = 0;
    for (const char* name : {"a.png", "b.png"}) length = write(name);
    EXPECT_EQ(summarize().breakdown(), (std::vector<CompositionPart>{{FileKind::images, sum(2, length), 2}}));
}

} // namespace
} // namespace quillmar
