#include "QuillmarQuickLook/Worker/ConfinedPreview.h"

#include "QuickPreview.h"
#include "Tests/Helpers/Compress.h"
#include "Tests/Helpers/CountingIcons.h"
#include "Tests/Helpers/DeepFolder.h"
#include "Tests/Helpers/Environment.h"
#include "Tests/Helpers/ManyFiles.h"
#include "Tests/Helpers/Pages.h"
#include "Tests/Helpers/TarBuilder.h"
#include "Tests/Helpers/TemporaryFolder.h"
#include "Tests/Helpers/Unprivileged.h"
#include "Tests/Helpers/ZipBuilder.h"
#include "Tests/QuillmarQuickLook/Worker/Leftovers.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace quillmar {
namespace {

/// Pages of workers beside those that this process makes itself.
class ConfinedPreviewTest : public testing::Test {
protected:
    void TearDown() override {
        EXPECT_TRUE(hasNoChildren());
        EXPECT_EQ(openDescriptors(), descriptors_);
    }

    static void expectSameAttachments(const PreviewDocument& document, const PreviewDocument& expected) {
        ASSERT_EQ(document.attachments.size(), expected.attachments.size());
        for (const auto& [name, attachment] : expected.attachments) {
            ASSERT_TRUE(document.attachments.contains(name)) << name;
            EXPECT_EQ(*document.attachments.at(name).data, *attachment.data) << name;
            EXPECT_EQ(document.attachments.at(name).typeIdentifier, attachment.typeIdentifier) << name;
        }
    }

    /// The page, which is expected to be the same from both, and its icons to be asked for alike.
    static PreviewDocument expectSame(const FileURL& url) {
        CountingIcons icons;
        CountingIcons expectedIcons;
        PreviewDocument document = ConfinedPreview().document(url, &icons);
        const PreviewDocument expected = QuickPreview::document(url, &expectedIcons);
        EXPECT_TRUE(document.html == expected.html) << url.path() << "\n"
                                                    << messageOf(document.html) << "\n"
                                                    << messageOf(expected.html);
        EXPECT_EQ(document.width, expected.width);
        EXPECT_EQ(document.height, expected.height);
        expectSameAttachments(document, expected);
        EXPECT_EQ(icons.askedFiles, expectedIcons.askedFiles);
        EXPECT_EQ(icons.askedTypes, expectedIcons.askedTypes);
        return document;
    }

    /// The same of a file of this content, with a part that its page must have.
    void expectSame(const std::string& name, DataView content, std::string_view part) const {
        const PreviewDocument document = expectSame(folder.write(name, content));
        EXPECT_NE(document.html.find(part), std::string::npos) << name;
    }

