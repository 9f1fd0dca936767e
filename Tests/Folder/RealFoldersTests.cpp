#include "Folder/FolderSummarizer.h"

#include "Tests/Helpers/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <sys/stat.h>

namespace quillmar {
namespace {

/// What \p command prints.
std::string outputOf(const std::string& command) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(::popen(command.c_str(), "r"), ::pclose);
    if (!pipe) throw std::runtime_error("cannot run " + command);
    std::string output;
    for (int character = 0; (character = std::fgetc(pipe.get())) != EOF;)
        output += static_cast<char>(character);
    return output;
}

/// The sum of the numbers in \p text, one in each line.
std::int64_t sumOf(const std::string& text) {
    std::istringstream lines(text);
    std::int64_t sum = 0;
    for (std::int64_t number = 0; lines >> number;) sum += number;
    return sum;
}

std::int64_t sumByFind(const std::string& path) {
    return sumOf(outputOf("find '" + path + "' -type f -printf '%s\\n' 2>/dev/null"));
}

/// What is in \p path by name, without what is in the files.
std::int64_t sizesOfFoldersAndLinks(const std::filesystem::path& path) {
    const auto sizeOf = [](const std::filesystem::path& item) -> std::int64_t {
        struct stat status {};
        return ::lstat(item.c_str(), &status) == 0 && !S_ISREG(status.st_mode) ? status.st_size : 0;
    };
    std::int64_t sum = sizeOf(path);
    for (const auto& entry : std::filesystem::recursive_directory_iterator(path)) sum += sizeOf(entry.path());
    return sum;
}

DirectorySize sizeOf(const std::string& path) {
    return FolderSummarizer::directorySize(FileURL::standardized(path, FileURL::root()), Deadline(1e6));
}

TEST(RealFolders, holdWhatFindAddsUp) {
    for (const std::string path : {"/etc", "/usr/share/doc", "/usr/include"}) {
        if (!std::filesystem::is_directory(path)) continue;
        // Somebody may be installing something: what counts is a sum that stays the same.
        std::int64_t expected = sumByFind(path);
        DirectorySize size = sizeOf(path);
        for (std::int64_t again = 0; (again = sumByFind(path)) != expected; expected = again)
            size = sizeOf(path);
        EXPECT_TRUE(size.isComplete) << path;
        EXPECT_EQ(size.size, expected) << path;
        EXPECT_GT(size.size, 0) << path;
    }
}

TEST(RealFolders, holdWhatDuCountsBesidesFoldersAndLinks) {
    const TemporaryFolder folder;
    folder.makeFolder("a/b/.c");
    folder.makeFolder("empty");
    folder.write("1", std::string(12'345, 'x'));
    folder.write("a/2", std::string(678, 'x'));
    folder.write("a/b/.c/3", std::string(9, 'x'));
    std::filesystem::create_hard_link(folder.path() / "a/2", folder.path() / "a/b/again");
    std::filesystem::create_symlink("1", folder.path() / "a/link");
    std::filesystem::create_directory_symlink("../a", folder.path() / "empty/loop");
    folder.write("sparse", "");
    std::filesystem::resize_file(folder.path() / "sparse", 5'000'000'000);

    const std::string path = folder.path().string();
    const std::int64_t all = sumOf(outputOf("du -sb --apparent-size -l '" + path + "'"));
    const std::int64_t expected = all - sizesOfFoldersAndLinks(folder.path());
    EXPECT_EQ(expected, 5'000'013'710); // 12,345 + 2 * 678 + 9
    EXPECT_EQ(sizeOf(path), (DirectorySize{.size = expected, .isComplete = true}));
}

} // namespace
} // namespace quillmar
