#include "Archives/TarReader.h"

#include "Tests/Helpers/Environment.h"
#include "Tests/Helpers/TarBuilder.h"
#include "Tests/Helpers/TemporaryFolder.h"

#include <cstdlib>
#include <ctime>
#include <gtest/gtest.h>
#include <sstream>

namespace quillmar {
namespace {

/// Archives that the machine's own tools make, held against the list that GNU tar gives of them.
class RealTar : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        ASSERT_TRUE(succeeds("tar --version && bsdtar --version")) << "GNU tar and bsdtar are not installed";
    }

    bool succeeds(const std::string& command) const {
        return std::system(
                   ("cd '" + folder_.path().string() + "' && { " + command + " ; } >log 2>&1").c_str()) == 0;
    }

    /// Fills the folder "tree" by \p command, packs it by the tool at hand into "a.tar" and compares.
    void expectSameList(const std::string& command) const {
        ASSERT_TRUE(succeeds("mkdir tree && cd tree && " + command)) << contentsOf(folder_.path() / "log");
        ASSERT_TRUE(succeeds(std::string(GetParam()) + " -cf a.tar -C tree ."))
            << contentsOf(folder_.path() / "log");
        const auto listing = list(contentsOf(folder_.path() / "a.tar"));
        EXPECT_TRUE(listing.isComplete);
        EXPECT_FALSE(listing.entries.empty());
        const auto expected = listOfTool();
        ASSERT_EQ(pathsOf(listing), pathsOf({.format = ArchiveFormat::tar, .entries = expected}));
        for (std::size_t i = 0; i < expected.size(); ++i)
            EXPECT_EQ(listing.entries[i], expected[i]) << expected[i].path;
    }

    TemporaryFolder folder_;

private:
    std::vector<ArchiveEntry> listOfTool() const {
        const ScopedEnvironment environment{{"TZ", "UTC"}, {"LC_ALL", "C"}};
        EXPECT_TRUE(succeeds("tar --quoting-style=literal --full-time --numeric-owner -tvf a.tar >list"));
        std::vector<ArchiveEntry> entries;
        std::istringstream lines(contentsOf(folder_.path() / "list"));
        for (std::string line; std::getline(lines, line);) {
            const ArchiveEntry entry = entryOfLine(line);
            const bool isPipe = line.starts_with('p');
            if (!isPipe && !entry.path.empty()) entries.push_back(entry);
        }
        return entries;
    }

    /// "-rw-r--r-- 0/0   5 2024-03-04 09:15:00.25 ./name", behind which links name their targets.
    static ArchiveEntry entryOfLine(const std::string& line) {
        std::string mode;
        std::string owner;
        std::string date;
        std::string clock;
        std::string name;
        ArchiveEntry entry;
        std::istringstream words(line);
        words >> mode >> owner >> entry.size >> date >> clock;
        words >> std::ws;
        std::getline(words, name);
        if (mode[0] == 'l') name.resize(name.find(" -> "));
        if (mode[0] == 'h') name.resize(name.find(" link to "));
        std::tm time{};
        strptime((date + " " + clock.substr(0, 8)).c_str(), "%Y-%m-%d %H:%M:%S", &time);
        entry.modified = timegm(&time);
        entry.isDirectory = mode[0] == 'd';
        entry.isLink = mode[0] == 'l' || mode[0] == 'h';
        if (mode[0] == 'l') entry.size = 0;
        entry.path = ArchiveEntry::normalize(name);
        return entry;
    }
};

std::string nameOfTool(const testing::TestParamInfo<const char*>& tool) {
    std::string name(tool.param);
    std::erase_if(name, [](char c) { return c == ' ' || c == '-' || c == '='; });
    return name;
}

TEST_P(RealTar, listsFilesAndFolders) {
    expectSameList("mkdir -p docs/deep empty && printf hello >docs/a.txt && head -c 511 /dev/zero >docs/b && "
                   "head -c 512 /dev/zero >docs/c && head -c 100000 /dev/zero >docs/deep/d && : >nothing");
}

TEST_P(RealTar, listsNamesUpToTheOldLimit) {
    const std::string name(97, 'n'); // and "./"
    expectSameList("printf 1 >" + name + " && printf 2 >" + name.substr(1));
}

TEST_P(RealTar, listsUnicodeNames) {
    expectSameList("printf 1 >'caf\u00E9' && printf 2 >'\u65E5\u672C\u8A9E' && mkdir '\U0001F4E6 box' && "
                   "printf 3 >'\U0001F4E6 box/with space'");
}

TEST_P(RealTar, listsLinks) {
    expectSameList(
        "printf hello >file && ln -s file symbolic && ln -s nowhere/at/all broken && ln file hard && "
        "mkdir d && ln -s ../file d/up");
}

