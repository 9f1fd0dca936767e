#include "Archives/ZipReader.h"

#include "Archives/ArchiveError.h"
#include "Archives/ArchiveLimits.h"
#include "Platform/FileError.h"
#include "Tests/Helpers/Environment.h"
#include "Tests/Helpers/TemporaryFolder.h"
#include "Tests/Helpers/ZipBuilder.h"

#include <gtest/gtest.h>
#include <limits>
#include <string_view>

namespace quillmar {
namespace {

using namespace std::string_view_literals;
using namespace ZipBuilder;
using Strings = std::vector<std::string>;

constexpr const char* endIsMissing = "The end of the archive is missing.";
constexpr const char* directoryIsDamaged = "The archive's table of contents is damaged.";
constexpr std::uint32_t overflow = 0xFFFFFFFF;
constexpr std::uint32_t unixMode(std::uint32_t mode) { return mode << 16; }

ArchiveListing list(DataView file, std::size_t maxEntries = ArchiveLimits::maxEntries) {
    const TemporaryFolder folder;
    return ZipReader::listing(folder.write("archive.zip", file), maxEntries);
}

/// The reason why \p file is damaged; empty when it is not.
std::string damageOf(DataView file) {
    try {
        list(file);
    } catch (const ArchiveError& error) {
        EXPECT_TRUE(error.isDamaged());
        return error.what();
    }
    return {};
}

Strings pathsOf(const ArchiveListing& listing) {
    Strings paths;
    for (const ArchiveEntry& entry : listing.entries) paths.push_back(entry.path);
    return paths;
}

/// The only entry of an archive of \p header.
ArchiveEntry entryOf(const Header& header) {
    const ArchiveListing listing = list(archive({header}));
    EXPECT_TRUE(listing.isComplete);
    EXPECT_EQ(listing.entries.size(), 1U);
    return listing.entries.empty() ? ArchiveEntry{} : listing.entries.front();
}

std::string pathOf(const Data& name) { return entryOf({.name = name}).path; }

ArchiveEntry file(const std::string& path, std::int64_t size, std::int64_t compressedSize) {
    ArchiveEntry entry;
    entry.path = path;
    entry.size = size;
    entry.compressedSize = compressedSize;
    return entry;
}

ArchiveEntry folder(const std::string& path) {
    ArchiveEntry entry;
    entry.path = path;
    entry.isDirectory = true;
    return entry;
}

/// Reads times of day in UTC.
class ZipReaderTimes : public testing::Test {
    ScopedEnvironment environment_{{"TZ", "UTC0"}};
};

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

// Names

TEST(ZipReader, readsNamesAsUTF8) {
    EXPECT_EQ(pathOf("Grüße/日本.txt"), "Grüße/日本.txt");
    EXPECT_EQ(entryOf({.name = "é", .flags = 0}).path, "é") << "whatever the language encoding flag says";
    EXPECT_EQ(entryOf({.name = "\x82", .flags = 0x800}).path, "é");
}

TEST(ZipReader, readsOtherNamesAsCodePage437) {
    EXPECT_EQ(pathOf("\x81\x82"), "üé");
    EXPECT_EQ(pathOf("gr\x81n/\xE1.txt"), "grün/ß.txt");
    EXPECT_EQ(pathOf("\xC3\xA9\xFF"), "├⌐\u00A0") << "one bad byte makes all of the name code page 437";
    EXPECT_EQ(pathOf("\xED\xA0\x80"), "φáÇ") << "surrogates are not UTF-8";
    EXPECT_EQ(pathOf("\xF4\x90\x80\x80"), "⌠ÉÇÇ") << "nor is what lies behind U+10FFFF";
    EXPECT_EQ(pathOf("\xC0\xAF"), "└»") << "nor is a slash of two bytes";
}

TEST(ZipReader, keepsByteOrderMarksAndControlsInNames) {
    EXPECT_EQ(pathOf("\uFEFFa"), "\uFEFFa");
    EXPECT_EQ(pathOf(Data("a\0b\n"sv)), "a\0b\n"sv);
    EXPECT_EQ(pathOf("\x7F\x1A\xFF"), "\x7F\x1A\u00A0");
}

TEST(ZipReader, takesNamesOfAnyByte) {
    for (int byte = 0; byte < 256; ++byte) {
        const Data name(3, static_cast<char>(byte));
        const ArchiveListing listing = list(archive({{.name = name}}));
        EXPECT_EQ(listing.entries.size(), byte == '/' ? 0U : 1U) << byte;
        EXPECT_TRUE(listing.isComplete);
    }
}

TEST(ZipReader, normalizesPaths) {
    EXPECT_EQ(pathOf("./a//b/./c"), "a/b/c");
    EXPECT_EQ(pathOf("/etc/passwd"), "etc/passwd");
    EXPECT_EQ(pathOf("../../x"), "../../x");
    EXPECT_EQ(pathOf("a\\b"), "a\\b");
}

TEST(ZipReader, doesNotListEmptyPaths) {
    const ArchiveListing listing = list(
        archive({{.name = ""}, {.name = "./"}, {.name = "/"}, {.name = "a", .comment = "c"}, {.name = "."}}));
    EXPECT_EQ(pathsOf(listing), Strings{"a"});
    EXPECT_TRUE(listing.isComplete);
}

// Kinds and sizes

TEST(ZipReader, readsAFile) {
    const ArchiveEntry entry =
        entryOf({.name = "a", .compressedSize = 10, .size = 20, .externalAttributes = unixMode(0x81A4)});
    EXPECT_EQ(entry, file("a", 20, 10));
}

TEST(ZipReader, knowsADirectoryByItsSlash) {
    for (const std::uint16_t host : {unixHost, dosHost}) {
        const ArchiveEntry entry = entryOf({.name = "d/",
                                            .versionMadeBy = host,
                                            .compressedSize = 10,
                                            .size = 20,
                                            .externalAttributes = unixMode(0x81A4)});
        EXPECT_EQ(entry, folder("d"));
    }
    EXPECT_FALSE(entryOf({.name = "d/."}).isDirectory) << "the name as it stands, before it is normalised";
}

TEST(ZipReader, knowsADirectoryByItsUnixMode) {
    const ArchiveEntry entry = entryOf({.name = "d", .size = 1, .externalAttributes = unixMode(0x41ED)});
    EXPECT_EQ(entry, folder("d"));
    EXPECT_FALSE(
        entryOf({.name = "d", .versionMadeBy = dosHost, .externalAttributes = unixMode(0x41ED)}).isDirectory)
        << "only of a Unix host";
}

TEST(ZipReader, knowsADirectoryByItsDOSAttribute) {
    EXPECT_TRUE(entryOf({.name = "d", .versionMadeBy = dosHost, .externalAttributes = 0x10}).isDirectory);
    EXPECT_TRUE(entryOf({.name = "d", .versionMadeBy = 0x0B14, .externalAttributes = 0x31}).isDirectory);
    EXPECT_FALSE(entryOf({.name = "d", .versionMadeBy = dosHost, .externalAttributes = 0x2F}).isDirectory);
    EXPECT_FALSE(entryOf({.name = "d", .versionMadeBy = unixHost, .externalAttributes = 0x10}).isDirectory)
        << "a Unix host is asked for its mode alone";
}

TEST(ZipReader, knowsALink) {
    const ArchiveEntry link =
        entryOf({.name = "l", .compressedSize = 6, .size = 6, .externalAttributes = unixMode(0xA1FF)});
    ArchiveEntry expected = file("l", 6, 6);
    expected.isLink = true;
    EXPECT_EQ(link, expected);
    EXPECT_FALSE(
        entryOf({.name = "l", .versionMadeBy = dosHost, .externalAttributes = unixMode(0xA1FF)}).isLink);
    EXPECT_FALSE(entryOf({.name = "s", .externalAttributes = unixMode(0xC1FF)}).isLink) << "a socket";
}

TEST(ZipReader, marksWhatIsEncryptedAndKeepsItsSizes) {
    const ArchiveEntry entry = entryOf({.name = "a", .flags = 0x0009, .compressedSize = 32, .size = 20});
    EXPECT_TRUE(entry.isEncrypted);
    EXPECT_EQ(entry.size, 20);
    EXPECT_EQ(entry.compressedSize, 32);
    EXPECT_FALSE(entryOf({.name = "a", .flags = 0xFFFE}).isEncrypted);
}

TEST(ZipReader, takesLongSizesFromTheExtraField) {
    const auto sizesOf = [](std::uint32_t size, std::uint32_t compressed, const Data& extra) {
        const ArchiveEntry entry =
            entryOf({.name = "a", .extra = extra, .compressedSize = compressed, .size = size});
        return std::pair(entry.size, entry.compressedSize.value_or(-1));
    };
    using Sizes = std::pair<std::int64_t, std::int64_t>;
    const Data both = extraBlock(0x0001, u64(5'000'000'000) + u64(4'999'999'999));
    EXPECT_EQ(sizesOf(overflow, overflow, both), (Sizes{5'000'000'000, 4'999'999'999}));
    EXPECT_EQ(sizesOf(overflow, 7, both), (Sizes{5'000'000'000, 7}));
    EXPECT_EQ(sizesOf(7, overflow, both), (Sizes{7, 5'000'000'000})) << "the first that is there";
    EXPECT_EQ(sizesOf(7, 8, both), (Sizes{7, 8}));
    EXPECT_EQ(sizesOf(overflow, overflow, ""), (Sizes{0xFFFFFFFF, 0xFFFFFFFF}));
    EXPECT_EQ(sizesOf(overflow, overflow, extraBlock(0x0001, u64(5).substr(0, 7))),
              (Sizes{0xFFFFFFFF, 0xFFFFFFFF}))
        << "less than one value";
    EXPECT_EQ(sizesOf(overflow, 7, extraBlock(0x9999, "xyz") + both), (Sizes{5'000'000'000, 7}));
}

TEST(ZipReader, capsLongSizes) {
    const std::uint64_t largest = ~std::uint64_t{0};
    const ArchiveEntry entry = entryOf({.name = "a",
                                        .extra = extraBlock(0x0001, u64(largest) + u64(std::uint64_t{1} << 63)),
                                        .compressedSize = overflow,
                                        .size = overflow});
    EXPECT_EQ(entry.size, std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(entry.compressedSize, std::numeric_limits<std::int64_t>::max());
}

TEST(ZipReader, readsOnPastAnExtraBlockThatIsCut) {
    // The block claims more than the extra field holds: what follows, here the comment, is read instead.
    const ArchiveEntry entry =
        entryOf({.name = "a", .extra = u16(0x0001) + u16(8), .comment = u64(5'000'000'000), .size = overflow});
    EXPECT_EQ(entry.size, 5'000'000'000);
    const ArchiveEntry last = entryOf({.name = "a", .extra = u16(0x0001) + u16(65'535), .size = overflow});
    EXPECT_EQ(last.size, 0) << "and zeros behind the directory";
}

TEST(ZipReader, needsTheStartOfAnExtraBlock) {
    for (std::size_t length = 0; length < 4; ++length) {
        const Data extra = extraBlock(0x0001, u64(5)).substr(0, length);
        EXPECT_EQ(entryOf({.name = "a", .extra = extra, .size = overflow}).size, overflow) << length;
    }
}

TEST(ZipReader, walksAnExtraFieldOfEmptyBlocks) {
    Data extra;
    while (extra.size() < 65'000) extra += extraBlock(0x0001, "");
    extra += extraBlock(0x0001, u64(5));
    EXPECT_EQ(entryOf({.name = "a", .extra = extra, .size = overflow}).size, 5);
}

// Dates

TEST_F(ZipReaderTimes, readsTheDOSDate) {
    const ArchiveEntry entry = entryOf({.name = "a", .time = dosTime(9, 15, 30), .date = dosDate(2024, 3, 4)});
    EXPECT_EQ(entry.modified, 1'709'543'730);
    EXPECT_EQ(entryOf({.name = "a", .date = dosDate(1980, 1, 1)}).modified, 315'532'800);
    EXPECT_EQ(entryOf({.name = "d/", .date = dosDate(1980, 1, 1)}).modified, 315'532'800);
}

TEST_F(ZipReaderTimes, hasNoDateWhenTheDOSDateIsBlank) {
    EXPECT_EQ(entryOf({.name = "a", .time = dosTime(9, 15, 0), .date = 0}).modified, std::nullopt);
}

TEST_F(ZipReaderTimes, rollsOverDOSDates) {
    EXPECT_EQ(entryOf({.name = "a", .date = dosDate(1980, 0, 1)}).modified, 315'532'800 - 31 * 86'400);
    EXPECT_EQ(entryOf({.name = "a", .date = dosDate(1980, 13, 1)}).modified, 315'532'800 + 366 * 86'400);
    EXPECT_EQ(entryOf({.name = "a", .time = 0xFFFF, .date = 0xFFFF}).modified, 4'362'710'642)
        << "day 31 of month 15, 31:63:62";
}

TEST(ZipReader, readsDOSDatesInTheLocalZone) {
    const Header header{.name = "a", .time = dosTime(9, 15, 0), .date = dosDate(2024, 3, 4)};
    for (const auto& [zone, expected] : {std::pair<std::string, Timestamp>{"UTC0", 1'709'543'700},
                                         {"Europe/Berlin", 1'709'543'700 - 3'600},
                                         {"America/New_York", 1'709'543'700 + 5 * 3'600}}) {
        const ScopedEnvironment environment{{"TZ", zone}};
        EXPECT_EQ(entryOf(header).modified, expected) << zone;
    }
}

TEST_F(ZipReaderTimes, prefersTheExtendedTimestamp) {
    const auto modified = [](const Data& extra, std::uint16_t date = dosDate(2000, 1, 1)) {
        return entryOf({.name = "a", .extra = extra, .date = date}).modified;
    };
    constexpr Timestamp year2000 = 946'684'800;
    EXPECT_EQ(modified(extraBlock(0x5455, "\x01" + u32(1'709'543'731))), 1'709'543'731);
    EXPECT_EQ(modified(extraBlock(0x5455, "\x03" + u32(7) + u32(8))), 7);
    EXPECT_EQ(modified(extraBlock(0x5455, "\x01" + u32(7)), 0), 7) << "without a DOS date, too";
    EXPECT_EQ(modified(extraBlock(0x5455, "\x01" + u32(0xFFFFFFFF))), 4'294'967'295) << "unsigned";
    EXPECT_EQ(modified(extraBlock(0x5455, "\x02" + u32(7))), year2000) << "another time";
    EXPECT_EQ(modified(extraBlock(0x5455, "\x01" + u32(7).substr(0, 3))), year2000) << "cut";
    EXPECT_EQ(modified(extraBlock(0x5455, "\x01" + u32(7)) + extraBlock(0x5455, "\x01" + u32(9))), 9)
        << "the last counts";
}

} // namespace
} // namespace quillmar
