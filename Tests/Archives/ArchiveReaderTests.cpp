#include "Archives/ArchiveReader.h"

#include "Archives/ArchiveError.h"
#include "Platform/FileError.h"
#include "Tests/Helpers/Compress.h"
#include "Tests/Helpers/TarBuilder.h"
#include "Tests/Helpers/TemporaryFolder.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <optional>

namespace quillmar {
namespace {

using namespace std::string_literals;

constexpr double budget = 100;

class ArchiveReaderTest : public testing::Test {
protected:
    ArchiveContent read(const std::string& name, DataView content) const {
        return ArchiveReader::read(folder.write(name, content), budget);
    }
    ArchiveListing listing(const std::string& name, DataView content) const {
        return std::get<ArchiveListing>(read(name, content));
    }
    CompressedFile compressed(const std::string& name, DataView content) const {
        return std::get<CompressedFile>(read(name, content));
    }
    /// None when what is left of an archive is no list any more.
    std::optional<ArchiveListing> listingOf(DataView content) const {
        try {
            const ArchiveContent found = read("file", content);
            const auto* list = std::get_if<ArchiveListing>(&found);
            return list != nullptr ? std::optional(*list) : std::nullopt;
        } catch (const ArchiveError&) {
            return std::nullopt;
        }
    }
    /// The reason of the error that reading \p content ends in; "unrecognized" when it is no archive.
    std::string faultOf(DataView content) const {
        try {
            read("file", content);
        } catch (const ArchiveError& error) {
            return error.isDamaged() ? error.what() : "unrecognized";
        }
        return "none";
    }

