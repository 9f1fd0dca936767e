#include "QuillmarQuickLook/Icons/IconCache.h"

#include "Tests/Helpers/Environment.h"
#include "Tests/Helpers/TemporaryFolder.h"
#include "Tests/Helpers/Unprivileged.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace quillmar {
namespace {

using namespace std::string_literals;
namespace fs = std::filesystem;

std::vector<fs::path> filesIn(const fs::path& folder) {
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(folder)) files.push_back(entry.path());
    return files;
}

struct IconCacheTest : testing::Test {
    std::string path() const { return (folder.path() / "icons").string(); }

    /// Stores an icon under "key" and answers its file.
    fs::path stored(DataView icon = "icon") const {
        cache.store("key", icon);
        const auto files = filesIn(path());
        return files.size() == 1 ? files.front() : fs::path();
    }

    TemporaryFolder folder;
    IconCache cache{(folder.path() / "icons").string()};
};

TEST_F(IconCacheTest, hasNothingAtFirst) { EXPECT_FALSE(cache.find("key")); }

TEST_F(IconCacheTest, findsWhatWasStored) {
    const Data icon = "\x89PNG\0\xFF\n"s;
    cache.store("key", icon);
    EXPECT_EQ(cache.find("key"), icon);
    EXPECT_EQ(IconCache(path()).find("key"), icon);
}

TEST_F(IconCacheTest, tellsKeysApart) {
    cache.store("a", "first");
    cache.store("b", "second");
    cache.store("", "third");
    EXPECT_EQ(cache.find("a"), "first");
    EXPECT_EQ(cache.find("b"), "second");
    EXPECT_EQ(cache.find(""), "third");
    EXPECT_FALSE(cache.find("c"));
}

TEST_F(IconCacheTest, keepsAnEmptyIcon) {
    cache.store("key", "");
    EXPECT_EQ(cache.find("key"), "");
}

TEST_F(IconCacheTest, replacesWhatWasStoredBefore) {
    cache.store("key", "a long icon");
    cache.store("key", "short");
    EXPECT_EQ(cache.find("key"), "short");
    EXPECT_EQ(filesIn(path()).size(), 1U);
}

TEST_F(IconCacheTest, hasKeysOfAnyBytes) {
    const std::string key = "a\0/../b\n\xFF"s;
    cache.store(key, "icon");
    EXPECT_EQ(cache.find(key), "icon");
    EXPECT_FALSE(cache.find("a"));
}

TEST_F(IconCacheTest, makesItsFolderAndThoseAboveIt) {
    const IconCache deep((folder.path() / "a/b/c").string());
    deep.store("key", "icon");
    EXPECT_EQ(deep.find("key"), "icon");
}

