#include "Archives/ZipReader.h"

#include "Archives/ArchiveLimits.h"
#include "Tests/Helpers/Environment.h"
#include "Tests/Helpers/TemporaryFolder.h"

#include <array>
#include <cstdlib>
#include <ctime>
#include <gtest/gtest.h>
#include <sstream>
#include <string_view>

namespace quillmar {
namespace {

using Strings = std::vector<std::string>;

/// One entry, in words: "file sub/b 3000 5 20240304.091500", "locked file ...", "folder sub 20240304.091500".
std::string described(const std::string& path, char kind, bool isEncrypted, const std::string& sizes,
                      const std::string& date) {
    const std::string locked = isEncrypted ? "locked " : "";
    const std::string noun = kind == 'd' ? "folder " : kind == 'l' ? "link " : "file ";
    return locked + noun + path + ' ' + (kind == 'd' ? "" : sizes + ' ') + date;
}

/// As the clock on the wall shows it; a moment that no clock shows would stand out.
std::string wallText(Timestamp time) {
    ::tzset();
    const std::time_t seconds = time;
    std::tm fields{};
    localtime_r(&seconds, &fields);
    std::array<char, 32> text{};
    std::strftime(text.data(), text.size(), "%Y%m%d.%H%M%S", &fields);
    return text.data();
}

std::string described(const ArchiveEntry& entry) {
    return described(entry.path,
                     entry.isDirectory ? 'd'
                     : entry.isLink    ? 'l'
                                       : '-',
                     entry.isEncrypted,
                     std::to_string(entry.size) + ' ' + std::to_string(entry.compressedSize.value_or(-1)),
                     entry.modified ? wallText(*entry.modified) : "never");
}

/// A line of `zipinfo -lT`: "-rw-r--r--  3.0 unx     3000 bx        5 stor 20240304.091500 sub/b".
std::string describedLine(const std::string& line) {
    std::string mode;
    std::string version;
    std::string host;
    std::string size;
    std::string kind;
    std::string compressedSize;
    std::string method;
    std::string date;
    std::string name;
    std::istringstream words(line);
    words >> mode >> version >> host >> size >> kind >> compressedSize >> method >> date;
    words.get(); // one space; the name may begin with more
    std::getline(words, name);
    const bool isEncrypted = kind.starts_with('T') || kind.starts_with('B');
    return described(ArchiveEntry::normalize(name), mode[0], isEncrypted, size + ' ' + compressedSize, date);
}

/// Archives that the machine's own tools make, held against the list that zipinfo gives of them.
class RealZip : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(succeeds("zip -v && unzip -v && bsdtar --version && 7z i"))
            << "zip, unzip, bsdtar and 7z are not all installed";
    }

    bool succeeds(const std::string& command) const {
        return std::system(
                   ("cd '" + folder_.path().string() + "' && { " + command + " ; } >log 2>&1").c_str()) == 0;
    }

    void makeTree() const {
        ASSERT_TRUE(
            succeeds("mkdir -p tree/sub/deep tree/empty && cd tree && printf hello >a.txt &&"
                     "head -c 100000 /dev/zero >sub/zeros && : >sub/deep/nothing &&"
                     "printf x >'with  spaces' && printf x >' leading' && printf y >Grüße-日本 &&"
                     "ln -s a.txt link && ln -s sub toFolder && chmod 700 a.txt &&"
                     "touch -d '2024-03-04 09:15:31' a.txt && touch -d '2023-07-14 23:59:58' sub/zeros &&"
                     "touch -d '1985-10-26 01:21:00' sub/deep/nothing && touch -d 2040-12-31 ' leading' &&"
                     "touch -h -d 2010-01-01 link && touch -d 2001-02-03 empty"))
            << contentsOf(folder_.path() / "log");
    }