    TemporaryFolder folder;
};

/// A gzip member with a recorded name (RFC 1952, 2.3.1 FNAME).
Data gzipNamed(const std::string& name, DataView content) {
    Data member = gzip(content);
    member[3] = 8; // FLG.FNAME
    return member.insert(10, name + '\0');
}

TEST_F(ArchiveReaderTest, doesNotRecognizeAnEmptyFile) {
    EXPECT_EQ(faultOf(""), "unrecognized");
    EXPECT_EQ(faultOf("PK"), "unrecognized");
    EXPECT_EQ(faultOf("\x1F\x8B\x08"), "unrecognized");
    EXPECT_EQ(faultOf("\xFD"
                      "7zXZ"),
              "unrecognized");
    EXPECT_EQ(faultOf(std::string(511, 'x')), "unrecognized");
    EXPECT_EQ(faultOf(std::string(10'240, '\0')), "unrecognized");
}

TEST_F(ArchiveReaderTest, readsAnEmptyZip) {
    const auto content = listing("a.zip", "PK\5\6" + std::string(18, '\0'));
    EXPECT_EQ(content, (ArchiveListing{ArchiveFormat::zip, {}, true}));
}

TEST_F(ArchiveReaderTest, recognizesZipByEachOfItsMagics) {
    for (const char* magic : {"PK\3\4", "PK\5\6", "PK\7\x08"})
        EXPECT_EQ(faultOf(magic), "The end of the archive is missing.") << magic[2];
    EXPECT_EQ(faultOf("PK\1\2"), "unrecognized");
}

TEST_F(ArchiveReaderTest, recognizesByContentNotByName) {
    const auto content = listing("a.zip", tar({file("beans.txt")}));
    EXPECT_EQ(content.format, ArchiveFormat::tar);
    ASSERT_EQ(content.entries.size(), 1U);
    EXPECT_EQ(content.entries[0].path, "beans.txt");
    EXPECT_TRUE(content.isComplete);
}

TEST_F(ArchiveReaderTest, listsACompressedTar) {
    const Data archive = tar({file("beans.txt"), file("peas.txt")});
    const auto plain = listing("x.tar", archive);
    for (const auto& [data, format] :
         {std::pair(gzip(archive), ArchiveFormat::tarGzip), std::pair(xz(archive), ArchiveFormat::tarXz),
          std::pair(xz(archive, 1'024), ArchiveFormat::tarXz)}) {
        const auto content = listing("x.tgz", data);
        EXPECT_EQ(content.format, format);
        EXPECT_EQ(content.entries, plain.entries);
        EXPECT_TRUE(content.isComplete);
    }
}

TEST_F(ArchiveReaderTest, samplesACompressedFileThatIsNoTar) {
    const Data text(100, 'x');
    EXPECT_EQ(compressed("a.txt.gz", gzip(text)),
              (CompressedFile{ArchiveFormat::gzip, "a.txt", 100, text, true}));
    EXPECT_EQ(compressed("a.txt.xz", xz(text)),
              (CompressedFile{ArchiveFormat::xz, "a.txt", std::nullopt, text, true}));
}

TEST_F(ArchiveReaderTest, samplesAtMost256KiB) {
    const Data text(262'144, 'x');
    for (const auto& [data, isComplete] :
         {std::pair(text.substr(1), true), std::pair(text, false), std::pair(text + "y", false)}) {
        const auto file = compressed("a.gz", gzip(data));
        EXPECT_EQ(file.sample, data.substr(0, 262'144));
        EXPECT_EQ(file.sampleIsComplete, isComplete);
    }
}

TEST_F(ArchiveReaderTest, namesTheContentOfACompressedFile) {
    const Data packed = gzip("x");
    EXPECT_EQ(compressed("notes.txt.gz", packed).originalName, "notes.txt");
    EXPECT_EQ(compressed("notes.txt.GZIP", packed).originalName, "notes.txt");
    EXPECT_EQ(compressed("backup.tgz", packed).originalName, "backup.tar");
    EXPECT_EQ(compressed("BACKUP.TGZ", packed).originalName, "BACKUP");
    EXPECT_EQ(compressed("data.bin", packed).originalName, "data.bin");
    EXPECT_EQ(compressed("notes.txt.xz", packed).originalName, "notes.txt.xz");
    EXPECT_EQ(compressed("backup.txz", xz("x")).originalName, "backup.tar");
    EXPECT_EQ(compressed("notes.md.xz", xz("x")).originalName, "notes.md");
    EXPECT_EQ(compressed("notes.gz", xz("x")).originalName, "notes.gz");
}

TEST_F(ArchiveReaderTest, prefersTheNameThatGzipRecorded) {
    EXPECT_EQ(compressed("other.gz", gzipNamed("report.csv", "1,2")).originalName, "report.csv");
    EXPECT_EQ(compressed("other.gz", gzipNamed("", "1,2")).originalName, "other");
}

TEST_F(ArchiveReaderTest, knowsNoSizeOfAGzipFileTooSmallToHaveOne) {
    const Data seventeen = gzip("").substr(0, 17);
    EXPECT_EQ(compressed("a.gz", gzip("x")).originalSize, 1);
    EXPECT_EQ(faultOf(seventeen), "none");
    EXPECT_EQ(compressed("a.gz", seventeen).originalSize, std::nullopt);
}

TEST_F(ArchiveReaderTest, callsDataDamagedWhenItsFirstBytesCannotBeRead) {
    const Data member = gzip("some text that is compressed");
    EXPECT_EQ(faultOf(member.substr(0, 14)), "The compressed data is damaged.");
    EXPECT_EQ(faultOf(xz("some text").substr(0, 30)), "The compressed data is damaged.");
}

TEST_F(ArchiveReaderTest, showsTheFirst512BytesOfDataThatIsDamagedFurtherOn) {
    const Data member = gzip(Data(100'000, 'x') + "tail");
    const auto file = compressed("a.gz", DataView(member).substr(0, member.size() - 12));
    EXPECT_EQ(file.sample, Data(512, 'x'));
    EXPECT_TRUE(file.sampleIsComplete);
}

TEST_F(ArchiveReaderTest, listsWhatCameBeforeDamageInACompressedTar) {
    Data members;
    for (int i = 0; i < 2'000; ++i) members += file("plant-" + std::to_string(i * 7'919));
    const Data packed = gzip(tar({members}));
    const auto content = listing("a.tgz", DataView(packed).substr(0, packed.size() / 2));
    EXPECT_FALSE(content.isComplete);
    EXPECT_GT(content.entries.size(), 100U);
    EXPECT_LT(content.entries.size(), 2'000U);
}

TEST_F(ArchiveReaderTest, listsAPrefixOfEveryTruncatedCompressedTar) {
    Data members;
    for (std::size_t i = 0; i < 15; ++i)
        members += file("plant-" + std::to_string(i * 7'919), Data(i * 37, 'x'));
    const Data archive = tar({members});
    for (const Data& packed : {gzip(archive), xz(archive), xz(archive, 4'096)}) {
        const auto whole = listing("whole", packed).entries;
        EXPECT_EQ(whole.size(), 15U);
        std::size_t countOfParts = 0;
        for (std::size_t length = 0; length < packed.size(); ++length) {
            const auto cut = listingOf(DataView(packed).substr(0, length));
            if (!cut) continue;
            ASSERT_LE(cut->entries.size(), whole.size()) << length;
            EXPECT_TRUE(std::equal(cut->entries.begin(), cut->entries.end(), whole.begin())) << length;
            if (cut->entries.size() == whole.size()) continue;
            EXPECT_FALSE(cut->isComplete) << length;
            ++countOfParts;
        }
        EXPECT_GT(countOfParts, 0U);
    }
}

TEST_F(ArchiveReaderTest, listsNothingWhenTheDeadlineHasPassedAtTheFirstHeader) {
    const auto url = folder.write("a.tar", tar({file("a"), file("b")}));
    int looks = 0;
    const Clock clock = [&looks] { return std::chrono::steady_clock::time_point(std::chrono::hours(looks++)); };
    const auto content = std::get<ArchiveListing>(ArchiveReader::read(url, 2.0, clock));
    EXPECT_EQ(content, (ArchiveListing{ArchiveFormat::tar, {}, false}));
}

TEST_F(ArchiveReaderTest, passesOnTheErrorsOfFiles) {
    EXPECT_THROW(ArchiveReader::read(folder.url("gone"), budget), FileError);
    EXPECT_THROW(ArchiveReader::read(folder.makeFolder("a.app"), budget), FileError);
}

TEST_F(ArchiveReaderTest, neverFailsOtherwiseOnATruncatedFile) {
    const Data archive = tar({file("beans.txt"), file("peas.txt")});
    for (const Data& whole : {gzip(archive), xz(archive), xz(archive, 1'024), gzipNamed("name", "text")})
        for (std::size_t length = 0; length < whole.size(); ++length)
            EXPECT_NO_THROW(faultOf(whole.substr(0, length))) << length;
}

} // namespace
} // namespace quillmar
