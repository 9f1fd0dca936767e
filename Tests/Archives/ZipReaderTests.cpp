#include "Archives/ZipReader.h"

#include "Platform/FileError.h"
#include "Tests/Helpers/ZipListing.h"

#include <gtest/gtest.h>
#include <limits>
#include <string_view>

namespace quillmar {
namespace {

using namespace std::string_view_literals;
using namespace ZipBuilder;
using namespace ZipListing;

constexpr const char* endIsMissing = "The end of the archive is missing.";
constexpr const char* directoryIsDamaged = "The archive's table of contents is damaged.";
constexpr std::uint32_t overflow = 0xFFFFFFFF;

// The end of the archive

TEST(ZipReader, listsNothingInAnEmptyArchive) {
    const ArchiveListing listing = list(End{}.bytes());
    EXPECT_EQ(listing, (ArchiveListing{ArchiveFormat::zip, {}, true}));
}

TEST(ZipReader, listsEntriesInTheirOrder) {
    const ArchiveListing listing =
        list(archive({{.name = "b"}, {.name = "a/c"}, {.name = "a"}, {.name = "b"}}));
    EXPECT_EQ(listing.format, ArchiveFormat::zip);
    EXPECT_EQ(pathsOf(listing), (Strings{"b", "a/c", "a", "b"}));
    EXPECT_TRUE(listing.isComplete);
}

TEST(ZipReader, findsTheDirectoryBehindOtherBytes) {
    const Data headers = directory({{.name = "a"}});
    const End end{.entries = 1, .size = static_cast<std::uint32_t>(headers.size()), .offset = 100'000};
    EXPECT_EQ(pathsOf(list(Data(100'000, 'x') + headers + end.bytes())), Strings{"a"});
}

TEST(ZipReader, findsTheEndBeforeTheLongestComment) {
    EXPECT_EQ(pathsOf(list(archive({{.name = "a"}}, Data(65'535, 'c')))), Strings{"a"});
    const Data longer = archive({{.name = "a"}}, Data(65'535, 'c')) + "c";
    EXPECT_EQ(damageOf(longer), endIsMissing);
}

TEST(ZipReader, takesTheLastEndOfAll) {
    // The comment holds another record, which knows an empty directory.
    EXPECT_EQ(pathsOf(list(archive({{.name = "a"}}, End{}.bytes()))), Strings{});
    // A signature that is too near the end to be a record is none.
    EXPECT_EQ(pathsOf(list(archive({{.name = "a"}}, "PK\x05\x06" + Data(17, 'c')))), Strings{"a"});
    // Nothing asks whether the comment's length is true.
    EXPECT_EQ(pathsOf(list(archive({{.name = "a"}}) + "more")), Strings{"a"});
}

TEST(ZipReader, saysThatTheEndIsMissing) {
    EXPECT_EQ(damageOf(""), endIsMissing);
    EXPECT_EQ(damageOf("PK\x05\x06"), endIsMissing);
    EXPECT_EQ(damageOf(Data(22, '\0')), endIsMissing);
    EXPECT_EQ(damageOf(Data(200'000, 'P')), endIsMissing);
    EXPECT_EQ(damageOf(directory({{.name = "a"}})), endIsMissing);
    EXPECT_EQ(damageOf(End{}.bytes().substr(0, 21)), endIsMissing);
}

TEST(ZipReader, saysThatTheDirectoryIsDamagedWhenItLeavesTheFile) {
    const auto withEnd = [](std::uint32_t size, std::uint32_t offset) {
        return directory({{.name = "a"}}) + End{.entries = 1, .size = size, .offset = offset}.bytes();
    };
    ASSERT_EQ(withEnd(47, 0).size(), 69U);
    EXPECT_EQ(damageOf(withEnd(69, 0)), "");
    EXPECT_EQ(damageOf(withEnd(70, 0)), directoryIsDamaged);
    EXPECT_EQ(damageOf(withEnd(47, 22)), "");
    EXPECT_EQ(damageOf(withEnd(47, 23)), directoryIsDamaged);
    EXPECT_EQ(damageOf(withEnd(0, 69)), "");
    EXPECT_EQ(damageOf(withEnd(0, 70)), directoryIsDamaged);
    EXPECT_EQ(damageOf(withEnd(overflow, 0)), directoryIsDamaged);
    EXPECT_EQ(damageOf(withEnd(0, overflow)), directoryIsDamaged);
    EXPECT_EQ(damageOf(withEnd(overflow, overflow)), directoryIsDamaged);
}

TEST(ZipReader, readsADirectoryOfTheLargestSizeOnly) {
    constexpr std::uint32_t largest = 268'435'456;
    const TemporaryFolder folder;
    const FileURL url = folder.write("sparse.zip", directory({{.name = "a"}}));
    const auto append = [&](std::uint32_t size) {
        std::filesystem::resize_file(url.path(), largest + 1);
        std::ofstream file(url.path(), std::ios::binary | std::ios::app);
        const Data end = End{.entries = 1, .size = size, .offset = 0}.bytes();
        file.write(end.data(), static_cast<std::streamsize>(end.size()));
    };
    append(largest + 1);
    EXPECT_THROW(ZipReader::listing(url, 10), ArchiveError);
    append(largest);
    EXPECT_EQ(pathsOf(ZipReader::listing(url, 10)), Strings{"a"});
}

TEST(ZipReader, passesOnThatAFileCannotBeOpened) {
    const TemporaryFolder folder;
    EXPECT_THROW(ZipReader::listing(folder.url("missing.zip"), 10), FileError);
    EXPECT_THROW(ZipReader::listing(folder.makeFolder("folder.zip"), 10), FileError);
}

// ZIP64

TEST(ZipReader, followsTheZip64LocatorWhereAFieldOverflows) {
    const Data headers = directory({{.name = "a"}, {.name = "b"}});
    const Data record = Zip64End{.entries = 2, .size = headers.size(), .offset = 0}.bytes();
    const auto withEnd = [&](const End& end) {
        return headers + record + zip64Locator(headers.size()) + end.bytes();
    };
    const auto size = static_cast<std::uint32_t>(headers.size());
    EXPECT_EQ(pathsOf(list(withEnd({.entries = 0xFFFF, .size = overflow, .offset = overflow}))),
              (Strings{"a", "b"}));
    EXPECT_EQ(pathsOf(list(withEnd({.entries = 0xFFFF, .size = 0, .offset = 0}))), (Strings{"a", "b"}));
    EXPECT_EQ(pathsOf(list(withEnd({.entries = 2, .size = overflow, .offset = 0}))), (Strings{"a", "b"}));
    EXPECT_EQ(pathsOf(list(withEnd({.entries = 2, .size = size, .offset = overflow}))), (Strings{"a", "b"}));
    EXPECT_EQ(pathsOf(list(withEnd({.entries = 2, .size = 0, .offset = 0}))), Strings{}) << "no overflow";
}

TEST(ZipReader, keepsThe32BitValuesWithoutAZip64Record) {
    const Data headers = directory({{.name = "a"}});
    const auto size = static_cast<std::uint32_t>(headers.size());
    const Data record = Zip64End{.entries = 0, .size = 0, .offset = 0}.bytes();
    const Data end = End{.entries = 0xFFFF, .size = size, .offset = 0}.bytes();
    const std::uint64_t fileSize = size + record.size() + 20 + end.size();

    EXPECT_EQ(pathsOf(list(headers + end)), Strings{"a"}) << "no locator";
    EXPECT_EQ(pathsOf(list(headers + record + zip64Locator(size) + end)), Strings{}) << "all is well";
    Data notLocator = zip64Locator(size);
    notLocator[3] = '\x08';
    EXPECT_EQ(pathsOf(list(headers + record + notLocator + end)), Strings{"a"});
    Data notRecord = record;
    notRecord[0] = 'Q';
    EXPECT_EQ(pathsOf(list(headers + notRecord + zip64Locator(size) + end)), Strings{"a"});

    for (const std::uint64_t offset :
         {std::uint64_t{0}, std::uint64_t{size} - 1, std::uint64_t{size} + 1, fileSize - 57, fileSize - 56,
          fileSize - 55, fileSize - 1, fileSize, fileSize + 1, std::uint64_t{1} << 32,
          (std::uint64_t{1} << 63) - 1, std::uint64_t{1} << 63, ~std::uint64_t{0} - 55, ~std::uint64_t{0}}) {
        Data file = headers;
        file.append(record).append(zip64Locator(offset)).append(end);
        EXPECT_EQ(pathsOf(list(file)), Strings{"a"}) << offset;
    }
}

TEST(ZipReader, keepsThe32BitValuesWhenTheZip64RecordIsCutByTheEnd) {
    const Data headers = directory({{.name = "a"}});
    const auto size = static_cast<std::uint32_t>(headers.size());
    // The comment begins like a ZIP64 record that knows of an empty directory.
    const End end{.entries = 0xFFFF, .size = size, .offset = 0, .comment = Zip64End{}.bytes().substr(0, 55)};
    const Data file = headers + zip64Locator(headers.size() + 20 + 22) + end.bytes();
    EXPECT_EQ(pathsOf(list(file)), Strings{"a"});
    EXPECT_EQ(pathsOf(list(file + '\0')), Strings{}) << "and with its last byte";
}

TEST(ZipReader, needsRoomForALocatorBeforeTheEnd) {
    const Data end = End{.entries = 0xFFFF, .size = 0, .offset = 0}.bytes();
    EXPECT_EQ(damageOf(end), "");
    EXPECT_EQ(damageOf(zip64Locator(0).substr(1) + end), "");
}

TEST(ZipReader, believesNoZip64RecordThatLeavesTheFile) {
    const Data headers = directory({{.name = "a"}});
    const auto withRecord = [&](const Zip64End& record) {
        return headers + record.bytes() + zip64Locator(headers.size()) +
               End{.entries = 0xFFFF, .size = overflow, .offset = overflow}.bytes();
    };
    const std::uint64_t fileSize = withRecord({}).size();
    const std::uint64_t largest = ~std::uint64_t{0};
    EXPECT_EQ(damageOf(withRecord({largest, headers.size(), 0})), "") << "the number of entries is only a hint";
    EXPECT_EQ(damageOf(withRecord({1, fileSize, 0})), "");
    EXPECT_EQ(damageOf(withRecord({1, fileSize + 1, 0})), directoryIsDamaged);
    EXPECT_EQ(damageOf(withRecord({1, fileSize, 1})), directoryIsDamaged);
    EXPECT_EQ(damageOf(withRecord({1, 47, largest})), directoryIsDamaged);
    EXPECT_EQ(damageOf(withRecord({1, 47, largest - 46})), directoryIsDamaged) << "the sum is 2^64";
    EXPECT_EQ(damageOf(withRecord({1, largest, largest})), directoryIsDamaged);
    EXPECT_EQ(damageOf(withRecord({1, largest, 2})), directoryIsDamaged);
    EXPECT_EQ(damageOf(withRecord({1, 0, std::uint64_t{1} << 63})), directoryIsDamaged);
    EXPECT_EQ(damageOf(withRecord({1, std::uint64_t{1} << 63, std::uint64_t{1} << 63})), directoryIsDamaged);
}

// The directory

TEST(ZipReader, countsTheHeadersItself) {
    const Data headers = directory({{.name = "a"}, {.name = "b"}});
    for (const int lie : {0, 1, 3, 65'534, 65'535}) {
        const ArchiveListing listing = list(archive(headers, static_cast<std::uint16_t>(lie)));
        EXPECT_EQ(pathsOf(listing), (Strings{"a", "b"})) << lie;
        EXPECT_TRUE(listing.isComplete);
    }
}

TEST(ZipReader, stopsAtTheEntryLimit) {
    const Data file = archive({{.name = "a"}, {.name = "b"}, {.name = "c"}});
    EXPECT_TRUE(list(file, 3).isComplete);
    EXPECT_FALSE(list(file, 2).isComplete);
    EXPECT_EQ(pathsOf(list(file, 2)), (Strings{"a", "b"}));
    EXPECT_EQ(list(file, 0), (ArchiveListing{ArchiveFormat::zip, {}, false}));
    EXPECT_TRUE(list(End{}.bytes(), 0).isComplete);
}

TEST(ZipReader, countsOnlyListedEntriesTowardsTheLimit) {
    const ArchiveListing listing = list(archive({{.name = "./"}, {.name = "a"}, {.name = "/"}}), 1);
    EXPECT_EQ(pathsOf(listing), Strings{"a"});
    EXPECT_FALSE(listing.isComplete) << "the limit is looked at before the header";
}

TEST(ZipReader, stopsAtWhatIsNoHeader) {
    const Data good = directory({{.name = "a"}});
    for (const Data& rest :
         {Data(46, '\0'), Data("PK\x05\x05") + Data(42, '\0'), Data("PK\x01\x02"), Data("x")}) {
        const ArchiveListing listing = list(archive(good + rest + (rest.size() < 46 ? "" : good), 2));
        EXPECT_EQ(pathsOf(listing), Strings{"a"});
        EXPECT_FALSE(listing.isComplete);
    }
}

TEST(ZipReader, everyTruncatedDirectoryListsAPrefix) {
    const std::vector<Header> headers{
        {.name = "first", .extra = extraBlock(0x5455, "\x01" + u32(7)), .comment = "c", .size = 5},
        {.name = "folder/"},
        {.name = "last\xFF", .extra = extraBlock(0x0001, u64(1) + u64(2)), .compressedSize = overflow},
    };
    const Data whole = directory(headers);
    const std::size_t firstEnd = headers[0].bytes().size();
    const std::size_t secondEnd = firstEnd + headers[1].bytes().size();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const ArchiveListing listing = list(archive(whole.substr(0, length), 3));
        // A header of which only the variable part is cut is still an entry.
        const std::size_t count = length >= secondEnd + 46  ? 3
                                  : length >= firstEnd + 46 ? 2
                                  : length >= 46            ? 1
                                                            : 0;
        // A cut name may leave nothing; "" is no path.
        const bool lastNameIsGone = length == secondEnd + 46 || length == firstEnd + 46 || length == 46;
        EXPECT_EQ(listing.entries.size(), count - (lastNameIsGone ? 1 : 0)) << length;
    }
}

TEST(ZipReader, everyTruncatedFileIsDamaged) {
    const Data whole = archive({{.name = "first", .size = 5}, {.name = "folder/"}}, "comment");
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const std::string reason = damageOf(whole.substr(0, length));
        const bool hasEnd = length >= whole.size() - Data("comment").size();
        EXPECT_EQ(reason, hasEnd ? "" : endIsMissing) << length;
    }
}

TEST(ZipReader, cutsANameThatRunsPastTheDirectory) {
    const ArchiveListing listing = list(archive({{.name = "a"}, {.name = "bcd", .nameLength = 65'535}}));
    EXPECT_EQ(pathsOf(listing), (Strings{"a", "bcd"}));
    EXPECT_TRUE(listing.isComplete);
}

TEST(ZipReader, takesLengthsAtTheirLimits) {
    const Data longest(65'535, 'x');
    const ArchiveListing listing = list(
        archive({{.name = longest, .extra = longest, .comment = longest}, {.name = "b", .comment = longest}}));
    EXPECT_EQ(pathsOf(listing), (Strings{longest, "b"}));
    EXPECT_TRUE(listing.isComplete);

    const ArchiveListing lies = list(archive(
        {{.name = "a", .nameLength = 65'535, .extraLength = 65'535, .commentLength = 65'535}, {.name = "b"}}));
    EXPECT_EQ(lies.entries.size(), 1U) << "the second header is swallowed by the first";
    EXPECT_TRUE(lies.isComplete);
}

TEST(ZipReader, endsBeforeThePathsTakeTooMuchRoom) {
    // A byte of code page 437 may take three of UTF-8.
    const Header header{.name = Data(65'535, '\xB0')};
    const std::size_t fitting = ArchiveLimits::maxPathBytes / (3UL * 65'535);
    const ArchiveListing listing = list(archive(std::vector<Header>(fitting + 2, header)));
    EXPECT_EQ(listing.entries.size(), fitting);
    EXPECT_FALSE(listing.isComplete);
    EXPECT_TRUE(list(archive(std::vector<Header>(fitting, header))).isComplete);
}

TEST(ZipReader, survivesEveryFieldAtItsExtremes) {
    const Header header{.name = "n/a\xE9", .extra = extraBlock(0x0001, u64(1)), .comment = "c", .date = 0x21};
    const Data whole = archive({header, header});
    for (std::size_t offset = 0; offset < whole.size(); ++offset) {
        for (const std::size_t width : {1UL, 2UL, 4UL, 8UL}) {
            for (const char value : {'\0', '\x01', '\x7F', '\x80', '\xFF'}) {
                Data changed = whole;
                changed.replace(offset, std::min(width, whole.size() - offset), width, value);
                try {
                    EXPECT_LE(list(changed).entries.size(), 2U);
                } catch (const ArchiveError&) {
                    // That is an answer, too.
                }
            }
        }
    }
}

} // namespace
} // namespace quillmar
