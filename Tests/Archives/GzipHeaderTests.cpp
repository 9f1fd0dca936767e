#include "Archives/GzipHeader.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

/// The ten fixed bytes: ID1, ID2, deflate, \p flags, MTIME (4), XFL, OS (Unix).
Data fixedHeader(char flags) { return Data("\x1F\x8B\x08", 3) + flags + Data("\0\0\0\0\0\x03", 6); }

constexpr char text = 0x01;
constexpr char headerCRC = 0x02;
constexpr char extra = 0x04;
constexpr char name = 0x08;
constexpr char comment = 0x10;

GzipHeader header(std::size_t length, std::optional<std::string> originalName = std::nullopt) {
    return {.originalName = std::move(originalName), .headerLength = length};
}

TEST(GzipHeader, isTenBytesWithoutFlags) {
    EXPECT_EQ(GzipHeader::parse(fixedHeader(0)), header(10));
    EXPECT_EQ(GzipHeader::parse(fixedHeader(0) + "deflate data"), header(10));
}

TEST(GzipHeader, needsItsMagicAndDeflate) {
    EXPECT_EQ(GzipHeader::parse(""), std::nullopt);
    EXPECT_EQ(GzipHeader::parse("\x1F"), std::nullopt);
    for (const std::size_t byte : {0U, 1U, 2U}) {
        Data data = fixedHeader(0);
        data[byte] = 'x';
        EXPECT_EQ(GzipHeader::parse(data), std::nullopt) << byte;
    }
}

TEST(GzipHeader, isNoneWhenThreeBytesAreAll) { EXPECT_EQ(GzipHeader::parse("\x1F\x8B\x08"), std::nullopt); }

TEST(GzipHeader, keepsTheOriginalName) {
    EXPECT_EQ(GzipHeader::parse(fixedHeader(name) + Data("report.csv\0", 11)), header(21, "report.csv"));
}

TEST(GzipHeader, readsTheNameAsLatin1) {
    EXPECT_EQ(GzipHeader::parse(fixedHeader(name) + Data("caf\xE9\0", 5)), header(15, "caf\u00E9"));
    EXPECT_EQ(GzipHeader::parse(fixedHeader(name) + Data("\xC3\xA9\x80\0", 4)),
              header(14, "\u00C3\u00A9\u0080"));
}

TEST(GzipHeader, takesAnEmptyNameForNone) {
    EXPECT_EQ(GzipHeader::parse(fixedHeader(name) + Data(1, '\0')), header(11));
}

TEST(GzipHeader, isNoneWhenANameNeverEnds) {
    EXPECT_EQ(GzipHeader::parse(fixedHeader(name)), std::nullopt);
    EXPECT_EQ(GzipHeader::parse(fixedHeader(name) + "report.csv"), std::nullopt);
    EXPECT_EQ(GzipHeader::parse(fixedHeader(name) + Data(65'526, 'a')), std::nullopt);
    EXPECT_EQ(GzipHeader::parse(fixedHeader(name) + Data(65'525, 'a') + Data(1, '\0')),
              header(65'536, Data(65'525, 'a')));
}

TEST(GzipHeader, passesOverTheComment) {
    EXPECT_EQ(GzipHeader::parse(fixedHeader(comment) + Data("hello\0", 6)), header(16));
    EXPECT_EQ(GzipHeader::parse(fixedHeader(comment) + "hello"), std::nullopt);
    EXPECT_EQ(GzipHeader::parse(fixedHeader(comment)), std::nullopt);
}

TEST(GzipHeader, passesOverTheExtraField) {
    EXPECT_EQ(GzipHeader::parse(fixedHeader(extra) + Data("\x03\0abc", 5)), header(15));
    EXPECT_EQ(GzipHeader::parse(fixedHeader(extra) + Data("\0\0", 2)), header(12));
    EXPECT_EQ(GzipHeader::parse(fixedHeader(extra) + Data("\x00\x01", 2) + Data(256, 'x')), header(268));
}

TEST(GzipHeader, isNoneWhenTheExtraFieldIsCut) {
    EXPECT_EQ(GzipHeader::parse(fixedHeader(extra)), std::nullopt);
    EXPECT_EQ(GzipHeader::parse(fixedHeader(extra) + Data(1, '\0')), std::nullopt);
    EXPECT_EQ(GzipHeader::parse(fixedHeader(extra) + Data("\x03\0ab", 4)), std::nullopt);
    EXPECT_EQ(GzipHeader::parse(fixedHeader(extra) + "\xFF\xFF"), std::nullopt);
}

TEST(GzipHeader, isNoneWhenTheNameWouldBeginBehindTheData) {
    EXPECT_EQ(GzipHeader::parse(fixedHeader(extra | name) + Data("\xFF\xFF\0\0", 4)), std::nullopt);
}

TEST(GzipHeader, passesOverTheHeaderCRC) {
    EXPECT_EQ(GzipHeader::parse(fixedHeader(headerCRC) + "??"), header(12));
    EXPECT_EQ(GzipHeader::parse(fixedHeader(headerCRC) + "?"), std::nullopt);
}

TEST(GzipHeader, readsAllFieldsInTheirOrder) {
    const Data data = fixedHeader(text | headerCRC | extra | name | comment) + Data("\x02\0xx", 4) +
                      Data("a.txt\0", 6) + Data("why\0", 4) + "??";
    EXPECT_EQ(GzipHeader::parse(data + "deflate data"), header(26, "a.txt"));
    for (std::size_t length = 0; length < data.size(); ++length)
        EXPECT_EQ(GzipHeader::parse(data.substr(0, length)), std::nullopt) << length;
}

TEST(GzipHeader, ignoresReservedFlags) { EXPECT_EQ(GzipHeader::parse(fixedHeader('\xE1')), header(10)); }

} // namespace
} // namespace quillmar
