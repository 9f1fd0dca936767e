#include "QuickPreview.h"

#include "Tests/Helpers/Compress.h"
#include "Tests/Helpers/CountingIcons.h"
#include "Tests/Helpers/TarBuilder.h"
#include "Tests/Helpers/TemporaryFolder.h"
#include "Tests/Helpers/ZipBuilder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace quillmar {
namespace {

/// Everything that a preview hands out, in one text.
std::string bytesOf(const FileURL& url) {
    CountingIcons icons;
    const PreviewDocument document = QuickPreview::document(url, &icons);
    std::string bytes = document.html;
    bytes.append(std::to_string(document.width)).append(" ").append(std::to_string(document.height));
    for (const auto& [name, attachment] : document.attachments)
        bytes.append(name).append(attachment.typeIdentifier).append(*attachment.data);
    return bytes;
}

/// A preview of the same item, whatever was previewed before, is made of the same bytes.
class SamePage : public testing::Test {
protected:
    void expectSame(const FileURL& url) const {
        const std::string first = bytesOf(url);
        bytesOf(folder.write("other.md", "# Other\n\n# Other\n\n[a]: b\n"));
        EXPECT_EQ(bytesOf(url), first);
    }
    void expectSame(const std::string& name, DataView content) const {
        expectSame(folder.write(name, content));
    }

    TemporaryFolder folder;
    const Data archive_ = tar({directory("d/"), file("d/a.txt", "a"), file("d/b.png"), symbolicLink("c")});
};

TEST_F(SamePage, ofAText) { expectSame("a.txt", "one\ntwo \xFF\n"); }
TEST_F(SamePage, ofASource) { expectSame("a.c", "int main() {}\n"); }
TEST_F(SamePage, ofABinaryFile) { expectSame("a.bin", std::string(100, '\0')); }
TEST_F(SamePage, ofATar) { expectSame("a.tar", archive_); }
TEST_F(SamePage, ofACompressedTar) {
    expectSame("a.tgz", gzip(archive_));
    expectSame("a.txz", xz(archive_));
}
TEST_F(SamePage, ofADamagedArchive) {
    expectSame("a.tgz", gzip(archive_).substr(0, 100));
    expectSame("a.zip", "PK\3\4");
}
TEST_F(SamePage, ofACompressedFile) {
    expectSame("a.txt.gz", gzip("text"));
    expectSame("a.bin.xz", xz(std::string(100, '\0')));
}
TEST_F(SamePage, ofAnItemThatIsGone) { expectSame(folder.url("gone")); }

TEST_F(SamePage, ofAZip) {
    expectSame("a.zip",
               ZipBuilder::archive({{.name = "d/"}, {.name = "d/a.txt", .size = 7}, {.name = "b\xFF"}}));
}

TEST_F(SamePage, ofADocument) {
    folder.write("plan.png", "plan");
    expectSame("a.md", "---\na: b\n---\n# A\n\n# A\n\n![a](plan.png)[^1] <b>x</b>\n\n[r]: plan.png\n\n![r] "
                       "![r][]\n\n|a|b|\n|-|-|\n|c|\n");
}

TEST_F(SamePage, ofAFolder) {
    folder.makeFolder("garden/a/b");
    for (const char* name : {"garden/2.txt", "garden/10.txt", "garden/\xFF", "garden/a/c.png", "garden/a/b/d"})
        folder.write(name, "content");
    std::filesystem::create_symlink("nowhere", folder.path() / "garden/link");
    folder.makeFolder("garden/Planner.app");
    expectSame(folder.url("garden"));
    expectSame(folder.url("garden/Planner.app"));
}

TEST_F(SamePage, ofALink) {
    folder.write("a.txt", "text");
    std::filesystem::create_symlink("a.txt", folder.path() / "link");
    expectSame(folder.url("link"));
}

TEST_F(SamePage, ofANamedPipe) {
    ASSERT_EQ(::mkfifo(folder.url("pipe").path().c_str(), 0600), 0);
    expectSame(folder.url("pipe"));
}

} // namespace
} // namespace quillmar