TEST_F(IconCacheTest, writesFilesThatNobodyElseReads) {
    EXPECT_EQ(fs::status(stored()).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(IconCacheTest, leavesNothingUnfinishedBehind) {
    stored();
    for (const fs::path& file : filesIn(path())) EXPECT_FALSE(file.filename().string().starts_with('.'));
}

TEST_F(IconCacheTest, findsNothingUnderAKeyWhoseFileHoldsAnother) {
    const fs::path first = stored();
    cache.store("other", "other icon");
    auto files = filesIn(path());
    std::erase(files, first);
    ASSERT_EQ(files.size(), 1U);
    fs::copy_file(files.front(), first, fs::copy_options::overwrite_existing);
    EXPECT_FALSE(cache.find("key"));
}

TEST_F(IconCacheTest, findsNothingInACutFile) {
    const fs::path file = stored();
    const Data whole = contentsOf(file);
    for (std::size_t length = 0; length < whole.size(); ++length) {
        folder.write("icons/" + file.filename().string(), whole.substr(0, length));
        EXPECT_FALSE(cache.find("key")) << length;
    }
}

TEST_F(IconCacheTest, findsNothingInAFileWithAnyByteChanged) {
    const fs::path file = stored();
    const Data whole = contentsOf(file);
    for (std::size_t i = 0; i < whole.size(); ++i) {
        for (const unsigned change : {0x01U, 0x80U, 0xFFU}) {
            Data changed = whole;
            changed[i] = static_cast<char>(static_cast<unsigned char>(changed[i]) ^ change);
            folder.write("icons/" + file.filename().string(), changed);
            EXPECT_FALSE(cache.find("key")) << i;
        }
    }
}

TEST_F(IconCacheTest, findsNothingInAFileThatIsTooLong) {
    const fs::path file = stored();
    folder.write("icons/" + file.filename().string(), contentsOf(file) + "x");
    EXPECT_FALSE(cache.find("key"));
    fs::resize_file(file, IconCache::maxFileBytes + 1);
    EXPECT_FALSE(cache.find("key"));
}

TEST_F(IconCacheTest, findsNothingInAFileWhoseLengthsLie) {
    const fs::path file = stored();
    Data changed = contentsOf(file);
    for (std::size_t i = 8; i < 16; ++i) changed[i] = '\xFF'; // of the key and of the icon
    folder.write("icons/" + file.filename().string(), changed);
    EXPECT_FALSE(cache.find("key"));
}

TEST_F(IconCacheTest, findsNothingInSomebodyElsesFile) {
    const fs::path file = stored();
    if (::geteuid() == 0) {
        ASSERT_EQ(::chown(file.c_str(), 65'534, 65'534), 0);
        EXPECT_FALSE(cache.find("key"));
    } else {
        EXPECT_TRUE(cache.find("key")); // nobody but root can give a file away
    }
}

TEST_F(IconCacheTest, followsNoLink) {
    const fs::path file = stored();
    fs::rename(file, folder.path() / "moved");
    fs::create_symlink(folder.path() / "moved", file);
    EXPECT_FALSE(cache.find("key"));
}

TEST_F(IconCacheTest, replacesALinkAndNotItsTarget) {
    const fs::path file = stored();
    fs::remove(file);
    folder.write("target", "untouched");
    fs::create_symlink(folder.path() / "target", file);
    cache.store("key", "new");
    EXPECT_EQ(cache.find("key"), "new");
    EXPECT_EQ(contentsOf(folder.path() / "target"), "untouched");
}

TEST_F(IconCacheTest, waitsForNoPipe) {
    const fs::path file = stored();
    fs::remove(file);
    ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
    EXPECT_FALSE(cache.find("key"));
    cache.store("key", "new");
    EXPECT_EQ(cache.find("key"), "new");
}

TEST_F(IconCacheTest, livesWithAFolderInTheFilesPlace) {
    const fs::path file = stored();
    fs::remove(file);
    fs::create_directories(file / "inside");
    cache.store("key", "new");
    EXPECT_FALSE(cache.find("key"));
    EXPECT_EQ(filesIn(path()).size(), 1U); // and nothing unfinished beside it
}

TEST_F(IconCacheTest, livesWithAFileInTheFoldersPlace) {
    folder.write("icons", "a file");
    cache.store("key", "icon");
    EXPECT_FALSE(cache.find("key"));
    EXPECT_EQ(contentsOf(path()), "a file");
}

TEST_F(IconCacheTest, findsButStoresNothingInAFolderThatMayNotBeWritten) {
    fs::permissions(folder.path(), fs::perms::all);
    const Unprivileged unprivileged;
    cache.store("key", "before");
    const ScopedPermissions readOnly(path(), S_IRUSR | S_IXUSR);
    cache.store("key", "after");
    cache.store("other", "icon");
    EXPECT_EQ(cache.find("key"), "before");
    EXPECT_FALSE(cache.find("other"));
}

TEST_F(IconCacheTest, findsNothingInAFolderThatMayNotBeEntered) {
    fs::permissions(folder.path(), fs::perms::all);
    const Unprivileged unprivileged;
    cache.store("key", "icon");
    const ScopedPermissions closed(path(), 0);
    cache.store("other", "icon");
    EXPECT_FALSE(cache.find("key"));
    EXPECT_FALSE(cache.find("other"));
}

TEST_F(IconCacheTest, keepsNothingWithoutAFolder) {
    const IconCache nowhere("");
    nowhere.store("key", "icon");
    EXPECT_FALSE(nowhere.find("key"));
}

TEST_F(IconCacheTest, keepsNoIconThatIsTooLarge) {
    const std::size_t frameBytes = contentsOf(stored("")).size();
    cache.store("key", Data(IconCache::maxFileBytes - frameBytes, 'x'));
    EXPECT_EQ(cache.find("key").value_or("").size(), IconCache::maxFileBytes - frameBytes);
    cache.store("large", Data(IconCache::maxFileBytes, 'x'));
    EXPECT_FALSE(cache.find("large"));
    cache.store(Data(IconCache::maxFileBytes, 'x'), "");
    EXPECT_FALSE(cache.find(Data(IconCache::maxFileBytes, 'x')));
}

/// Makes the file one of \p seconds after the epoch.
void setTime(const fs::path& file, int seconds) {
    const timeval time{.tv_sec = seconds, .tv_usec = 0};
    const timeval times[2]{time, time};
    ASSERT_EQ(::utimes(file.c_str(), times), 0);
}

TEST_F(IconCacheTest, dropsTheOlderHalfWhenItIsFull) {
    const auto maxIcons = static_cast<int>(IconCache::maxIcons);
    folder.makeFolder("icons");
    const auto name = [](int i) { return "icons/" + std::to_string(i); };
    for (int i = 0; i < maxIcons; ++i) {
        folder.write(name(i), "");
        setTime(folder.path() / name(i), i * 7 % maxIcons); // in another order than that of the names
    }
    cache.store("key", "icon");
    EXPECT_EQ(cache.find("key"), "icon");
    EXPECT_EQ(filesIn(path()).size(), IconCache::maxIcons / 2 + 1);
    for (int i = 0; i < maxIcons; ++i)
        EXPECT_EQ(fs::exists(folder.path() / name(i)), i * 7 % maxIcons >= maxIcons / 2) << i;
}

TEST_F(IconCacheTest, dropsNothingBeforeItIsFull) {
    folder.makeFolder("icons");
    for (std::size_t i = 0; i + 1 < IconCache::maxIcons; ++i) folder.write("icons/" + std::to_string(i), "");
    cache.store("key", "icon");
    EXPECT_EQ(filesIn(path()).size(), IconCache::maxIcons);
}

TEST_F(IconCacheTest, dropsOnlyFiles) {
    folder.makeFolder("icons");
    folder.write("kept", "");
    for (std::size_t i = 0; i < IconCache::maxIcons; ++i) {
        folder.write("icons/" + std::to_string(i), "");
        if (i % 64 == 0) folder.makeFolder("icons/folder" + std::to_string(i));
    }
    cache.store("key", "icon");
    EXPECT_TRUE(fs::exists(folder.path() / "kept"));
    EXPECT_TRUE(fs::exists(folder.path() / "icons/folder0"));
}

TEST_F(IconCacheTest, servesSeveralWritersAndReadersAtOnce) {
    const Data first(100'000, 'a');
    const Data second(50'000, 'b');
    cache.store("key", first);
    std::vector<std::thread> writers;
    for (const Data* icon : {&first, &second, &first, &second})
        writers.emplace_back([this, icon] {
            for (int i = 0; i < 50; ++i) IconCache(path()).store("key", *icon);
        });
    bool isAlwaysWhole = true;
    for (int i = 0; i < 200; ++i) {
        const auto found = cache.find("key");
        isAlwaysWhole = isAlwaysWhole && (found == first || found == second);
    }
    for (std::thread& writer : writers) writer.join();
    EXPECT_TRUE(isAlwaysWhole);
    EXPECT_EQ(filesIn(path()).size(), 1U);
}

using Settings = std::initializer_list<ScopedEnvironment::Setting>;

std::string standardFolder(Settings settings) {
    const ScopedEnvironment nothing({{"HOME", {}}, {"XDG_CACHE_HOME", {}}});
    const ScopedEnvironment environment(settings);
    return IconCache::standardFolder();
}

TEST(IconCacheFolder, liesBelowTheUsersCache) {
    EXPECT_EQ(standardFolder({{"XDG_CACHE_HOME", "/cache"}, {"HOME", "/home/me"}}), "/cache/quillmar/icons");
}

TEST(IconCacheFolder, liesBelowTheHomeFolderWithoutOne) {
    for (const auto* cache : {"", "relative", "./cache", "~/.cache"})
        EXPECT_EQ(standardFolder({{"XDG_CACHE_HOME", cache}, {"HOME", "/home/me"}}),
                  "/home/me/.cache/quillmar/icons");
    EXPECT_EQ(standardFolder({{"HOME", "/home/me"}}), "/home/me/.cache/quillmar/icons");
}

TEST(IconCacheFolder, isNoneWithoutEither) {
    EXPECT_EQ(standardFolder({}), "");
    EXPECT_EQ(standardFolder({{"XDG_CACHE_HOME", ""}, {"HOME", ""}}), "");
    EXPECT_EQ(standardFolder({{"XDG_CACHE_HOME", "cache"}, {"HOME", "home"}}), "");
}

} // namespace
} // namespace quillmar
