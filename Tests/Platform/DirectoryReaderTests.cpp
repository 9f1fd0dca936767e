#include "Platform/DirectoryReader.h"

#include "Tests/Helpers/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <map>
#include <set>
#include <string>
#include <sys/stat.h>

namespace quillmar {
namespace {

using Names = std::multiset<std::string>;

Names namesReadBy(DirectoryReader& reader, const Directory& directory) {
    Names names;
    reader.start(directory);
    while (const auto entry = reader.next()) names.insert(entry->name);
    return names;
}

Names namesIn(const TemporaryFolder& folder) {
    const Directory directory(folder.url("."));
    DirectoryReader reader;
    Names names = namesReadBy(reader, directory);
    EXPECT_EQ(reader.error(), 0);
    return names;
}

TEST(DirectoryReader, findsNothingInAnEmptyFolder) {
    const TemporaryFolder folder;
    EXPECT_EQ(namesIn(folder), Names{});
}

TEST(DirectoryReader, findsEachItemOnce) {
    const TemporaryFolder folder;
    folder.write("a", "");
    folder.makeFolder("b/inside");
    std::filesystem::create_symlink("nowhere", folder.path() / "c");
    EXPECT_EQ(namesIn(folder), (Names{"a", "b", "c"}));
}

TEST(DirectoryReader, findsNamesThatBeginWithDots) {
    const TemporaryFolder folder;
    for (const char* name : {".a", "..a", "...", " "}) folder.write(name, "");
    EXPECT_EQ(namesIn(folder), (Names{".a", "..a", "...", " "}));
}

TEST(DirectoryReader, findsNamesOfAnyBytes) {
    const TemporaryFolder folder;
    const Names names{"\xFF\xFE", "a\nb", "<b>", "\x01", std::string(255, 'x')};
    for (const std::string& name : names) folder.write(name, "");
    EXPECT_EQ(namesIn(folder), names);
}

TEST(DirectoryReader, findsMoreThanItsBufferHolds) {
    const TemporaryFolder folder;
    Names names;
    for (int i = 0; i < 500; ++i) names.insert(std::to_string(i) + std::string(200, 'x'));
    for (const std::string& name : names) folder.write(name, "");
    EXPECT_EQ(namesIn(folder), names);
}

TEST(DirectoryReader, tellsKindsWhereTheFileSystemDoes) {
    const TemporaryFolder folder;
    folder.write("file", "");
    folder.makeFolder("folder");
    std::filesystem::create_directory_symlink("folder", folder.path() / "link");
    ASSERT_EQ(::mkfifo((folder.path() / "pipe").c_str(), 0600), 0);
    const std::map<std::string, ItemKind> kinds{{"file", ItemKind::regularFile},
                                                {"folder", ItemKind::folder},
                                                {"link", ItemKind::symbolicLink},
                                                {"pipe", ItemKind::other}};
    const Directory directory(folder.url("."));
    DirectoryReader reader;
    reader.start(directory);
    while (const auto entry = reader.next())
        EXPECT_TRUE(entry->kind == kinds.at(entry->name) || entry->kind == ItemKind::unknown) << entry->name;
}

TEST(DirectoryReader, readsOneFolderAfterTheOther) {
    const TemporaryFolder folder;
    folder.makeFolder("a");
    folder.makeFolder("b");
    folder.write("a/1", "");
    folder.write("b/2", "");
    const Directory first(folder.url("a"));
    const Directory second(folder.url("b"));
    DirectoryReader reader;
    EXPECT_EQ(namesReadBy(reader, first), Names{"1"});
    EXPECT_EQ(namesReadBy(reader, second), Names{"2"});
}

TEST(DirectoryReader, forgetsTheRestOfAFolderThatItLeaves) {
    const TemporaryFolder folder;
    folder.makeFolder("a");
    folder.makeFolder("b");
    for (const char* name : {"a/1", "a/2", "a/3", "b/4"}) folder.write(name, "");
    const Directory first(folder.url("a"));
    const Directory second(folder.url("b"));
    DirectoryReader reader;
    reader.start(first);
    EXPECT_TRUE(reader.next());
    EXPECT_EQ(namesReadBy(reader, second), Names{"4"});
}

TEST(DirectoryReader, staysAtTheEnd) {
    const TemporaryFolder folder;
    const Directory directory(folder.url("."));
    DirectoryReader reader;
    reader.start(directory);
    EXPECT_FALSE(reader.next());
    EXPECT_FALSE(reader.next());
    EXPECT_EQ(reader.error(), 0);
}

TEST(DirectoryReader, tellsTheSystemsFault) {
    const TemporaryFolder folder;
    const Directory gone(folder.makeFolder("gone"));
    std::filesystem::remove(folder.path() / "gone");
    DirectoryReader reader;
    reader.start(gone);
    EXPECT_FALSE(reader.next());
    EXPECT_EQ(reader.error(), ENOENT);
}

TEST(DirectoryReader, forgetsAFaultWithTheNextFolder) {
    const TemporaryFolder folder;
    folder.write("a", "");
    const Directory closed(Directory(folder.url(".")), "gone");
    const Directory open(folder.url("."));
    DirectoryReader reader;
    EXPECT_EQ(namesReadBy(reader, closed), Names{});
    EXPECT_NE(reader.error(), 0);
    EXPECT_EQ(namesReadBy(reader, open), Names{"a"});
    EXPECT_EQ(reader.error(), 0);
}

} // namespace
} // namespace quillmar
