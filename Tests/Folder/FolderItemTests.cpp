#include "Folder/FolderSummarizer.h"

#include "Tests/Helpers/Summaries.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace quillmar {
namespace {

using FolderItemTest = SummaryTest;

/// Type, kind and whether it is a folder: what decides how an item looks.
struct Look {
    std::optional<std::string_view> type;
    FileKind kind;
    bool isFolder;
    bool operator==(const Look&) const = default;
};

Look lookOf(const FolderItem& item) { return {item.typeIdentifier, item.kind, item.isFolder}; }

TEST_F(FolderItemTest, ofAFileHasItsLength) {
    folder.write("a.txt", "12345");
    const FolderSummary summary = summarize();
    const FolderItem& item = itemOf(summary, "a.txt");
    EXPECT_EQ(item.url, folder.url("a.txt"));
    EXPECT_EQ(item.size, 5);
    EXPECT_TRUE(item.isSizeComplete);
    EXPECT_FALSE(item.isHidden);
}

TEST_F(FolderItemTest, ofAFileHasTheTypeOfItsExtension) {
    for (const char* name : {"a.PNG", "b.py", "c.md", "d.zip", "e.mp3", "f.app"}) folder.write(name, "");
    const FolderSummary summary = summarize();
    EXPECT_EQ(lookOf(itemOf(summary, "a.PNG")), (Look{"public.png", FileKind::images, false}));
    EXPECT_EQ(lookOf(itemOf(summary, "b.py")), (Look{"public.python-script", FileKind::code, false}));
    EXPECT_EQ(lookOf(itemOf(summary, "c.md")),
              (Look{"net.daringfireball.markdown", FileKind::documents, false}));
    EXPECT_EQ(itemOf(summary, "d.zip").kind, FileKind::archives);
    EXPECT_EQ(itemOf(summary, "e.mp3").kind, FileKind::audio);
    EXPECT_EQ(lookOf(itemOf(summary, "f.app")), (Look{"com.apple.application-bundle", FileKind::apps, false}));
}

TEST_F(FolderItemTest, ofAFileWithoutKnownExtensionHasNoType) {
    for (const char* name : {"README", "a.unheard-of", ".png"}) folder.write(name, "");
    for (const FolderItem& item : summarize().items)
        EXPECT_EQ(lookOf(item), (Look{std::nullopt, FileKind::other, false})) << item.name;
}

TEST_F(FolderItemTest, ofAFolderHasTheSizeOfAllThatIsInIt) {
    makeFiles(folder, "a/b/c", 3);
    makeFiles(folder, "a/.hidden", 4);
    const FolderSummary summary = summarize();
    EXPECT_EQ(summary.items.size(), 1U);
    EXPECT_EQ(itemOf(summary, "a").size, 7);
    EXPECT_TRUE(itemOf(summary, "a").isSizeComplete);
}

TEST_F(FolderItemTest, ofAnEmptyFolderHasSizeZero) {
    folder.makeFolder("a");
    EXPECT_EQ(summarize().items.at(0).size, 0);
    EXPECT_TRUE(summarize().isComplete);
}

TEST_F(FolderItemTest, ofAFolderIsOneWhateverItsName) {
    for (const char* name : {"a", "b.txt", "c.framework", ".app"}) folder.makeFolder(name);
    for (const FolderItem& item : summarize().items)
        EXPECT_EQ(lookOf(item), (Look{"public.folder", FileKind::folders, true})) << item.name;
}

TEST_F(FolderItemTest, ofAPackageIsMeasuredButNoFolder) {
    makeFiles(folder, "Notes.APP/Contents", 6);
    makeFiles(folder, "Talk.key", 5);
    const FolderSummary summary = summarize();
    const FolderItem& app = itemOf(summary, "Notes.APP");
    EXPECT_EQ(lookOf(app), (Look{"com.apple.application-bundle", FileKind::apps, false}));
    EXPECT_EQ(app.size, 6);
    EXPECT_TRUE(app.isSizeComplete);
    EXPECT_EQ(itemOf(summary, "Talk.key").kind, FileKind::documents);
    EXPECT_EQ(itemOf(summary, "Talk.key").size, 5);
    EXPECT_FALSE(itemOf(summary, "Talk.key").isFolder);
}

TEST_F(FolderItemTest, ofALinkIsTheLinkItself) {
    const TemporaryFolder elsewhere;
    elsewhere.write("large.png", std::string(1'000, 'x'));
    std::filesystem::create_symlink(elsewhere.path() / "large.png", folder.path() / "file.png");
    std::filesystem::create_directory_symlink(elsewhere.path(), folder.path() / "folder");
    std::filesystem::create_directory_symlink(elsewhere.path(), folder.path() / "A.app");
    std::filesystem::create_symlink("nowhere", folder.path() / "broken");
    std::filesystem::create_symlink("loop", folder.path() / "loop");
    const FolderSummary summary = summarize();
    EXPECT_EQ(summary.items.size(), 5U);
    for (const FolderItem& item : summary.items) {
        EXPECT_EQ(lookOf(item), (Look{"public.symlink", FileKind::other, false})) << item.name;
        EXPECT_TRUE(item.isSizeComplete) << item.name;
    }
    const auto length = static_cast<std::int64_t>(elsewhere.path().string().size());
    EXPECT_EQ(itemOf(summary, "file.png").size, length + 10); // "/large.png"
    EXPECT_EQ(itemOf(summary, "folder").size, length);
    EXPECT_EQ(itemOf(summary, "A.app").size, length);
    EXPECT_EQ(itemOf(summary, "broken").size, 7);
    EXPECT_EQ(itemOf(summary, "loop").size, 4);
}

TEST_F(FolderItemTest, ofALinkThatLeadsUpEndsThere) {
    makeFiles(folder, "a", 2);
    std::filesystem::create_directory_symlink("..", folder.path() / "a/up");
    std::filesystem::create_directory_symlink(".", folder.path() / "here");
    const FolderSummary summary = summarize();
    EXPECT_EQ(itemOf(summary, "a").size, 2);
    EXPECT_EQ(summary.totalSize, 3);
}

TEST_F(FolderItemTest, ofAPipeOrSocketHasNoTypeAndNoContents) {
    ASSERT_EQ(::mkfifo((folder.path() / "pipe.txt").c_str(), 0600), 0);
    const int descriptor = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = folder.url("socket.md").path();
    ASSERT_LT(path.size(), sizeof address.sun_path);
    path.copy(address.sun_path, path.size());
    ASSERT_EQ(::bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    const FolderSummary summary = summarize();
    ::close(descriptor);
    EXPECT_EQ(summary.items.size(), 2U);
    for (const FolderItem& item : summary.items) {
        EXPECT_EQ(lookOf(item), (Look{std::nullopt, FileKind::other, false})) << item.name;
        EXPECT_EQ(item.size, 0) << item.name;
        EXPECT_TRUE(item.isSizeComplete) << item.name;
    }
}

TEST_F(FolderItemTest, ofADeviceHasNoTypeAndNoContents) {
    const FolderSummary summary = FolderSummarizer::summarize(FileURL::root().appendingPathComponent("dev"), 0);
    EXPECT_EQ(lookOf(itemOf(summary, "zero")), (Look{std::nullopt, FileKind::other, false}));
    EXPECT_EQ(itemOf(summary, "zero").size, 0);
}

TEST_F(FolderItemTest, isHiddenWhenItsNameBeginsWithADot) {
    folder.write(".env", "");
    folder.makeFolder(".git");
    folder.write("..a", "");
    folder.write("a.", "");
    folder.write("a.b", "");
    const FolderSummary summary = summarize();
    EXPECT_TRUE(itemOf(summary, ".env").isHidden);
    EXPECT_TRUE(itemOf(summary, ".git").isHidden);
    EXPECT_TRUE(itemOf(summary, "..a").isHidden);
    EXPECT_FALSE(itemOf(summary, "a.").isHidden);
    EXPECT_FALSE(itemOf(summary, "a.b").isHidden);
}

TEST_F(FolderItemTest, hasTheDateOfItsOwnContents) {
    folder.write("file", "");
    folder.makeFolder("folder");
    std::filesystem::create_symlink("file", folder.path() / "link");
    setModified("file", 1'700'000'000);
    setModified("folder", 0);
    setModified("link", -1); // the last second before 1970
    const FolderSummary summary = summarize();
    EXPECT_EQ(itemOf(summary, "file").modified, 1'700'000'000);
    EXPECT_EQ(itemOf(summary, "folder").modified, 0);
    EXPECT_EQ(itemOf(summary, "link").modified, -1);
}

TEST_F(FolderItemTest, isNamedWithRepairedTextAndFoundByItsBytes) {
    folder.write("a\xFF\xC3.txt", "12");
    makeFiles(folder, "\xE2\x82", 3);
    const FolderSummary summary = summarize();
    const FolderItem& file = itemOf(summary, "a\uFFFD\uFFFD.txt");
    EXPECT_EQ(file.url.path(), (folder.path() / "a\xFF\xC3.txt").string());
    EXPECT_EQ(file.typeIdentifier, "public.plain-text");
    EXPECT_EQ(itemOf(summary, "\uFFFD").size, 3);
    EXPECT_EQ(itemOf(summary, "\uFFFD").url.path(), (folder.path() / "\xE2\x82").string());
}

TEST_F(FolderItemTest, isToldFromAnotherOfTheSameRepairedName) {
    folder.write("\xFE", "1");
    folder.write("\xFF", "12");
    const FolderSummary summary = summarize();
    EXPECT_EQ(namesOf(summary), (Names{"\uFFFD", "\uFFFD"}));
    EXPECT_EQ(summary.items.at(0).url.path(), (folder.path() / "\xFF").string());
    EXPECT_EQ(summary.items.at(1).url.path(), (folder.path() / "\xFE").string());
}

TEST_F(FolderItemTest, keepsNewlinesAndMarkupInItsName) {
    const Names names{"<b>&\"'.md", "a\nb\r\t.md", "\x01\x7F"};
    for (const std::string& name : names) folder.write(name, "");
    const FolderSummary summary = summarize();
    for (const std::string& name : names) EXPECT_EQ(itemOf(summary, name).url, folder.url(name));
    EXPECT_EQ(itemOf(summary, names[1]).kind, FileKind::documents);
}

TEST_F(FolderItemTest, keepsTheWholeOfALongName) {
    const std::string text = std::string(251, 'x') + ".txt"; // the longest that file systems take
    const std::string bytes(255, '\xFF');
    folder.write(text, "");
    folder.makeFolder(bytes);
    std::string repaired;
    for (std::size_t i = 0; i < bytes.size(); ++i) repaired += "\uFFFD";
    const FolderSummary summary = summarize();
    EXPECT_EQ(itemOf(summary, text).typeIdentifier, "public.plain-text");
    EXPECT_EQ(itemOf(summary, repaired).size, 0);
}

} // namespace
} // namespace quillmar
