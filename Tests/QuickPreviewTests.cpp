#include "QuickPreview.h"

#include "Tests/Helpers/Compress.h"
#include "Tests/Helpers/CountingIcons.h"
#include "Tests/Helpers/Environment.h"
#include "Tests/Helpers/Pages.h"
#include "Tests/Helpers/TemporaryFolder.h"
#include "Tests/Helpers/Unprivileged.h"

#include <array>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <new>
#include <sys/stat.h>

namespace quillmar {
namespace {

using namespace std::string_literals;

constexpr std::string_view dot = "<span class=\"dot\">·</span>";

std::string joined(const std::vector<std::string>& facts) {
    std::string text;
    for (const auto& fact : facts) text.append(text.empty() ? "" : dot).append(fact);
    return text;
}

class QuickPreviewTest : public testing::Test {
protected:
    PreviewDocument preview(const std::string& name, DataView content) const {
        return QuickPreview::document(folder.write(name, content), nullptr);
    }

    TemporaryFolder folder;

private:
    ScopedEnvironment english_{{"LC_ALL", "C"}, {"TZ", "UTC0"}};
};

/// \p date is in seconds since 1970.
void setModified(const FileURL& url, std::time_t date) {
    const std::array<timespec, 2> times{{{date, 0}, {date, 0}}};
    ASSERT_EQ(::utimensat(AT_FDCWD, url.path().c_str(), times.data(), 0), 0);
}

void expectSize(const PreviewDocument& document, double width, double height) {
    EXPECT_EQ(document.width, width);
    EXPECT_EQ(document.height, height);
}

TEST_F(QuickPreviewTest, showsASourceFileWithLanguageLinesAndSize) {
    const auto document = preview("main.c", "int main() {}\n");
    expectSize(document, 900, 700);
    EXPECT_EQ(factsOf(document.html), joined({"C", "1 line", "14 bytes"}));
    EXPECT_NE(
        document.html.find("<div class=\"code-view mono\"><span class=\"line\">int main() {}</span></div>"),
        std::string::npos);
    EXPECT_TRUE(document.attachments.empty());
}

TEST_F(QuickPreviewTest, wrapsProse) {
    EXPECT_NE(preview("a.txt", "x").html.find("code-view mono wrap"), std::string::npos);
}

TEST_F(QuickPreviewTest, labelsAFileByItsTypeWhenItsLanguageIsUnknown) {
    EXPECT_EQ(factsOf(preview("a.awk", "x").html), joined({"Awk script", "1 line", "1 byte"}));
    EXPECT_EQ(factsOf(preview("NOTICE", "x").html), joined({"Text", "1 line", "1 byte"}));
}

TEST_F(QuickPreviewTest, showsAnEmptyFileAsText) {
    const auto document = preview("empty.txt", "");
    EXPECT_EQ(factsOf(document.html), joined({"Plain text", "0 lines", "Zero KB"}));
    EXPECT_EQ(occurrences(document.html, "class=\"line\""), 1U);
}

TEST_F(QuickPreviewTest, countsTheLinesOfAFileOfExactlyTheLimit) {
    const auto document = preview("a.txt", std::string(524'288, 'x'));
    EXPECT_EQ(factsOf(document.html), joined({"Plain text", "1 line", "524 KB"}));
    EXPECT_EQ(document.html.find("<p class=\"notice\">"), std::string::npos);
}

TEST_F(QuickPreviewTest, saysThatALongerFileIsCut) {
    const auto document = preview("a.txt", std::string(524'288, 'x') + "y");
    EXPECT_EQ(factsOf(document.html), joined({"Plain text", "524 KB"}));
    EXPECT_EQ(between(document.html, "<p class=\"notice\">", "</p>"), "Showing the first 524 KB of this file.");
    EXPECT_EQ(document.html.find("xy"), std::string::npos);
}

TEST_F(QuickPreviewTest, repairsACharacterThatTheLimitCuts) {
    const auto document = preview("a.txt", std::string(524'287, 'x') + "é");
    EXPECT_NE(document.html.find("x\uFFFD</span>"), std::string::npos);
}

TEST_F(QuickPreviewTest, takesAZeroByteAtOffset8191ForBinary) {
    const auto document = preview("a.txt", std::string(8'191, 'x') + '\0');
    expectSize(document, 900, 700);
    EXPECT_EQ(messageOf(document.html), "This is a binary file, 8 KB, with nothing readable to preview.");
}

TEST_F(QuickPreviewTest, takesAZeroByteAtOffset8192ForText) {
    const auto document = preview("a.txt", std::string(8'192, 'x') + '\0');
    EXPECT_EQ(messageOf(document.html), "");
    EXPECT_NE(document.html.find(std::string("x\0</span>", 9)), std::string::npos);
}

TEST_F(QuickPreviewTest, dropsAByteOrderMarkAndRepairsInvalidText) {
    const auto document = preview("a.c", "\uFEFFa\xFF");
    EXPECT_NE(document.html.find("<span class=\"line\">a\uFFFD</span>"), std::string::npos);
}

TEST_F(QuickPreviewTest, escapesNamesOfEveryKind) {
    const auto document = preview("<img src=x onerror=alert(1)>\"'&\n\U0001F331<\u0301.c", "x");
    EXPECT_EQ(between(document.html, "<h1>", "</h1>"),
              "&lt;img src=x onerror=alert(1)&gt;&quot;&#39;&amp;\n\U0001F331&lt;\u0301.c");
    EXPECT_EQ(between(document.html, "<title>", "</title>"), between(document.html, "<h1>", "</h1>"));
}

TEST_F(QuickPreviewTest, repairsANameThatIsNotText) {
    EXPECT_EQ(between(preview("a\xFF.c", "x").html, "<h1>", "</h1>"), "a\uFFFD.c");
}

TEST_F(QuickPreviewTest, attachesTheIconOfTheType) {
    CountingIcons icons;
    const auto document = QuickPreview::document(folder.write("a.py", "x"), &icons);
    EXPECT_EQ(icons.askedTypes, std::vector<std::string>{"public.python-script"});
    EXPECT_NE(document.html.find("<img class=\"icon\" src=\"cid:asset-0\" alt=\"\">"), std::string::npos);
    EXPECT_EQ(*document.attachments.at("asset-0").data, "icon of public.python-script");
}

TEST_F(QuickPreviewTest, attachesThePlainTextIconToAFileWithoutType) {
    CountingIcons icons;
    QuickPreview::document(folder.write("NOTICE", "x"), &icons);
    EXPECT_EQ(icons.askedTypes, std::vector<std::string>{"public.plain-text"});
}

TEST_F(QuickPreviewTest, saysThatAFileIsGone) {
    CountingIcons icons;
    icons.hasFileIcons = false;
    const auto document = QuickPreview::document(folder.url("gone.txt"), &icons);
    expectSize(document, 520, 380);
    EXPECT_EQ(messageOf(document.html),
              "Quillmar couldn&#39;t read this item. There is no file named “gone.txt”.");
    EXPECT_EQ(icons.askedTypes, std::vector<std::string>{"public.data"});
}

TEST_F(QuickPreviewTest, describesANamedPipeWithoutOpeningIt) {
    ASSERT_EQ(::mkfifo((folder.path() / "pipe").c_str(), 0600), 0);
    const auto document = QuickPreview::document(folder.url("pipe"), nullptr);
    expectSize(document, 520, 380);
    EXPECT_EQ(messageOf(document.html),
              "Quillmar couldn&#39;t read this item. “pipe” is a named pipe and has no content to preview.");
}

TEST_F(QuickPreviewTest, saysThatAPackageIsNotOneFile) {
    const auto document = QuickPreview::document(folder.makeFolder("Notes.app"), nullptr);
    expectSize(document, 520, 380);
    EXPECT_EQ(messageOf(document.html), "Quillmar couldn&#39;t read this item. “Notes.app” is a package and "
                                        "can&#39;t be shown as one file.");
}

// Folders

TEST_F(QuickPreviewTest, listsAFolder) {
    const auto garden = folder.makeFolder("Garden");
    folder.makeFolder("Garden/Beds/Roses");
    folder.write("Garden/Beds/Roses/rose.txt", std::string(1'500, 'x'));
    folder.write("Garden/plan.c", std::string(3'000, 'x'));
    folder.write("Garden/.hidden", "x");
    setModified(garden, 1'709'543'700); // 2024-03-04 09:15 UTC
    const auto document = QuickPreview::document(garden, nullptr);
    expectSize(document, 780, 620);
    EXPECT_EQ(between(document.html, "<h1>", "</h1>"), "Garden");
    EXPECT_EQ(factsOf(document.html),
              joined({"2 items", "5 KB", "1 hidden", "Modified Mar 4, 2024 at 9:15\u202FAM"}));
    EXPECT_NE(document.html.find("<span>plan.c</span></span><span class=\"size\">3 KB<"), std::string::npos);
    EXPECT_NE(document.html.find("<span>Beds</span></span><span class=\"size\">2 KB<"), std::string::npos);
    EXPECT_LT(document.html.find("<span>plan.c<"), document.html.find("<span>Beds<"));
}

TEST_F(QuickPreviewTest, listsAnEmptyFolder) {
    const auto document = QuickPreview::document(folder.makeFolder("Garden"), nullptr);
    expectSize(document, 780, 620);
    EXPECT_EQ(between(document.html, "<p class=\"notice\">", "</p>"), "This folder is empty.");
}

TEST_F(QuickPreviewTest, listsAFolderWhateverItsName) {
    for (const char* name : {"notes.md", "garden.zip", "main.c", "a.b", ".git", "a\n\xFF"}) {
        const auto document = QuickPreview::document(folder.makeFolder(name), nullptr);
        expectSize(document, 780, 620);
        EXPECT_NE(document.html.find("<body class=\"folder\">"), std::string::npos) << name;
    }
}

TEST_F(QuickPreviewTest, repairsTheNameOfAFolderThatIsNotText) {
    const auto document = QuickPreview::document(folder.makeFolder("a\xFF"), nullptr);
    EXPECT_EQ(between(document.html, "<title>", "</title>"), "a\uFFFD");
    EXPECT_EQ(between(document.html, "<h1>", "</h1>"), "a\uFFFD");
}

TEST_F(QuickPreviewTest, attachesTheIconsOfAFolderAndWhatIsInIt) {
    CountingIcons icons;
    const auto garden = folder.makeFolder("Garden");
    const auto application = folder.makeFolder("Garden/Planner.app");
    folder.write("Garden/a.png", "x");
    folder.write("Garden/b.png", "x");
    const auto document = QuickPreview::document(garden, &icons);
    EXPECT_EQ(icons.askedFiles, (std::vector<std::string>{garden.path(), application.path()}));
    EXPECT_EQ(icons.askedTypes, std::vector<std::string>{"public.png"});
    EXPECT_EQ(document.attachments.size(), 3U);
}

TEST_F(QuickPreviewTest, showsALinkToAFolderAsItsTargetUnderItsOwnName) {
    folder.makeFolder("Garden");
    folder.write("Garden/rose.txt", "red");
    std::filesystem::create_directory_symlink("Garden", folder.path() / "link");
    const auto document = QuickPreview::document(folder.url("link"), nullptr);
    expectSize(document, 780, 620);
    EXPECT_EQ(between(document.html, "<h1>", "</h1>"), "link");
    EXPECT_NE(document.html.find("<span>rose.txt</span></span><span class=\"size\">3 bytes<"),
              std::string::npos);
}

TEST_F(QuickPreviewTest, doesNotFollowLinksInAFolder) {
    folder.makeFolder("Garden");
    folder.write("Garden/rose.txt", std::string(5'000, 'x'));
    const auto other = folder.makeFolder("Other");
    std::filesystem::create_directory_symlink("../Garden", folder.path() / "Other/link");
    const auto document = QuickPreview::document(other, nullptr);
    EXPECT_NE(document.html.find("<span>link</span></span><span class=\"size\">9 bytes<"), std::string::npos);
}

TEST_F(QuickPreviewTest, saysThatAFolderIsPrivate) {
    const auto locked = folder.makeFolder("Locked");
    folder.write("Locked/secret.txt", "x");
    ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
    for (const unsigned mode : {0000U, 0111U, 0444U}) { // neither listing nor asking alone is enough
        ASSERT_EQ(::chmod(locked.path().c_str(), mode), 0);
        CountingIcons icons;
        icons.hasFileIcons = false;
        const Unprivileged unprivileged;
        const auto document = QuickPreview::document(locked, &icons);
        expectSize(document, 520, 380);
        EXPECT_EQ(messageOf(document.html),
                  "Quillmar couldn&#39;t read this item. You don&#39;t have permission to view “Locked”.");
        EXPECT_EQ(icons.askedTypes, std::vector<std::string>{"public.data"});
    }
    ::chmod(locked.path().c_str(), 0755);
}

TEST_F(QuickPreviewTest, saysThatAPrivateFolderInAFolderIsNotCounted) {
    const auto garden = folder.makeFolder("Garden");
    const auto locked = folder.makeFolder("Garden/Locked");
    folder.write("Garden/rose.txt", "red");
    ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
    ASSERT_EQ(::chmod(locked.path().c_str(), 0), 0);
    std::string html;
    {
        const Unprivileged unprivileged;
        html = QuickPreview::document(garden, nullptr).html;
    }
    ::chmod(locked.path().c_str(), 0755);
    EXPECT_NE(factsOf(html).find("2 items<span class=\"dot\">·</span>At least 3 bytes<"), std::string::npos);
    EXPECT_TRUE(between(html, "<p class=\"notice\">", "</p>").starts_with("This folder is too big to measure"));
    EXPECT_NE(html.find("<span>Locked</span></span><span class=\"size\"><span class=\"muted\">—</span>"),
              std::string::npos);
}

TEST_F(QuickPreviewTest, saysThatALinkToAPackageIsNotOneFile) {
    folder.makeFolder("Notes.app");
    std::filesystem::create_directory_symlink("Notes.app", folder.path() / "link.app");
    EXPECT_EQ(
        messageOf(QuickPreview::document(folder.url("link.app"), nullptr).html),
        "Quillmar couldn&#39;t read this item. “link.app” is a package and can&#39;t be shown as one file.");
}

TEST_F(QuickPreviewTest, showsALinkAsItsTargetUnderItsOwnName) {
    folder.write("target.awk", "BEGIN {}\n");
    std::filesystem::create_symlink("target.awk", folder.path() / "link");
    const auto document = QuickPreview::document(folder.url("link"), nullptr);
    EXPECT_EQ(between(document.html, "<h1>", "</h1>"), "link");
    EXPECT_EQ(factsOf(document.html), joined({"Awk script", "1 line", "9 bytes"}));
}

TEST_F(QuickPreviewTest, trustsTheReportedSizeOfAFileThatReadsLonger) {
    // The kernel reports no size for files that it makes up while they are read.
    const auto document =
        QuickPreview::document(FileURL::standardized("/proc/version", FileURL::root()), nullptr);
    EXPECT_EQ(factsOf(document.html), joined({"Text", "1 line", "Zero KB"}));
}

TEST_F(QuickPreviewTest, showsWhatACompressedFileHolds) {
    const Data compressed = gzip("beans\npeas\n");
    const auto document = preview("notes.txt.gz", compressed);
    expectSize(document, 900, 700);
    EXPECT_EQ(between(document.html, "<h1>", "</h1>"), "notes.txt.gz");
    EXPECT_EQ(factsOf(document.html),
              joined({"Gzip-compressed file", std::to_string(compressed.size()) + " bytes",
                      "11 bytes uncompressed"}));
    EXPECT_EQ(between(document.html, "<p class=\"notice\">", "</p>"), "Contents of “notes.txt”.");
    EXPECT_NE(document.html.find("code-view mono wrap\"><span class=\"line\">beans</span>"), std::string::npos);
}

TEST_F(QuickPreviewTest, showsTheFirstPartOfALongCompressedFile) {
    const auto document = preview("main.c.xz", xz(std::string(300'000, 'x')));
    EXPECT_EQ(between(document.html, "<p class=\"notice\">", "</p>"), "The first 262 KB of “main.c”.");
    EXPECT_NE(document.html.find("code-view mono\">"), std::string::npos);
    EXPECT_NE(document.html.find("XZ-compressed file" + std::string(dot)), std::string::npos);
}

TEST_F(QuickPreviewTest, doesNotBelieveARecordedSizeSmallerThanTheSample) {
    Data compressed = gzip("twelve bytes");
    compressed.replace(compressed.size() - 4, 4, std::string("\3\0\0\0", 4)); // ISIZE (RFC 1952, 2.3.1)
    EXPECT_EQ(factsOf(preview("a.gz", compressed).html),
              joined({"Gzip-compressed file", std::to_string(compressed.size()) + " bytes"}));
}

TEST_F(QuickPreviewTest, saysWhatABinaryCompressedFileHolds) {
    CountingIcons icons;
    const auto url = folder.write("disk.img.gz", gzip(std::string(2'000, '\0')));
    const auto document = QuickPreview::document(url, &icons);
    expectSize(document, 900, 700);
    EXPECT_EQ(messageOf(document.html), "Contains “disk.img”, 2 KB. Double-click to decompress it.");
    EXPECT_EQ(icons.askedFiles, std::vector<std::string>{url.path()});
    EXPECT_EQ(messageOf(preview("disk.img.xz", xz(std::string(2'000, '\0'))).html),
              "Contains “disk.img”. Double-click to decompress it.");
}

TEST_F(QuickPreviewTest, saysWhyADamagedArchiveCannotBeRead) {
    CountingIcons icons;
    icons.hasFileIcons = false;
    const auto document = QuickPreview::document(folder.write("a.gz", "\x1F\x8B\x08\0\0\0\0\0\0\0\7"s), &icons);
    expectSize(document, 520, 380);
    EXPECT_EQ(messageOf(document.html), "This archive can&#39;t be read. The compressed data is damaged.");
    EXPECT_EQ(icons.askedTypes, std::vector<std::string>{"public.archive"});
    EXPECT_EQ(messageOf(preview("a.zip", "PK\3\4").html),
              "This archive can&#39;t be read. The end of the archive is missing.");
}

TEST_F(QuickPreviewTest, listsAnArchiveWhateverItsName) {
    const auto document = preview("notes.txt", "PK\5\6" + std::string(18, '\0'));
    expectSize(document, 780, 620);
    EXPECT_EQ(between(document.html, "<p class=\"notice\">", "</p>"), "This archive is empty.");
}

TEST_F(QuickPreviewTest, takesAnEmptyFileNamedLikeAnArchiveForText) {
    EXPECT_EQ(factsOf(preview("a.zip", "").html), joined({"Zip archive", "0 lines", "Zero KB"}));
}

// Images from elsewhere than the file system

/// Images that are there whatever the file system holds, and a record of the questions.
class RememberingImages : public ImageFiles {
public:
    std::optional<Image> image(const FileURL& url, std::int64_t maxBytes) override {
        asked.push_back(url.path());
        limits.push_back(maxBytes);
        if (url.pathExtension() != "png") return std::nullopt;
        return Image{.data = std::make_shared<const Data>("image of " + url.path()),
                     .typeIdentifier = "public.gif"};
    }

    std::vector<std::string> asked;
    std::vector<std::int64_t> limits;
};

TEST_F(QuickPreviewTest, takesTheImagesOfADocumentFromWhereItIsTold) {
    RememberingImages images;
    folder.write("there.jpg", "pixels");
    const auto url = folder.write("a.md", "![a](gone.png) ![b](there.jpg) ![a](gone.png)\n");
    const auto document = QuickPreview::document(url, nullptr, &images);
    const std::string path = folder.url("gone.png").path();
    EXPECT_EQ(images.asked, (std::vector<std::string>{path, folder.url("there.jpg").path()}));
    EXPECT_EQ(images.limits.front(), 8'388'608);
    ASSERT_EQ(document.attachments.size(), 2U);
    EXPECT_EQ(*document.attachments.at("asset-1").data, "image of " + path);
    EXPECT_EQ(document.attachments.at("asset-1").typeIdentifier, "public.gif");
}

TEST_F(QuickPreviewTest, takesImagesFromTheFileSystemWhenItIsToldNothing) {
    folder.write("plan.png", "pixels");
    const auto url = folder.write("a.md", "![a](plan.png)\n");
    EXPECT_EQ(*QuickPreview::document(url, nullptr, nullptr).attachments.at("asset-0").data, "pixels");
}

TEST_F(QuickPreviewTest, takesNoImagesForWhatIsNoDocument) {
    RememberingImages images;
    QuickPreview::document(folder.write("a.c", "![a](gone.png)"), nullptr, &images);
    EXPECT_TRUE(images.asked.empty());
}

// Failures

TEST_F(QuickPreviewTest, saysWhyAnItemCouldNotBeRead) {
    CountingIcons icons;
    const auto url = folder.write("a.c", "x");
    const auto document = QuickPreview::failure(url, "It is <too> heavy & old.", &icons);
    expectSize(document, 520, 380);
    EXPECT_EQ(between(document.html, "<h1>", "</h1>"), "a.c");
    EXPECT_EQ(messageOf(document.html),
              "Quillmar couldn&#39;t read this item. It is &lt;too&gt; heavy &amp; old.");
    EXPECT_EQ(icons.askedFiles, std::vector<std::string>{url.path()});
    EXPECT_EQ(*document.attachments.at("asset-0").data, "icon of " + url.path());
}

TEST_F(QuickPreviewTest, givesAFailureTheIconOfAnyData) {
    CountingIcons icons;
    icons.hasFileIcons = false;
    const auto document = QuickPreview::failure(folder.url("gone"), "It is gone.", &icons);
    EXPECT_EQ(icons.askedTypes, std::vector<std::string>{"public.data"});
    EXPECT_EQ(document.attachments.size(), 1U);
    EXPECT_TRUE(QuickPreview::failure(folder.url("gone"), "It is gone.", nullptr).attachments.empty());
}

/// A host whose memory is all gone.
class ImagesWithoutMemory : public ImageFiles {
public:
    std::optional<Image> image(const FileURL& /*url*/, std::int64_t /*maxBytes*/) override {
        throw std::bad_alloc();
    }
};

TEST_F(QuickPreviewTest, saysThatMemoryIsGone) {
    ImagesWithoutMemory images;
    const auto document = QuickPreview::document(folder.write("a.md", "![](b.png)"), nullptr, &images);
    EXPECT_EQ(messageOf(document.html),
              "Quillmar couldn&#39;t read this item. There is not enough memory to preview it.");
    expectSize(document, 520, 380);
}

TEST_F(QuickPreviewTest, expectsImagesInMarkdownOnly) {
    EXPECT_TRUE(QuickPreview::mayNameImages(folder.write("a.md", "")));
    EXPECT_TRUE(QuickPreview::mayNameImages(folder.url("gone.mdx")));
    EXPECT_FALSE(QuickPreview::mayNameImages(folder.write("a.txt", "")));
    EXPECT_FALSE(QuickPreview::mayNameImages(folder.url("gone.txt")));
}

} // namespace
} // namespace quillmar
