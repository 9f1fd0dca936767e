#include "Archives/TarReader.h"

#include "Archives/ArchiveLimits.h"
#include "Platform/FileError.h"
#include "Tests/Helpers/TarListing.h"

#include <gtest/gtest.h>
#include <limits>

namespace quillmar {
namespace {

constexpr auto largest = std::numeric_limits<std::int64_t>::max();
constexpr std::size_t mebibyte = 1'048'576;

// Entries.

TEST(TarReader, listsEntriesInTheirOrder) {
    const auto listing = list(tar({directory("docs/"), file("docs/b", "two"), file("docs/a", "1")}));
    expectComplete(listing, {"docs", "docs/b", "docs/a"});
    EXPECT_EQ(listing.format, ArchiveFormat::tar);
}

TEST(TarReader, copiesTheFormat) {
    MemoryStream stream{endOfArchive()};
    EXPECT_EQ(TarReader::listing(stream, file("a"), ArchiveFormat::tarXz, Deadline(3'600), 10).format,
              ArchiveFormat::tarXz);
}

TEST(TarReader, tellsSizeAndTimeOfAFile) {
    EXPECT_EQ(onlyEntry(list(tar({file("a", "content")}))), (ArchiveEntry{.path = "a",
                                                                          .isDirectory = false,
                                                                          .size = 7,
                                                                          .compressedSize = std::nullopt,
                                                                          .modified = 1'709'543'700}));
}

TEST(TarReader, listsEveryKindOfEntry) {
    struct Row {
        char type;
        Data name;
        bool isListed, isDirectory, isLink, hasSize;
    };
    const std::vector<Row> rows{
        {'0', "f", true, false, false, true},    {'0', "f/", true, true, false, true},
        {'\0', "f", true, false, false, true},   {'\0', "f/", true, true, false, true},
        {'7', "f", true, false, false, true},    {'7', "f/", true, true, false, true},
        {'1', "h", true, false, true, true},     {'1', "h/", true, true, true, true},
        {'2', "s", true, false, true, false},    {'2', "s/", true, true, true, false},
        {'5', "d", true, true, false, true},     {'5', "d/", true, true, false, true},
        {'3', "c", false, false, false, true},   {'3', "c/", true, true, false, false},
        {'4', "b", false, false, false, true},   {'4', "b/", true, true, false, false},
        {'6', "p", false, false, false, true},   {'6', "p/", true, true, false, false},
        {'S', "s", false, false, false, true},   {'\xFF', "x", false, false, false, true},
        {'\xFF', "x/", true, true, false, false}};
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << "type " << static_cast<int>(row.type) << ", name " << row.name);
        // Data follows exactly where the size counts.
        const Data data = row.hasSize ? noise() : Data();
        const auto listing = list(tar({headerOfSize(octal(5), row.type, row.name), data, file("next")}));
        EXPECT_TRUE(listing.isComplete);
        ASSERT_EQ(listing.entries.size(), row.isListed ? 2U : 1U);
        EXPECT_EQ(listing.entries.back().path, "next");
        if (!row.isListed) continue;
        const ArchiveEntry& entry = listing.entries.front();
        EXPECT_EQ(entry.isDirectory, row.isDirectory);
        EXPECT_EQ(entry.isLink, row.isLink);
        EXPECT_EQ(entry.size, row.hasSize ? 5 : 0);
        EXPECT_EQ(entry.compressedSize, std::nullopt);
        EXPECT_FALSE(entry.isEncrypted);
    }
}

TEST(TarReader, leavesOutEntriesWithoutAPath) {
    expectComplete(list(tar({directory("./"), file(""), file("/"), file("././"), file("a")})), {"a"});
}

TEST(TarReader, normalizesPaths) {
    expectComplete(list(tar({file("./a//b"), file("/etc/x"), file("../y"), directory("d/./")})),
                   {"a/b", "etc/x", "../y", "d"});
}

TEST(TarReader, listsAnOldHeaderWithoutMagic) {
    expectComplete(list(tar({header({.name = "old", .type = '\0', .magic = {}, .prefix = "ignored"})})),
                   {"old"});
}

TEST(TarReader, putsTheUstarPrefixBeforeTheName) {
    expectComplete(list(tar({header({.name = "name", .prefix = "long/way"})})), {"long/way/name"});
    expectComplete(list(tar({header({.name = "name", .magic = gnuMagic(), .prefix = "gnu"})})), {"gnu/name"});
    expectComplete(list(tar({header({.name = "", .prefix = "only/prefix"})})), {"only/prefix"});
}

TEST(TarReader, usesAllBytesOfNameAndPrefix) {
    const Data name(100, 'n');
    const Data prefix(155, 'p');
    expectComplete(list(tar({header({.name = name, .prefix = prefix})})), {prefix + "/" + name});
}

TEST(TarReader, repairsNamesThatAreNotUTF8) {
    expectComplete(list(tar({file("caf\xE9"), file("\xFF/\xC3"), file("\xEF\xBB\xBFmark")})),
                   {"caf\uFFFD", "\uFFFD/\uFFFD", "\uFEFFmark"});
}

TEST(TarReader, keepsLineFeedsAndControlsInNames) {
    expectComplete(list(tar({file("a\nb\x1B\x7F")})), {"a\nb\x1B\x7F"});
}

TEST(TarReader, acceptsNamesOfAnyByte) {
    for (int byte = 1; byte < 256; ++byte) {
        const Data name = "x" + Data(1, static_cast<char>(byte)) + "y";
        EXPECT_TRUE(list(tar({file(name), longName(name), file("s"), pax("path", name), file("s")})).isComplete)
            << byte;
    }
}

// Times.

TEST(TarReader, readsTimesOfAnySize) {
    const auto modified = [](const Data& field) {
        return onlyEntry(list(tar({header({.name = "a", .modified = field})}))).modified;
    };
    EXPECT_EQ(modified(octal(0)), 0);
    EXPECT_EQ(modified("-1"), -1);
    EXPECT_EQ(modified("777777777777"), 0777777777777);
    EXPECT_EQ(modified(base256(4'102'444'800)), 4'102'444'800);
    EXPECT_EQ(modified(Data(12, '\xFF')), largest);
    EXPECT_EQ(modified(Data(12, ' ')), 0);
    EXPECT_EQ(modified("yesterday"), std::nullopt);
}

TEST(TarReader, prefersThePaxTime) {
    EXPECT_EQ(onlyEntry(list(tar({pax("mtime", "12.75"), file("a")}))).modified, 12);
    EXPECT_EQ(onlyEntry(list(tar({pax("mtime", "-12.75"), file("a")}))).modified, -13);
}

TEST(TarReader, fallsBackToTheHeadersTime) {
    EXPECT_EQ(onlyEntry(list(tar({pax("mtime", "soon"), file("a")}))).modified, 1'709'543'700);
    EXPECT_EQ(onlyEntry(list(tar({pax("mtime", "inf"), file("a")}))).modified, 1'709'543'700);
}

TEST(TarReader, knowsNoTimeWhenThePaxTimeIsTooLarge) {
    EXPECT_EQ(onlyEntry(list(tar({pax("mtime", "1e300"), file("a")}))).modified, std::nullopt);
}

// Extension headers.

TEST(TarReader, paxPathNamesOnlyTheNextEntry) {
    expectComplete(list(tar({pax("path", "docs/long-name.txt"), file("short"), file("next")})),
                   {"docs/long-name.txt", "next"});
}

TEST(TarReader, readsLongNames) {
    const Data path = Data(300, 'd') + "/" + Data(300, 'n');
    expectComplete(list(tar({pax("path", path), file("short"), file("next")})), {path, "next"});
    expectComplete(list(tar({longName(path), file("short"), file("next")})), {path, "next"});
}

TEST(TarReader, endsALongNameAtItsFirstZero) {
    const Data data("name\0rest", 9);
    expectComplete(list(tar({member({.name = "L", .type = 'L'}, data), file("short")})), {"name"});
    expectComplete(list(tar({member({.name = "L", .type = 'L'}, "no zero"), file("short")})), {"no zero"});
}

TEST(TarReader, replacesPrefixAndNameByTheLongName) {
    expectComplete(list(tar({longName("long"), header({.name = "n", .prefix = "p"})})), {"long"});
}

TEST(TarReader, prefersThePaxPathToALongName) {
    expectComplete(list(tar({pax("path", "pax"), longName("gnu"), file("a"), file("b")})), {"pax", "b"});
    expectComplete(list(tar({longName("gnu"), pax("path", "pax"), file("a"), file("b")})), {"pax", "b"});
}

TEST(TarReader, takesAnEmptyPathForWhatItIs) {
    expectComplete(list(tar({pax("path", ""), file("a", "data"), file("b")})), {"b"});
    expectComplete(list(tar({longName(""), file("a", "data"), file("b")})), {"b"});
}

TEST(TarReader, judgesTheFinalSlashOfTheNameInForce) {
    EXPECT_TRUE(onlyEntry(list(tar({pax("path", "d/"), file("f")}))).isDirectory);
    EXPECT_TRUE(onlyEntry(list(tar({longName("d/"), file("f")}))).isDirectory);
    EXPECT_FALSE(onlyEntry(list(tar({pax("path", "f"), file("d/")}))).isDirectory);
}

TEST(TarReader, mergesTheRecordsOfSeveralPaxHeaders) {
    const auto listing = list(tar({pax("path", "first"), pax("mtime", "1"), pax("path", "second"), file("a")}));
    expectComplete(listing, {"second"});
    EXPECT_EQ(onlyEntry(listing).modified, 1);
}

TEST(TarReader, lastLongNameWins) {
    expectComplete(list(tar({longName("first"), longName("second"), file("a")})), {"second"});
}

TEST(TarReader, forgetsRecordsAtAnEntryThatIsNotListed) {
    const Data pipe = header({.name = "p", .type = '6'});
    const auto listing = list(tar({pax("path", "pipe"), longName("pipe"), pipe, file("a")}));
    expectComplete(listing, {"a"});
}

TEST(TarReader, skipsGlobalHeadersAndLongLinkNames) {
    expectComplete(
        list(tar({globalPax("path", "everything"), longLinkName(Data(1'000, 't')), symbolicLink("s")})), {"s"});
}

TEST(TarReader, keepsRecordsAcrossHeadersThatAreSkipped) {
    expectComplete(list(tar({pax("path", "kept"), globalPax("comment", "x"), longLinkName("t"), file("a")})),
                   {"kept"});
}

TEST(TarReader, skipsAsMuchDataAsThePaxSizeSays) {
    const Data zeroInHeader = headerOfSize(octal(0), '0', "a");
    const auto listing = list(tar({pax("size", "123"), zeroInHeader, noise(), file("b")}));
    expectComplete(listing, {"a", "b"});
    EXPECT_EQ(listing.entries.front().size, 123);
    EXPECT_EQ(listing.entries.back().size, 0);
}

TEST(TarReader, fallsBackToTheHeadersSize) {
    expectComplete(list(tar({pax("size", "1e3"), file("a", "data"), file("b")})), {"a", "b"});
    expectComplete(list(tar({pax("size", "9223372036854775808"), file("a", "data"), file("b")})), {"a", "b"});
}

TEST(TarReader, appliesThePaxSizeToExtensionHeadersToo) {
    // The long name's header says 512 bytes; the record before it says 3.
    const Data headerOfName = headerOfSize(octal(512), 'L');
    const auto listing =
        list(tar({pax("size", "3"), headerOfName, padded("longer"), file("a", "1"), file("b")}));
    expectComplete(listing, {"lon", "b"});
    EXPECT_EQ(listing.entries.front().size, 3);
}

TEST(TarReader, readsNoMoreThanAMebibyteOfAnExtension) {
    const Data name(2 * mebibyte, 'n');
    const Data archive = tar({longName(name), file("a"), file("b")});
    MemoryStream stream = streamBehindFirstBlock(archive);
    const auto listing =
        TarReader::listing(stream, firstBlock(archive), ArchiveFormat::tar, Deadline(3'600), 10);
    expectComplete(listing, {name.substr(0, mebibyte), "b"});
    EXPECT_EQ(stream.largestRead(), mebibyte);
}

TEST(TarReader, readsExtensionsOfEveryLengthAroundABlock) {
    for (const std::size_t length : {1U, 510U, 511U, 512U, 513U, 1'023U, 1'024U}) {
        const Data name(length, 'n');
        expectComplete(list(tar({longName(name), file("a"), file("b")})), {name, "b"});
        expectComplete(list(tar({pax("path", name), file("a"), file("b")})), {name, "b"});
    }
}

TEST(TarReader, readsExtensionsAroundTheMebibyte) {
    for (const std::size_t length : {mebibyte - 2, mebibyte - 1, mebibyte, mebibyte + 1}) {
        const auto listing = list(tar({longName(Data(length, 'n')), file("a"), file("b")}));
        expectComplete(listing, {Data(std::min(length, mebibyte), 'n'), "b"});
    }
}

TEST(TarReader, acceptsAnEmptyExtension) {
    expectComplete(list(tar({headerOfSize(octal(0), 'x'), headerOfSize(octal(0), 'g'), file("a")})), {"a"});
    expectComplete(list(tar({headerOfSize(octal(0), 'L'), file("a"), file("b")})), {"b"});
}

} // namespace
} // namespace quillmar