    /// Packs the tree by \p command, which writes "a.zip" beside it, and compares.
    void expectSameList(const std::string& command) const {
        const ScopedEnvironment environment{{"TZ", "Europe/Berlin"}, {"LC_ALL", "C.UTF-8"}};
        makeTree();
        ASSERT_TRUE(succeeds(command)) << contentsOf(folder_.path() / "log");
        const ArchiveListing listing = ZipReader::listing(folder_.url("a.zip"), ArchiveLimits::maxEntries);
        EXPECT_TRUE(listing.isComplete);
        Strings found;
        for (const ArchiveEntry& entry : listing.entries) found.push_back(described(entry));
        const Strings expected = listOfTool();
        EXPECT_GE(expected.size(), 6U);
        EXPECT_EQ(found, expected);
    }

    TemporaryFolder folder_;

private:
    Strings listOfTool() const {
        EXPECT_TRUE(succeeds("zipinfo -lT a.zip >list"));
        Strings entries;
        std::istringstream lines(contentsOf(folder_.path() / "list"));
        for (std::string line; std::getline(lines, line);) {
            const bool isEntry = !line.empty() && std::string_view("-dlp").find(line[0]) != std::string::npos;
            if (isEntry) entries.push_back(describedLine(line));
        }
        return entries;
    }
};

TEST_F(RealZip, listsWhatZipMakes) { expectSameList("zip -r a.zip tree"); }
TEST_F(RealZip, listsStoredFiles) { expectSameList("zip -0 -r a.zip tree"); }
TEST_F(RealZip, listsLinks) { expectSameList("cd tree && zip -r --symlinks ../a.zip ."); }
TEST_F(RealZip, listsEncryptedFiles) { expectSameList("zip -e -P secret -r a.zip tree"); }
TEST_F(RealZip, listsZip64Entries) { expectSameList("zip -fz -r a.zip tree"); }
TEST_F(RealZip, listsEntriesWithoutExtraFields) { expectSameList("zip -X -r a.zip tree"); }
TEST_F(RealZip, listsEntriesWithoutFolders) { expectSameList("zip -D -r a.zip tree"); }
TEST_F(RealZip, listsNamesOfDOS) { expectSameList("rm tree/Gr* && zip -k -r a.zip tree"); }
TEST_F(RealZip, listsAStreamedArchive) { expectSameList("zip -r - tree | cat >a.zip"); }
TEST_F(RealZip, listsAnArchiveWithAComment) {
    expectSameList("zip -r a.zip tree && head -c 60000 /dev/zero | tr '\\0' c | zip -z a.zip");
}
TEST_F(RealZip, listsASelfExtractingArchive) {
    expectSameList("zip -r b.zip tree && { head -c 70000 /dev/zero; cat b.zip; } >a.zip && zip -A a.zip");
}
TEST_F(RealZip, listsWhat7zMakes) { expectSameList("7z a -tzip a.zip tree"); }
TEST_F(RealZip, listsWhat7zEncrypts) { expectSameList("7z a -tzip -psecret -mem=AES256 a.zip tree"); }
TEST_F(RealZip, listsWhatBsdtarMakes) { expectSameList("bsdtar --format zip -cf a.zip tree"); }
TEST_F(RealZip, listsWhatBsdtarStores) {
    expectSameList("bsdtar --format zip --options zip:compression=store -cf a.zip tree");
}

TEST_F(RealZip, readsTheZip64EndOfManyEntries) {
    std::string folders = "#mtree\n";
    for (int i = 0; i < 70'000; ++i) folders += "./d" + std::to_string(i) + " type=dir time=0\n";
    folder_.write("folders", folders);
    ASSERT_TRUE(succeeds("bsdtar --format zip -cf a.zip @folders")) << contentsOf(folder_.path() / "log");
    ASSERT_NE(contentsOf(folder_.path() / "a.zip").rfind("PK\x06\x06"), std::string::npos);

    const ArchiveListing all = ZipReader::listing(folder_.url("a.zip"), 100'000);
    EXPECT_TRUE(all.isComplete);
    ASSERT_EQ(all.entries.size(), 70'000U);
    EXPECT_EQ(all.entries.back().path, "d69999");
    const ArchiveListing some = ZipReader::listing(folder_.url("a.zip"), ArchiveLimits::maxEntries);
    EXPECT_FALSE(some.isComplete);
    EXPECT_EQ(some.entries.size(), ArchiveLimits::maxEntries);
}

} // namespace
} // namespace quillmar