TEST_P(RealTar, listsTimesOfAllKinds) {
    expectSameList(
        "printf 1 >a && touch -d '2024-03-04 09:15:00.75 UTC' a && printf 2 >b && "
        "touch -d '1970-01-01 00:00:00 UTC' b && printf 3 >c && touch -d '2038-02-01 12:00:00 UTC' c");
}

INSTANTIATE_TEST_SUITE_P(Tools, RealTar,
                         testing::Values("tar --format=v7", "tar --format=oldgnu", "tar --format=gnu",
                                         "tar --format=ustar", "tar --format=posix", "bsdtar --format=ustar",
                                         "bsdtar --format=pax", "bsdtar --format=gnutar"),
                         nameOfTool);

/// Formats that keep names longer than 100 bytes, and all kinds of items.
class RealTarSinceUstar : public RealTar {};

TEST_P(RealTarSinceUstar, listsLongNames) {
    const std::string folder(90, 'd');
    expectSameList("mkdir -p " + folder + " && printf 1 >" + folder + "/" + std::string(90, 'n') +
                   " && mkdir " + folder + "/" + std::string(60, 'e') + " && printf 2 >z");
}

TEST_P(RealTarSinceUstar, passesOverPipes) { expectSameList("printf 1 >a && mkfifo b && printf 2 >c"); }

INSTANTIATE_TEST_SUITE_P(Tools, RealTarSinceUstar,
                         testing::Values("tar --format=oldgnu", "tar --format=gnu", "tar --format=ustar",
                                         "tar --format=posix", "bsdtar --format=ustar", "bsdtar --format=pax",
                                         "bsdtar --format=gnutar"),
                         nameOfTool);

/// Formats that keep names and sizes whatever they are.
class RealTarWithoutLimits : public RealTar {};

TEST_P(RealTarWithoutLimits, listsVeryLongNames) {
    const std::string folder(200, 'd');
    expectSameList("mkdir -p " + folder + "/" + folder + "/" + folder + " && printf 1 >" + folder + "/" +
                   folder + "/" + std::string(250, 'n') + " && printf 2 >z");
}

TEST_P(RealTarWithoutLimits, listsLinksWithLongTargets) {
    expectSameList("ln -s " + std::string(150, 't') + " symbolic && ln -s " + std::string(600, 'u') + " " +
                   std::string(150, 's') + " && printf 1 >z");
}

TEST_P(RealTarWithoutLimits, listsALargeFile) {
    // A file of nine gigabytes, all of it a hole, of which the archive has the first bytes.
    ASSERT_TRUE(succeeds("mkdir tree && truncate -s 9000000000 tree/big"));
    const bool isBSD = std::string_view(GetParam()).starts_with("bsdtar");
    const std::string command = std::string(GetParam()) + (isBSD ? " --no-read-sparse" : "");
    ASSERT_TRUE(succeeds(command + " -cf - -C tree big | head -c 4096 >a.tar"));
    const auto listing = list(contentsOf(folder_.path() / "a.tar"));
    EXPECT_EQ(pathsOf(listing), Strings{"big"});
    EXPECT_FALSE(listing.isComplete);
    ASSERT_FALSE(listing.entries.empty());
    EXPECT_EQ(listing.entries.front().size, 9'000'000'000);
}

INSTANTIATE_TEST_SUITE_P(Tools, RealTarWithoutLimits,
                         testing::Values("tar --format=oldgnu", "tar --format=gnu", "tar --format=posix",
                                         "bsdtar --format=pax", "bsdtar --format=gnutar"),
                         nameOfTool);

class RealPaxTar : public RealTar {};

TEST_P(RealPaxTar, listsTimesBefore1970) {
    expectSameList("printf 1 >a && touch -d '1969-12-31 23:59:50 UTC' a");
}

TEST_P(RealPaxTar, listsSparseFilesAsTheyAreStored) {
    ASSERT_TRUE(succeeds("mkdir tree && truncate -s 100000 tree/sparse && printf end >>tree/sparse"));
    ASSERT_TRUE(succeeds(std::string(GetParam()) + " -S -cf a.tar -C tree sparse"));
    const auto listing = list(contentsOf(folder_.path() / "a.tar"));
    EXPECT_TRUE(listing.isComplete);
    ASSERT_EQ(listing.entries.size(), 1U);
    EXPECT_TRUE(listing.entries.front().path.starts_with("GNUSparseFile."));
    EXPECT_LT(listing.entries.front().size, 100'000);
}

INSTANTIATE_TEST_SUITE_P(Tools, RealPaxTar, testing::Values("tar --format=posix", "bsdtar --format=pax"),
                         nameOfTool);

} // namespace
} // namespace quillmar
