#include "Archives/ZipFileHeader.h"

#include "Tests/Helpers/Environment.h"
#include "Tests/Helpers/ZipListing.h"

#include <gtest/gtest.h>
#include <limits>
#include <string_view>

namespace quillmar {
namespace {

using namespace std::string_view_literals;
using namespace ZipBuilder;
using namespace ZipListing;

constexpr std::uint32_t overflow = 0xFFFFFFFF;
constexpr std::uint32_t unixMode(std::uint32_t mode) { return mode << 16; }

/// Reads times of day in UTC.
class ZipEntryTimes : public testing::Test {
    ScopedEnvironment environment_{{"TZ", "UTC0"}};
};

// Names

TEST(ZipEntry, readsNamesAsUTF8) {
    EXPECT_EQ(pathOf("Grüße/日本.txt"), "Grüße/日本.txt");
    EXPECT_EQ(entryOf({.name = "é", .flags = 0}).path, "é") << "whatever the language encoding flag says";
    EXPECT_EQ(entryOf({.name = "\x82", .flags = 0x800}).path, "é");
}

TEST(ZipEntry, readsOtherNamesAsCodePage437) {
    EXPECT_EQ(pathOf("\x81\x82"), "üé");
    EXPECT_EQ(pathOf("gr\x81n/\xE1.txt"), "grün/ß.txt");
    EXPECT_EQ(pathOf("\xC3\xA9\xFF"), "├⌐\u00A0") << "one bad byte makes all of the name code page 437";
    EXPECT_EQ(pathOf("\xED\xA0\x80"), "φáÇ") << "surrogates are not UTF-8";
    EXPECT_EQ(pathOf("\xF4\x90\x80\x80"), "⌠ÉÇÇ") << "nor is what lies behind U+10FFFF";
    EXPECT_EQ(pathOf("\xC0\xAF"), "└»") << "nor is a slash of two bytes";
}

TEST(ZipEntry, keepsByteOrderMarksAndControlsInNames) {
    EXPECT_EQ(pathOf("\uFEFFa"), "\uFEFFa");
    EXPECT_EQ(pathOf(Data("a\0b\n"sv)), "a\0b\n"sv);
    EXPECT_EQ(pathOf("\x7F\x1A\xFF"), "\x7F\x1A\u00A0");
}

TEST(ZipEntry, takesNamesOfAnyByte) {
    for (int byte = 0; byte < 256; ++byte) {
        const Data name(3, static_cast<char>(byte));
        const ArchiveListing listing = list(archive({{.name = name}}));
        EXPECT_EQ(listing.entries.size(), byte == '/' ? 0U : 1U) << byte;
        EXPECT_TRUE(listing.isComplete);
    }
}

TEST(ZipEntry, normalizesPaths) {
    EXPECT_EQ(pathOf("./a//b/./c"), "a/b/c");
    EXPECT_EQ(pathOf("/etc/passwd"), "etc/passwd");
    EXPECT_EQ(pathOf("../../x"), "../../x");
    EXPECT_EQ(pathOf("a\\b"), "a\\b");
}

TEST(ZipEntry, doesNotListEmptyPaths) {
    const ArchiveListing listing = list(
        archive({{.name = ""}, {.name = "./"}, {.name = "/"}, {.name = "a", .comment = "c"}, {.name = "."}}));
    EXPECT_EQ(pathsOf(listing), Strings{"a"});
    EXPECT_TRUE(listing.isComplete);
}

// Kinds and sizes

TEST(ZipEntry, readsAFile) {
    const ArchiveEntry entry =
        entryOf({.name = "a", .compressedSize = 10, .size = 20, .externalAttributes = unixMode(0x81A4)});
    EXPECT_EQ(entry, file("a", 20, 10));
}

TEST(ZipEntry, knowsADirectoryByItsSlash) {
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

TEST(ZipEntry, knowsADirectoryByItsUnixMode) {
    const ArchiveEntry entry = entryOf({.name = "d", .size = 1, .externalAttributes = unixMode(0x41ED)});
    EXPECT_EQ(entry, folder("d"));
    EXPECT_FALSE(
        entryOf({.name = "d", .versionMadeBy = dosHost, .externalAttributes = unixMode(0x41ED)}).isDirectory)
        << "only of a Unix host";
}

TEST(ZipEntry, knowsADirectoryByItsDOSAttribute) {
    EXPECT_TRUE(entryOf({.name = "d", .versionMadeBy = dosHost, .externalAttributes = 0x10}).isDirectory);
    EXPECT_TRUE(entryOf({.name = "d", .versionMadeBy = 0x0B14, .externalAttributes = 0x31}).isDirectory);
    EXPECT_FALSE(entryOf({.name = "d", .versionMadeBy = dosHost, .externalAttributes = 0x2F}).isDirectory);
    EXPECT_FALSE(entryOf({.name = "d", .versionMadeBy = unixHost, .externalAttributes = 0x10}).isDirectory)
        << "a Unix host is asked for its mode alone";
}

TEST(ZipEntry, knowsALink) {
    const ArchiveEntry link =
        entryOf({.name = "l", .compressedSize = 6, .size = 6, .externalAttributes = unixMode(0xA1FF)});
    ArchiveEntry expected = file("l", 6, 6);
    expected.isLink = true;
    EXPECT_EQ(link, expected);
    EXPECT_FALSE(
        entryOf({.name = "l", .versionMadeBy = dosHost, .externalAttributes = unixMode(0xA1FF)}).isLink);
    EXPECT_FALSE(entryOf({.name = "s", .externalAttributes = unixMode(0xC1FF)}).isLink) << "a socket";
}

TEST(ZipEntry, marksWhatIsEncryptedAndKeepsItsSizes) {
    const ArchiveEntry entry = entryOf({.name = "a", .flags = 0x0009, .compressedSize = 32, .size = 20});
    EXPECT_TRUE(entry.isEncrypted);
    EXPECT_EQ(entry.size, 20);
    EXPECT_EQ(entry.compressedSize, 32);
    EXPECT_FALSE(entryOf({.name = "a", .flags = 0xFFFE}).isEncrypted);
}

TEST(ZipEntry, takesLongSizesFromTheExtraField) {
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

TEST(ZipEntry, capsLongSizes) {
    const std::uint64_t largest = ~std::uint64_t{0};
    const ArchiveEntry entry = entryOf({.name = "a",
                                        .extra = extraBlock(0x0001, u64(largest) + u64(std::uint64_t{1} << 63)),
                                        .compressedSize = overflow,
                                        .size = overflow});
    EXPECT_EQ(entry.size, std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(entry.compressedSize, std::numeric_limits<std::int64_t>::max());
}

TEST(ZipEntry, readsOnPastAnExtraBlockThatIsCut) {
    // The block claims more than the extra field holds: what follows, here the comment, is read instead.
    const ArchiveEntry entry =
        entryOf({.name = "a", .extra = u16(0x0001) + u16(8), .comment = u64(5'000'000'000), .size = overflow});
    EXPECT_EQ(entry.size, 5'000'000'000);
    const ArchiveEntry last = entryOf({.name = "a", .extra = u16(0x0001) + u16(65'535), .size = overflow});
    EXPECT_EQ(last.size, 0) << "and zeros behind the directory";
}

TEST(ZipEntry, needsTheStartOfAnExtraBlock) {
    for (std::size_t length = 0; length < 4; ++length) {
        const Data extra = extraBlock(0x0001, u64(5)).substr(0, length);
        EXPECT_EQ(entryOf({.name = "a", .extra = extra, .size = overflow}).size, overflow) << length;
    }
}

TEST(ZipEntry, walksAnExtraFieldOfEmptyBlocks) {
    Data extra;
    while (extra.size() < 65'000) extra += extraBlock(0x0001, "");
    extra += extraBlock(0x0001, u64(5));
    EXPECT_EQ(entryOf({.name = "a", .extra = extra, .size = overflow}).size, 5);
}

// Dates

TEST_F(ZipEntryTimes, readsTheDOSDate) {
    const ArchiveEntry entry = entryOf({.name = "a", .time = dosTime(9, 15, 30), .date = dosDate(2024, 3, 4)});
    EXPECT_EQ(entry.modified, 1'709'543'730);
    EXPECT_EQ(entryOf({.name = "a", .date = dosDate(1980, 1, 1)}).modified, 315'532'800);
    EXPECT_EQ(entryOf({.name = "d/", .date = dosDate(1980, 1, 1)}).modified, 315'532'800);
}

TEST_F(ZipEntryTimes, hasNoDateWhenTheDOSDateIsBlank) {
    EXPECT_EQ(entryOf({.name = "a", .time = dosTime(9, 15, 0), .date = 0}).modified, std::nullopt);
}

TEST_F(ZipEntryTimes, rollsOverDOSDates) {
    EXPECT_EQ(entryOf({.name = "a", .date = dosDate(1980, 0, 1)}).modified, 315'532'800 - 31 * 86'400);
    EXPECT_EQ(entryOf({.name = "a", .date = dosDate(1980, 13, 1)}).modified, 315'532'800 + 366 * 86'400);
    EXPECT_EQ(entryOf({.name = "a", .time = 0xFFFF, .date = 0xFFFF}).modified, 4'362'710'642)
        << "day 31 of month 15, 31:63:62";
}

TEST(ZipEntry, readsDOSDatesInTheLocalZone) {
    const Header header{.name = "a", .time = dosTime(9, 15, 0), .date = dosDate(2024, 3, 4)};
    for (const auto& [zone, expected] : {std::pair<std::string, Timestamp>{"UTC0", 1'709'543'700},
                                         {"Europe/Berlin", 1'709'543'700 - 3'600},
                                         {"America/New_York", 1'709'543'700 + 5 * 3'600}}) {
        const ScopedEnvironment environment{{"TZ", zone}};
        EXPECT_EQ(entryOf(header).modified, expected) << zone;
    }
}

TEST_F(ZipEntryTimes, prefersTheExtendedTimestamp) {
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