    TemporaryFolder folder;

private:
    std::size_t descriptors_ = openDescriptors();
};

// Files

TEST_F(ConfinedPreviewTest, showsText) {
    expectSame("a.c", "int main() {}\n", "int main() {}");
    expectSame("empty.txt", "", "0 lines");
    expectSame("long.txt", std::string(600'000, 'x'), "Showing the first");
}

TEST_F(ConfinedPreviewTest, showsTextInAnyEncoding) {
    expectSame("latin", "caf\xE9 \xFF", "caf");
    expectSame("utf16.txt", std::string("\xFF\xFEr\0e\0d\0", 8), "r");
    expectSame("marked.txt", "\uFEFFred", "red");
}

TEST_F(ConfinedPreviewTest, showsWhatIsBinary) {
    expectSame("a.bin", std::string(10'000, '\0'), "This is a binary file, 10 KB");
}

TEST_F(ConfinedPreviewTest, showsItemsOfAnyName) {
    expectSame("a \n\xFF\"<&>'.c", "red", "red");
    expectSame("-", "red", "red");
    expectSame("%2e%2e", "red", "red");
}

TEST_F(ConfinedPreviewTest, showsWithoutIcons) {
    const FileURL url = folder.write("a.c", "x");
    const PreviewDocument document = ConfinedPreview().document(url, nullptr);
    EXPECT_EQ(document.html, QuickPreview::document(url, nullptr).html);
    EXPECT_TRUE(document.attachments.empty());
}

TEST_F(ConfinedPreviewTest, showsWithoutTheIconsThatThereAreNot) {
    CountingIcons icons;
    CountingIcons expectedIcons;
    icons.hasFileIcons = expectedIcons.hasFileIcons = false;
    icons.typeWithoutIcon = expectedIcons.typeWithoutIcon = "public.folder";
    folder.makeFolder("Garden/Beds");
    folder.write("Garden/rose.txt", "red");
    const FileURL url = folder.url("Garden");
    EXPECT_EQ(ConfinedPreview().document(url, &icons).html, QuickPreview::document(url, &expectedIcons).html);
    EXPECT_EQ(icons.askedTypes, expectedIcons.askedTypes);
}

// What cannot be shown

TEST_F(ConfinedPreviewTest, saysWhatThereIsNot) {
    const PreviewDocument document = expectSame(folder.url("gone.txt"));
    EXPECT_EQ(messageOf(document.html),
              "Quillmar couldn&#39;t read this item. There is no file named “gone.txt”.");
}

TEST_F(ConfinedPreviewTest, saysThatALinkLeadsNowhere) {
    std::filesystem::create_symlink("gone", folder.path() / "broken");
    std::filesystem::create_symlink("loop", folder.path() / "loop");
    EXPECT_NE(messageOf(expectSame(folder.url("broken")).html), "");
    EXPECT_NE(messageOf(expectSame(folder.url("loop")).html), "");
}

TEST_F(ConfinedPreviewTest, describesAPipeAndADevice) {
    ASSERT_EQ(::mkfifo((folder.path() / "pipe").c_str(), 0600), 0);
    EXPECT_NE(messageOf(expectSame(folder.url("pipe")).html), "");
    EXPECT_NE(messageOf(expectSame(FileURL::standardized("/dev/zero", FileURL::root())).html), "");
}

TEST_F(ConfinedPreviewTest, saysThatAnItemIsPrivate) {
    const FileURL file = folder.write("secret.txt", "x");
    const FileURL locked = folder.makeFolder("Locked");
    const ScopedPermissions openFolder(folder.path(), 0755);
    const ScopedPermissions noFile(file.path(), 0);
    const ScopedPermissions noFolder(locked.path(), 0);
    const Unprivileged unprivileged;
    EXPECT_NE(expectSame(file).html.find("permission"), std::string::npos);
    EXPECT_NE(expectSame(locked).html.find("permission"), std::string::npos);
}

TEST_F(ConfinedPreviewTest, saysThatAPathIsTooLong) {
    expectSame(folder.url(std::string(300, 'x')));   // no name is
    expectSame(folder.url(std::string(3'000, 'x'))); // nor this one
    std::string deep;
    for (int i = 0; i < 100; ++i) deep += std::string(100, 'x') + '/';
    expectSame(folder.url(deep)); // 10,000 bytes: longer than any path may be
}

// Links

TEST_F(ConfinedPreviewTest, showsALinkAsItsTarget) {
    folder.write("target.awk", "BEGIN {}\n");
    std::filesystem::create_symlink("target.awk", folder.path() / "link");
    std::filesystem::create_symlink("link", folder.path() / "link-of-a-link");
    EXPECT_NE(expectSame(folder.url("link")).html.find("BEGIN {}"), std::string::npos);
    EXPECT_NE(expectSame(folder.url("link-of-a-link")).html.find("BEGIN {}"), std::string::npos);
}

TEST_F(ConfinedPreviewTest, showsALinkToAFolderAsItsTarget) {
    folder.makeFolder("Garden/Beds");
    folder.write("Garden/Beds/rose.txt", "red");
    std::filesystem::create_directory_symlink("Garden", folder.path() / "link");
    EXPECT_NE(expectSame(folder.url("link")).html.find("Beds"), std::string::npos);
}

// Folders

TEST_F(ConfinedPreviewTest, listsAndMeasuresAFolder) {
    folder.makeFolder("Garden/Beds/Roses");
    folder.makeFolder("Garden/Planner.app");
    folder.write("Garden/Beds/Roses/rose.txt", std::string(5'000, 'x'));
    folder.write("Garden/plan.c", "x");
    folder.write("Garden/.hidden", "x");
    std::filesystem::create_symlink("/etc/passwd", folder.path() / "Garden/link");
    ASSERT_EQ(::mkfifo((folder.path() / "Garden/pipe").c_str(), 0600), 0);
    EXPECT_NE(expectSame(folder.url("Garden")).html.find(">5 KB<"), std::string::npos);
}

TEST_F(ConfinedPreviewTest, listsAnEmptyFolder) {
    EXPECT_NE(expectSame(folder.makeFolder("Garden")).html.find("This folder is empty."), std::string::npos);
}

TEST_F(ConfinedPreviewTest, listsAFolderOfManyFiles) {
    makeFiles(folder, "Garden", 1'500);
    makeFiles(folder, "Garden/Beds", 2'500);
    for (int i = 0; i < 100; ++i) folder.makeFolder("Garden/Paths/" + std::to_string(i));
    EXPECT_NE(expectSame(folder.url("Garden")).html.find("1,502 items"), std::string::npos);
}

TEST_F(ConfinedPreviewTest, measuresADeepFolder) {
    constexpr std::size_t depth = 1'100; // more than a worker may have open
    const FileURL top = folder.makeFolder("Garden");
    const DeepFolder deep(top, depth, "deeper");
    expectSame(top);
}

TEST_F(ConfinedPreviewTest, listsAFolderWithAPrivateOne) {
    const FileURL locked = folder.makeFolder("Garden/Locked");
    folder.write("Garden/rose.txt", "red");
    const ScopedPermissions openFolder(folder.path(), 0755);
    const ScopedPermissions noFolder(locked.path(), 0);
    const Unprivileged unprivileged;
    EXPECT_NE(expectSame(folder.url("Garden")).html.find("At least 3 bytes"), std::string::npos);
}

// Archives

/// With the beginning of a local header in front, by which an archive is known.
Data zip(const std::vector<ZipBuilder::Header>& headers) {
    const Data start = "PK\3\4";
    const Data entries = ZipBuilder::directory(headers);
    const ZipBuilder::End end{.entries = static_cast<std::uint16_t>(headers.size()),
                              .size = static_cast<std::uint32_t>(entries.size()),
                              .offset = static_cast<std::uint32_t>(start.size())};
    return start + entries + end.bytes();
}

TEST_F(ConfinedPreviewTest, listsArchives) {
    const Data members = tar({directory("beds"), file("beds/rose.txt", "red"), file("plan.c", "x")});
    expectSame("a.tar", members, "rose.txt");
    expectSame("a.tar.gz", gzip(members), "rose.txt");
    expectSame("a.tar.xz", xz(members), "rose.txt");
    expectSame("a.zip", zip({{.name = "beds/rose.txt", .size = 3}}), "rose.txt");
}

TEST_F(ConfinedPreviewTest, listsAnArchiveWithNamesOfOtherCodePages) {
    // "é" of the code page of MS-DOS, and Japanese in Shift JIS.
    expectSame("a.zip",
               zip({{.name = "\x82.txt", .versionMadeBy = ZipBuilder::dosHost},
                    {.name = "\x83\x65\x83\x58\x83\x67.txt"}}),
               ".txt");
}

TEST_F(ConfinedPreviewTest, listsAnArchiveThatSeveralThreadsDecompress) {
    const Data members = tar({file("zeroes", std::string(8'000'000, '\0')), file("rose.txt", "red")});
    expectSame("a.tar.xz", xz(members, 1'048'576), "rose.txt");
}

TEST_F(ConfinedPreviewTest, showsWhatCompressedFilesHold) {
    expectSame("notes.txt.gz", gzip("beans\npeas\n"), "beans");
    expectSame("main.c.xz", xz(std::string(300'000, 'x')), "The first 262 KB");
    expectSame("disk.img.gz", gzip(std::string(2'000, '\0')), "Contains “disk.img”");
}

TEST_F(ConfinedPreviewTest, saysThatAnArchiveIsDamaged) {
    expectSame("a.zip", "PK\3\4", "The end of the archive is missing.");
    expectSame("a.gz", "\x1F\x8B\x08\0\0\0\0\0\0\0\7", "");
}

// Markdown

TEST_F(ConfinedPreviewTest, attachesTheImagesOfADocument) {
    folder.makeFolder("docs/beds");
    folder.makeFolder("elsewhere");
    folder.write("docs/plan.png", "pixels");
    folder.write("docs/beds/plan.JPG", "more pixels");
    folder.write("elsewhere/plan", std::string(100'000, 'x'));
    std::filesystem::create_symlink("../elsewhere/plan", folder.path() / "docs/link.gif");
    const std::string whole = folder.url("elsewhere/plan").path();
    const std::string text = "# Plans\n![a](plan.png) ![b](beds/plan.JPG) ![c](../elsewhere/plan) "
                             "![d](link.gif) ![a](plan.png) ![e](" +
                             whole + ")\n";
    EXPECT_EQ(expectSame(folder.write("docs/a.md", text)).attachments.size(), 6U);
}

TEST_F(ConfinedPreviewTest, leavesOutImagesThatCannotBeShown) {
    folder.makeFolder("docs/folder.png");
    folder.write("docs/large.png", "");
    std::filesystem::resize_file(folder.path() / "docs/large.png", 8'388'609);
    std::filesystem::create_symlink("gone.png", folder.path() / "docs/broken.png");
    ASSERT_EQ(::mkfifo((folder.path() / "docs/pipe.png").c_str(), 0600), 0);
    const std::string text = "![a](gone.png) ![b](large.png) ![c](folder.png) ![d](broken.png) "
                             "![e](pipe.png) ![f](/dev/zero) ![g](%00) ![h](http://example.org/a.png) ![i]()\n";
    EXPECT_TRUE(expectSame(folder.write("docs/a.md", text)).attachments.empty());
}

TEST_F(ConfinedPreviewTest, attachesAnEmptyImageAndOneOfTheLimit) {
    folder.write("empty.png", "");
    folder.write("large.png", "");
    std::filesystem::resize_file(folder.path() / "large.png", 8'388'608);
    const FileURL url = folder.write("a.md", "![a](empty.png) ![b](large.png)\n");
    EXPECT_EQ(expectSame(url).attachments.size(), 2U);
}

TEST_F(ConfinedPreviewTest, attachesNoImageThatMayNotBeRead) {
    const FileURL image = folder.write("secret.png", "pixels");
    const FileURL url = folder.write("a.md", "![a](secret.png)\n");
    const ScopedPermissions openFolder(folder.path(), 0755);
    const ScopedPermissions noFile(image.path(), 0);
    const Unprivileged unprivileged;
    EXPECT_TRUE(expectSame(url).attachments.empty());
}

TEST_F(ConfinedPreviewTest, hasAttachmentsOfOneImageShareTheirData) {
    folder.write("plan.png", "pixels");
    const PreviewDocument document = expectSame(folder.write("a.md", "![a](plan.png) ![a](plan.png)\n"));
    ASSERT_EQ(document.attachments.size(), 2U);
    EXPECT_EQ(document.attachments.at("asset-0").data, document.attachments.at("asset-1").data);
}

TEST_F(ConfinedPreviewTest, attachesOneLargeImageManyTimes) {
    folder.write("plan.png", "");
    std::filesystem::resize_file(folder.path() / "plan.png", 8'388'608);
    std::string text;
    for (int i = 0; i < 40; ++i) text += "![a](plan.png)\n";
    EXPECT_EQ(expectSame(folder.write("a.md", text)).attachments.size(), 32U);
}

// Surroundings

TEST_F(ConfinedPreviewTest, writesNumbersAndDatesAsTheUserDoes) {
    const FileURL garden = makeFiles(folder, "Garden", 1'001);
    const FileURL url = folder.write("a.tar", tar({file("rose.txt", std::string(1'500, 'x'))}));
    for (const auto& [locale, zone] :
         std::initializer_list<std::pair<const char*, const char*>>{{"de_DE.UTF-8", "America/New_York"},
                                                                    {"fr_FR.UTF-8", "Asia/Kolkata"},
                                                                    {"ja_JP.UTF-8", "UTC0"},
                                                                    {"ar_EG.UTF-8", "nowhere"},
                                                                    {"hi_IN.UTF-8", ":/etc/localtime"},
                                                                    {"x_Y", ""}}) {
        const ScopedEnvironment environment{{"LC_ALL", locale}, {"TZ", zone}};
        expectSame(url);
        expectSame(garden);
    }
}

TEST_F(ConfinedPreviewTest, writesDatesInTheZoneOfTheMachine) {
    const FileURL url = folder.write("a.tar", tar({file("rose.txt", "red")}));
    for (const char* locale : {"C", "de_DE.UTF-8"}) {
        const ScopedEnvironment environment{{"LC_ALL", locale}, {"TZ", std::nullopt}};
        expectSame(url);
    }
}

TEST_F(ConfinedPreviewTest, worksWithoutStandardInput) {
    const int input = ::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 3);
    ::close(STDIN_FILENO);
    const PreviewDocument document = ConfinedPreview().document(folder.write("a.c", "int a;"), nullptr);
    if (input >= 0) {
        ::dup2(input, STDIN_FILENO);
        ::close(input);
    }
    EXPECT_NE(document.html.find("int a;"), std::string::npos);
}

TEST_F(ConfinedPreviewTest, makesPreviewsOnSeveralThreads) {
    const FileURL url = folder.write("a.c", "int a;");
    const std::string expected = QuickPreview::document(url, nullptr).html;
    std::vector<std::string> pages(8);
    std::vector<std::thread> threads;
    for (std::string& page : pages)
        threads.emplace_back([&page, &url] { page = ConfinedPreview().document(url, nullptr).html; });
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(pages, std::vector<std::string>(pages.size(), expected));
}

} // namespace
} // namespace quillmar
