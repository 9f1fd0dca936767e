#include "QuillmarQuickLook/Icons/GvfsIcon.h"

#include "QuillmarQuickLook/Icons/FileMetadata.h"
#include "Tests/Helpers/Environment.h"
#include "Tests/Helpers/MetadataTree.h"
#include "Tests/Helpers/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <optional>
#include <sys/stat.h>

namespace quillmar {
namespace {

/// A home folder with an item "file" and a picture, beside a folder "elsewhere".
struct GvfsIconTest : testing::Test {
    GvfsIconTest() {
        folder.makeFolder("home/.local/share/gvfs-metadata");
        folder.makeFolder("elsewhere");
        file = folder.write("home/file", "");
        picture = folder.write("home/picture one.png", "").path();
    }

    std::string iconOf(const FileURL& url) const {
        return iconOf(url, folder.url("home").path(), std::nullopt);
    }
    static std::string iconOf(const FileURL& url, const std::optional<std::string>& home,
                              const std::optional<std::string>& data) {
        const ScopedEnvironment environment({{"HOME", home}, {"XDG_DATA_HOME", data}});
        return iconInMetadata(url).value_or("none");
    }

    void write(const std::string& name, DataView data) const {
        folder.write("home/.local/share/gvfs-metadata/" + name, data);
    }
    /// Writes what is known of the home folder's item "file".
    void writeFile(std::map<std::string, std::string> values) const {
        write("home", metadataTree({"/", {}, {{"file", std::move(values)}}}));
    }
    std::string iconWithPicture(const std::string& reference) const {
        writeFile({{"custom-icon", reference}});
        return iconOf(file);
    }

