#include "Archives/TarReader.h"

#include "Archives/ArchiveLimits.h"
#include "Platform/FileError.h"
#include "Tests/Helpers/TarListing.h"

#include <gtest/gtest.h>
#include <limits>

namespace quillmar {
namespace {

using TarHeader::blockSize;

constexpr auto largest = std::numeric_limits<std::int64_t>::max();
constexpr std::size_t mebibyte = 1'048'576;

// The end.

TEST(TarReader, endsAtOneZeroBlock) {
    expectComplete(list(file("a") + Data(blockSize, '\0') + noise()), {"a"});
    expectComplete(list(endOfArchive()), {});
}

TEST(TarReader, isCompleteWhenTheDataEndsBehindWholeBlocks) {
    expectComplete(list(file("a", "data")), {"a"});
    expectComplete(list(""), {});
}

TEST(TarReader, isCompleteWhenTheLastBlockIsShort) {
    expectComplete(list(file("a") + noise().substr(1)), {"a"});
    expectComplete(list("short"), {});
}

TEST(TarReader, isCompleteWithoutEntries) { expectComplete(list(tar({directory("./")})), {}); }

TEST(TarReader, isCompleteWhenRecordsAreLeftOver) {
    expectComplete(list(tar({file("a"), pax("path", "nobody"), longName("nobody")})), {"a"});
}

// Failures.

TEST(TarReader, stopsAtABlockThatIsNoHeader) {
    expectIncomplete(list(tar({file("a"), noise(), file("b")})), {"a"});
    expectIncomplete(list(noise()), {});
}

TEST(TarReader, stopsAtABlankChecksum) {
    const Data blank = withChecksumField(file("b"), "        ");
    expectIncomplete(list(tar({file("a"), blank, file("c")})), {"a"});
}

TEST(TarReader, stopsWhereDataIsMissing) {
    const Data entry = file("a", "data");
    expectIncomplete(list(entry.substr(0, entry.size() - 1)), {"a"});
    expectIncomplete(list(headerOfSize(octal(1))), {"big"});
}

TEST(TarReader, stopsWhereTheDataOfAnExtensionIsMissing) {
    for (const char type : {'x', 'g', 'L', 'K'}) {
        const Data extension = member({.name = "e", .type = type}, "5 a=b\n");
        expectIncomplete(list(file("a") + extension.substr(0, extension.size() - 1)), {"a"});
        expectIncomplete(list(file("a") + extension.substr(0, blockSize)), {"a"});
    }
}

TEST(TarReader, stopsWhereTheDataOfAnUnlistedEntryIsMissing) {
    expectIncomplete(list(file("a") + headerOfSize(octal(5), '6')), {"a"});
}

TEST(TarReader, stopsBehindASizeThatNoFileHas) {
    for (const std::int64_t size : {largest, largest - 1, largest - 510, largest - 511, largest - 512}) {
        const auto listing = list(tar({headerOfSize(base256(static_cast<std::uint64_t>(size))), file("b")}));
        expectIncomplete(listing, {"big"});
        EXPECT_EQ(listing.entries.front().size, size);
    }
    EXPECT_EQ(onlyEntry(list(headerOfSize(Data(12, '\xFF')))).size, largest);
}

TEST(TarReader, stopsBehindANegativeSize) {
    for (const char* size : {"-1", "-1000", "-77777777777"})
        expectIncomplete(list(tar({headerOfSize(size), file("b")})), {"big"});
    const auto smallest = list(tar({pax("size", "-9223372036854775808"), file("a"), file("b")}));
    expectIncomplete(smallest, {"a"});
    EXPECT_EQ(smallest.entries.front().size, std::numeric_limits<std::int64_t>::min());
}

TEST(TarReader, stopsAtAnExtensionOfAnImpossibleSize) {
    for (const char type : {'x', 'g', 'L', 'K'})
        for (const Data& size :
             {Data("-1"), Data(12, '\xFF'), base256(static_cast<std::uint64_t>(largest - 511))})
            expectIncomplete(list(tar({file("a"), headerOfSize(size, type), file("b")})), {"a"});
}

TEST(TarReader, goesOnWhereAnImpossibleSizeStandsForNoData) {
    for (const Data& size : {Data("-1"), Data(12, '\xFF')}) {
        expectComplete(list(tar({headerOfSize(size, '2', "s"), file("b")})), {"s", "b"});
        expectComplete(list(tar({headerOfSize(size, '4', "device/"), file("b")})), {"device", "b"});
    }
}

TEST(TarReader, takesASizeThatIsNoNumberForZero) {
    const auto listing = list(tar({headerOfSize("99999999999"), file("b")}));
    expectComplete(listing, {"big", "b"});
    EXPECT_EQ(listing.entries.front().size, 0);
}

TEST(TarReader, everyTruncationListsAPrefixOfTheWhole) {
    const Data archive = tar({directory("d/"), pax("path", "d/pax"), file("x", "data"), globalPax("a", "b"),
                              longName("d/gnu"), longLinkName("t"), symbolicLink("y"),
                              header({.name = "p", .type = '6'}), file("z", Data(600, 'z'))});
    const auto whole = list(archive);
    expectComplete(whole, {"d", "d/pax", "d/gnu", "z"});
    for (std::size_t length = 0; length < archive.size(); ++length) {
        const auto cut = list(DataView(archive).substr(0, length));
        ASSERT_LE(cut.entries.size(), whole.entries.size()) << length;
        EXPECT_TRUE(std::equal(cut.entries.begin(), cut.entries.end(), whole.entries.begin())) << length;
    }
}

TEST(TarReader, everyFaultOfTheStreamKeepsAPrefixOfTheWhole) {
    const Data archive =
        tar({directory("d/"), pax("path", "d/pax"), file("x", "data"), longName("d/gnu"), symbolicLink("y")});
    const auto whole = list(archive);
    for (std::size_t fault = 0; fault < archive.size() - 2 * blockSize; ++fault) {
        MemoryStream stream = streamBehindFirstBlock(archive);
        stream.failAfter(fault);
        const auto cut =
            TarReader::listing(stream, firstBlock(archive), ArchiveFormat::tarGzip, Deadline(3'600), 10);
        EXPECT_FALSE(cut.isComplete) << fault;
        ASSERT_LE(cut.entries.size(), whole.entries.size()) << fault;
        EXPECT_TRUE(std::equal(cut.entries.begin(), cut.entries.end(), whole.entries.begin())) << fault;
    }
}

TEST(TarReader, keepsTheEntryInWhoseDataTheStreamFails) {
    const Data archive = tar({file("a", "data"), file("b")});
    MemoryStream stream = streamBehindFirstBlock(archive);
    stream.failAfter(4);
    expectIncomplete(TarReader::listing(stream, firstBlock(archive), ArchiveFormat::tarXz, Deadline(3'600), 10),
                     {"a"});
}

/// A file that can no longer be read.
class LostFile : public ByteStream {
public:
    DataView read(std::size_t) override { throw FileError("It is gone."); }
    bool skip(std::int64_t, const Deadline&) override { return true; }
};

TEST(TarReader, keepsWhatItHasWhenTheFileCannotBeRead) {
    LostFile stream;
    expectIncomplete(TarReader::listing(stream, file("a"), ArchiveFormat::tar, Deadline(3'600), 10), {"a"});
}

TEST(TarReader, neverReadsTheDataOfEntries) {
    const Data archive = tar({file("a", Data(100'000, 'x')), file("b", Data(100'000, 'x'))});
    MemoryStream stream = streamBehindFirstBlock(archive);
    TarReader::listing(stream, firstBlock(archive), ArchiveFormat::tar, Deadline(3'600), 10);
    EXPECT_EQ(stream.bytesRead(), 2 * blockSize); // the second header and the zero block
}

// Limits.

Data manyFiles(int count) {
    Data archive;
    for (int i = 0; i < count; ++i) archive += file("f" + std::to_string(i));
    return archive + endOfArchive();
}

TEST(TarReader, listsAsManyEntriesAsTheLimitAllows) {
    const auto listing = list(manyFiles(20'000), ArchiveLimits::maxEntries);
    EXPECT_EQ(listing.entries.size(), 20'000U);
    EXPECT_EQ(listing.entries.back().path, "f19999");
    EXPECT_TRUE(listing.isComplete);
}

TEST(TarReader, stopsAtTheFirstEntryMore) {
    const auto listing = list(manyFiles(20'001), ArchiveLimits::maxEntries);
    EXPECT_EQ(listing.entries.size(), 20'000U);
    EXPECT_EQ(listing.entries.back().path, "f19999");
    EXPECT_FALSE(listing.isComplete);
}

TEST(TarReader, looksAtTheLimitAtExtensionHeadersToo) {
    expectIncomplete(list(tar({file("a"), globalPax("comment", "x")}), 1), {"a"});
    expectIncomplete(list(tar({file("a")}), 0), {});
    expectComplete(list(endOfArchive(), 0), {});
}

TEST(TarReader, countsOnlyListedEntries) {
    const Data pipe = header({.name = "p", .type = '6'});
    expectComplete(list(tar({pipe, pipe, directory("./"), file("a")}), 1), {"a"});
}

TEST(TarReader, stopsAtTheLimitOfPathText) {
    const Data name(mebibyte, 'n');
    const Data member = longName(name) + file("short");
    Data archive;
    for (int i = 0; i < 64; ++i) archive += member;
    const auto full = list(archive + endOfArchive());
    EXPECT_EQ(full.entries.size(), 64U);
    EXPECT_TRUE(full.isComplete);
    const auto more = list(archive + file("x") + endOfArchive());
    EXPECT_EQ(more.entries.size(), 64U);
    EXPECT_FALSE(more.isComplete);
    const auto noPath = list(archive + directory("./") + endOfArchive());
    EXPECT_EQ(noPath.entries.size(), 64U);
    EXPECT_TRUE(noPath.isComplete);
}

TEST(TarReader, stopsAtTheLimitOfPendingRecords) {
    // A keyword and its value of exactly half a mebibyte; eight of them are the limit.
    const auto half = [](char keyword) { return pax(Data(1, keyword), Data(mebibyte / 2 - 1, 'v')); };
    const Data full =
        joined({half('a'), half('b'), half('c'), half('d'), half('e'), half('f'), half('g'), half('h')});
    expectComplete(list(full + half('a') + file("f") + endOfArchive()), {"f"});
    expectComplete(list(full + file("f") + full + file("g") + endOfArchive()), {"f", "g"});
    expectIncomplete(list(full + paxHeader("4 i=\n") + file("f") + endOfArchive()), {});
}

// The deadline, by a clock that moves a second at each look.

Deadline secondsFromNow(double budget) {
    return Deadline(budget, [now = std::chrono::steady_clock::time_point()]() mutable {
        now += std::chrono::seconds(1);
        return now;
    });
}

ArchiveListing listWithin(double budget, const Data& archive) {
    MemoryStream stream = streamBehindFirstBlock(archive);
    return TarReader::listing(stream, firstBlock(archive), ArchiveFormat::tar, secondsFromNow(budget), 10);
}

TEST(TarReader, listsNothingWhenTheDeadlineHasPassed) {
    expectIncomplete(listWithin(-1, tar({file("a"), file("b")})), {});
    expectIncomplete(listWithin(0.5, tar({file("a"), file("b")})), {});
}

TEST(TarReader, stopsBetweenHeadersAtTheDeadline) {
    expectIncomplete(listWithin(1.5, tar({file("a"), file("b"), file("c")})), {"a"});
    expectIncomplete(listWithin(2.5, tar({file("a"), file("b"), file("c")})), {"a", "b"});
    expectComplete(listWithin(3.5, tar({file("a"), file("b"), file("c")})), {"a", "b", "c"});
}

TEST(TarReader, goesOnWhenTheDeadlineIsNow) { expectComplete(listWithin(1, tar({file("a")})), {"a"}); }

TEST(TarReader, looksAtTheClockAtExtensionHeadersToo) {
    expectIncomplete(listWithin(1.5, tar({pax("path", "long"), file("a")})), {});
}

TEST(TarReader, needsNoTimeForTheEndOfTheArchive) {
    expectComplete(listWithin(-1, endOfArchive()), {});
    expectIncomplete(listWithin(-1, noise()), {});
}

/// A stream whose skipping takes too long.
class SlowStream : public MemoryStream {
public:
    using MemoryStream::MemoryStream;
    bool skip(std::int64_t count, const Deadline& deadline) override {
        return !deadline.passed() && MemoryStream::skip(count, deadline);
    }
};

TEST(TarReader, keepsTheEntryInWhoseDataTheDeadlinePasses) {
    SlowStream stream(padded("data") + endOfArchive());
    const Data first = file("a", "data").substr(0, blockSize);
    expectIncomplete(TarReader::listing(stream, first, ArchiveFormat::tarGzip, secondsFromNow(1.5), 10), {"a"});
}

} // namespace
} // namespace quillmar
