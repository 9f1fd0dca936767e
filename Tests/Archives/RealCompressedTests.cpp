// Compressed files made by the programs that people use.

#include "Archives/ArchiveReader.h"
#include "Tests/Helpers/TemporaryFolder.h"

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <sstream>

namespace quillmar {
namespace {

class RealCompressed : public testing::Test {
protected:
    void SetUp() override {
        folder_.makeFolder("tree/beds");
        for (int i = 0; i < 300; ++i)
            folder_.write("tree/beds/plant " + std::to_string(i) + ".txt",
                          std::string(static_cast<std::size_t>(i) * 37, static_cast<char>('a' + i % 26)));
    }

    /// Runs \p command in the folder.
    void run(const std::string& command) const {
        const std::string line = "cd '" + folder_.path().string() + "' && " + command;
        ASSERT_EQ(std::system(line.c_str()), 0) << command;
    }

    ArchiveContent read(const std::string& name) const { return ArchiveReader::read(folder_.url(name), 100); }

    /// The listing of \p name has the paths that tar lists.
    void expectListedByTar(const std::string& name, ArchiveFormat format) const {
        run("tar -tf " + name + " > paths");
        std::vector<std::string> expected;
        std::istringstream lines(contentsOf(folder_.path() / "paths"));
        for (std::string line; std::getline(lines, line);) expected.push_back(ArchiveEntry::normalize(line));

        const auto listing = std::get<ArchiveListing>(read(name));
        std::vector<std::string> paths;
        for (const auto& entry : listing.entries) paths.push_back(entry.path);
        EXPECT_EQ(paths, expected);
        EXPECT_EQ(paths.size(), 302U);
        EXPECT_EQ(listing.format, format);
        EXPECT_TRUE(listing.isComplete);
    }

private:
    TemporaryFolder folder_;
};

TEST_F(RealCompressed, listsATarOfGzip) {
    run("tar -cf - tree | gzip > a.tar.gz");
    expectListedByTar("a.tar.gz", ArchiveFormat::tarGzip);
}

TEST_F(RealCompressed, listsATarOfPigz) {
    run("tar -cf - tree | pigz --blocksize 128 > a.tgz");
    expectListedByTar("a.tgz", ArchiveFormat::tarGzip);
}

TEST_F(RealCompressed, listsATarOfXz) {
    run("tar -cf - tree | xz > a.tar.xz");
    expectListedByTar("a.tar.xz", ArchiveFormat::tarXz);
}

TEST_F(RealCompressed, listsATarOfXzInSeveralBlocks) {
    run("tar -cf - tree | xz -T2 --block-size=100KiB > a.txz");
    expectListedByTar("a.txz", ArchiveFormat::tarXz);
}

TEST_F(RealCompressed, takesTheNameAndSizeThatGzipRecorded) {
    run("gzip -N -c 'tree/beds/plant 200.txt' > other.gz");
    const auto file = std::get<CompressedFile>(read("other.gz"));
    EXPECT_EQ(file.originalName, "plant 200.txt");
    EXPECT_EQ(file.originalSize, 7'400);
    EXPECT_EQ(file.sample, std::string(7'400, static_cast<char>('a' + 200 % 26)));
}

TEST_F(RealCompressed, readsASingleFileOfPigzAndOfXz) {
    run("pigz -n -c 'tree/beds/plant 9.txt' > 'plant 9.txt.gz' && xz -c 'tree/beds/plant 9.txt' > 'plant "
        "9.txt.xz'");
    for (const char* name : {"plant 9.txt.gz", "plant 9.txt.xz"}) {
        const auto file = std::get<CompressedFile>(read(name));
        EXPECT_EQ(file.originalName, "plant 9.txt");
        EXPECT_EQ(file.sample, std::string(333, 'j'));
        EXPECT_TRUE(file.sampleIsComplete);
    }
}

} // namespace
} // namespace quillmar