    TemporaryFolder folder;
    FileURL file = FileURL::root();
    std::string picture;
};

TEST_F(GvfsIconTest, ofMostThingsIsNone) {
    EXPECT_EQ(iconOf(file), "none");
    writeFile({{"annotation", "custom-icon"}});
    EXPECT_EQ(iconOf(file), "none");
    EXPECT_EQ(iconOf(folder.url("home")), "none");
    EXPECT_EQ(iconOf(FileURL::root()), "none");
}

TEST_F(GvfsIconTest, isAPicture) {
    const std::string before = file.path().substr(0, file.path().rfind('/'));
    EXPECT_EQ(iconWithPicture("file://" + before + "/picture%20one.png"), picture);
}

TEST_F(GvfsIconTest, isAPictureBelowTheItem) {
    const std::string cover = folder.write("home/cover.png", "").path();
    write("home", metadataTree({"/", {{"custom-icon", "cover.png"}}}));
    EXPECT_EQ(iconOf(folder.url("home")), cover);
}

TEST_F(GvfsIconTest, isAName) {
    writeFile({{"custom-icon-name", "folder-red"}});
    EXPECT_EQ(iconOf(file), "folder-red");
}

TEST_F(GvfsIconTest, isThePictureRatherThanTheName) {
    writeFile(
        {{"custom-icon", std::string("file://").append(file.path())}, {"custom-icon-name", "folder-red"}});
    EXPECT_EQ(iconOf(file), file.path());
}

TEST_F(GvfsIconTest, isTheNameWhenThePictureIsGone) {
    writeFile({{"custom-icon", "file:///nothing/here.png"}, {"custom-icon-name", "folder-red"}});
    EXPECT_EQ(iconOf(file), "folder-red");
}

TEST_F(GvfsIconTest, isNoPictureThatIsElsewhereOrGone) {
    for (const auto* reference : {"", "file:", "file://", "file:///nothing/here.png", "file://host",
                                  "nothing.png", "%", "%00", "file:///%"})
        EXPECT_EQ(iconWithPicture(reference), "none") << reference;
    for (const auto* scheme : {"https://", "file://host", "smb://", "FILE://"})
        EXPECT_EQ(iconWithPicture(std::string(scheme).append(file.path())), "none") << scheme;
    EXPECT_EQ(iconWithPicture(std::string("file://").append(file.path()).append("%00.png")), "none");
}

TEST_F(GvfsIconTest, isNoNameThatIsAPath) {
    for (const auto& name : {std::string(), std::string("../x"), file.path()}) {
        writeFile({{"custom-icon-name", name}});
        EXPECT_EQ(iconOf(file), "none") << name;
    }
}

TEST_F(GvfsIconTest, ofTheHomeFolder) {
    write("home", metadataTree({"/", {{"custom-icon-name", "my-home"}}}));
    EXPECT_EQ(iconOf(folder.url("home")), "my-home");
}

TEST_F(GvfsIconTest, journalsWin) {
    writeFile({{"custom-icon-name", "old"}});
    write("home-0123abcd.log", metadataJournal({setEntry("/file", "custom-icon-name", "new")}));
    EXPECT_EQ(iconOf(file), "new");
    write("home-0123abcd.log", metadataJournal({unsetEntry("/file", "custom-icon-name")}));
    EXPECT_EQ(iconOf(file), "none");
}

TEST_F(GvfsIconTest, isInTheJournalAlone) {
    writeFile({});
    write("home-0123abcd.log", metadataJournal({setEntry("/file", "custom-icon-name", "new")}));
    EXPECT_EQ(iconOf(file), "new");
}

TEST_F(GvfsIconTest, ignoresTheJournalOfAnotherTree) {
    writeFile({{"custom-icon-name", "old"}});
    const Data other = metadataJournal({setEntry("/file", "custom-icon-name", "new")}, 0x11111111);
    write("home-0123abcd.log", other);
    write("home-11111111.log", other);
    EXPECT_EQ(iconOf(file), "old");
}

TEST_F(GvfsIconTest, ignoresAJournalThatIsTooLong) {
    writeFile({{"custom-icon-name", "old"}});
    std::vector<Data> entries(FileMetadata::maxJournalBytes / removeEntry("/").size() + 1, removeEntry("/"));
    write("home-0123abcd.log", metadataJournal(entries));
    EXPECT_EQ(iconOf(file), "old");
}

TEST_F(GvfsIconTest, ofWhatLiesElsewhereStandsUnderTheWholePath) {
    const std::string path = folder.url("elsewhere").path();
    MetadataItem item{path.substr(path.rfind('/') + 1), {{"custom-icon-name", "mine"}}};
    for (std::size_t end = path.rfind('/'); end != path.npos && end > 0;) {
        const std::size_t start = path.rfind('/', end - 1);
        item = {path.substr(start + 1, end - start - 1), {}, {item}};
        end = start;
    }
    write("root", metadataTree({"/", {{"custom-icon-name", "my-disk"}}, {item}}));
    EXPECT_EQ(iconOf(folder.url("elsewhere")), "mine");
    EXPECT_EQ(iconOf(FileURL::root()), "my-disk");
}

TEST_F(GvfsIconTest, aNameThatOnlyBeginsLikeHomeIsElsewhere) {
    folder.makeFolder("home2");
    write("home", metadataTree({"/", {}, {{"2", {{"custom-icon-name", "mine"}}}}}));
    EXPECT_EQ(iconOf(folder.url("home2")), "none");
}

TEST_F(GvfsIconTest, isFoundThroughLinks) {
    writeFile({{"custom-icon-name", "mine"}});
    std::filesystem::create_directory_symlink(folder.path() / "home", folder.path() / "link");
    EXPECT_EQ(iconOf(folder.url("link/file")), "mine");
    EXPECT_EQ(iconOf(file, folder.url("link").path(), std::nullopt), "mine");
}

TEST_F(GvfsIconTest, aLinkHasItsOwn) {
    write("home", metadataTree({"/",
                                {},
                                {{"file", {{"custom-icon-name", "of-the-file"}}},
                                 {"link", {{"custom-icon-name", "of-the-link"}}}}}));
    std::filesystem::create_symlink("file", folder.path() / "home/link");
    EXPECT_EQ(iconOf(folder.url("home/link")), "of-the-link");
    std::filesystem::create_symlink("file", folder.path() / "home/other");
    EXPECT_EQ(iconOf(folder.url("home/other")), "none");
}

TEST_F(GvfsIconTest, ofWhatIsGoneIsNone) {
    writeFile({{"custom-icon-name", "mine"}});
    std::filesystem::remove(file.path());
    EXPECT_EQ(iconOf(file), "none");
    EXPECT_EQ(iconOf(folder.url("home/nothing/file")), "none");
}

TEST_F(GvfsIconTest, liesInTheFolderOfData) {
    const std::string home = folder.url("home").path();
    folder.makeFolder("data/gvfs-metadata");
    folder.write("data/gvfs-metadata/home",
                 metadataTree({"/", {}, {{"file", {{"custom-icon-name", "mine"}}}}}));
    EXPECT_EQ(iconOf(file, home, folder.url("data").path()), "mine");
    EXPECT_EQ(iconOf(file, home, folder.url("nothing").path()), "none");
    // The variable counts only when it is absolute.
    writeFile({{"custom-icon-name", "usual"}});
    EXPECT_EQ(iconOf(file, home, "data"), "usual");
    EXPECT_EQ(iconOf(file, home, ""), "usual");
}

TEST_F(GvfsIconTest, needsNoHome) {
    writeFile({{"custom-icon-name", "mine"}});
    for (const auto& home : {std::optional<std::string>(), std::optional<std::string>(""),
                             std::optional<std::string>("home"), std::optional<std::string>("/nothing")})
        EXPECT_EQ(iconOf(file, home, std::nullopt), "none") << home.value_or("unset");
    EXPECT_EQ(iconOf(file, std::nullopt, folder.url("home/.local/share").path()), "none");
}

TEST_F(GvfsIconTest, aFolderThatIsAnythingElseIsNone) {
    folder.makeFolder("data");
    folder.write("data/gvfs-metadata", "custom-icon");
    EXPECT_EQ(iconOf(file, folder.url("home").path(), folder.url("data").path()), "none");
}

TEST_F(GvfsIconTest, filesThatAreNoneAreNone) {
    for (const auto* bytes : {"", "custom-icon", "\xDA\x1Ameta\1custom-icon"}) {
        write("home", bytes);
        EXPECT_EQ(iconOf(file), "none") << bytes;
    }
    const auto tree = folder.path() / "home/.local/share/gvfs-metadata/home";
    std::filesystem::remove(tree);
    ASSERT_EQ(::mkfifo(tree.c_str(), 0600), 0);
    EXPECT_EQ(iconOf(file), "none");
}

TEST_F(GvfsIconTest, aJournalThatIsAPipeIsNone) {
    writeFile({{"custom-icon-name", "old"}});
    const auto journal = folder.path() / "home/.local/share/gvfs-metadata/home-0123abcd.log";
    ASSERT_EQ(::mkfifo(journal.c_str(), 0600), 0);
    EXPECT_EQ(iconOf(file), "old");
}

} // namespace
} // namespace quillmar
