#include "Platform/Directory.h"

#include "Platform/FileError.h"
#include "Tests/Helpers/TemporaryFolder.h"
#include "Tests/Helpers/Unprivileged.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace quillmar {
namespace {

/// The sentence of the error that opening \p url ends in.
std::string faultOf(const FileURL& url) {
    try {
        const Directory directory(url);
    } catch (const FileError& error) {
        return error.what();
    }
    return "none";
}

FileURL urlOf(std::string_view path) { return FileURL::standardized(path, FileURL::root()); }

/// The number that the next file to be opened gets: the lowest that is free.
int nextDescriptor() {
    const int descriptor = ::open("/", O_RDONLY | O_CLOEXEC);
    ::close(descriptor);
    return descriptor;
}

TEST(Directory, tellsWhatItsItemsAre) {
    const TemporaryFolder folder;
    folder.makeFolder("folder");
    folder.write("file", "12345");
    std::filesystem::create_symlink("folder", folder.path() / "link");
    ASSERT_EQ(::mkfifo((folder.path() / "pipe").c_str(), 0600), 0);
    const Directory directory(folder.url("."));
    EXPECT_EQ(directory.status("folder")->kind, ItemKind::folder);
    EXPECT_EQ(directory.status("file")->kind, ItemKind::regularFile);
    EXPECT_EQ(directory.status("link")->kind, ItemKind::symbolicLink);
    EXPECT_EQ(directory.status("pipe")->kind, ItemKind::other);
}

TEST(Directory, tellsTheLengthOfAFile) {
    const TemporaryFolder folder;
    folder.write("file", "12345");
    EXPECT_EQ(Directory(folder.url(".")).status("file")->size, 5);
}

TEST(Directory, tellsTheLengthOfALinkItself) {
    const TemporaryFolder folder;
    folder.write("file", std::string(1'000, 'x'));
    std::filesystem::create_symlink("file", folder.path() / "link");
    EXPECT_EQ(Directory(folder.url(".")).status("link")->size, 4);
}

TEST(Directory, tellsWhenAnItemWasModified) {
    const TemporaryFolder folder;
    folder.write("file", "");
    const timespec times[2]{{.tv_sec = 1, .tv_nsec = 0}, {.tv_sec = -5, .tv_nsec = 999'999'999}};
    ASSERT_EQ(::utimensat(AT_FDCWD, folder.url("file").path().c_str(), times, 0), 0);
    EXPECT_EQ(Directory(folder.url(".")).status("file")->modified, -5); // whole seconds, rounded down
}

TEST(Directory, tellsNothingOfAnItemThatIsNotThere) {
    const TemporaryFolder folder;
    EXPECT_FALSE(Directory(folder.url(".")).status("gone"));
    EXPECT_FALSE(Directory(folder.url(".")).status(std::string(256, 'x').c_str()));
}

TEST(Directory, tellsWhenItWasModifiedItself) {
    const TemporaryFolder folder;
    const FileURL url = folder.makeFolder("a");
    const timespec times[2]{{.tv_sec = 1, .tv_nsec = 0}, {.tv_sec = 86'400, .tv_nsec = 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, url.path().c_str(), times, 0), 0);
    EXPECT_EQ(Directory(url).modified(), 86'400);
}

TEST(Directory, saysThatAFolderIsMissing) {
    const TemporaryFolder folder;
    EXPECT_EQ(faultOf(folder.url("gone")), "There is no file named “gone”.");
}

TEST(Directory, saysThatAFolderIsPrivate) {
    const Unprivileged nobody;
    const TemporaryFolder folder;
    const FileURL url = folder.makeFolder("private");
    const ScopedPermissions none(url.path(), 0);
    EXPECT_EQ(faultOf(url), "You don't have permission to view “private”.");
}

TEST(Directory, givesTheSystemsReasonForAnythingElse) {
    const TemporaryFolder folder;
    EXPECT_EQ(faultOf(folder.write("file", "")), "“file” could not be read: Not a directory.");
}

TEST(Directory, doesNotWaitAtAPipe) {
    const TemporaryFolder folder;
    ASSERT_EQ(::mkfifo((folder.path() / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(faultOf(folder.url("pipe")), "“pipe” could not be read: Not a directory.");
    const Directory child(Directory(folder.url(".")), "pipe");
    EXPECT_FALSE(child.isOpen());
}

TEST(Directory, followsALinkAtItsPlace) {
    const TemporaryFolder folder;
    folder.makeFolder("target");
    folder.write("target/file", "123");
    std::filesystem::create_directory_symlink("target", folder.path() / "link");
    EXPECT_EQ(Directory(folder.url("link")).status("file")->size, 3);
}

TEST(Directory, opensAFolderInAnother) {
    const TemporaryFolder folder;
    folder.makeFolder("a\n\xFF");
    folder.write("a\n\xFF/file", "123");
    const Directory child(Directory(folder.url(".")), "a\n\xFF");
    ASSERT_TRUE(child.isOpen());
    EXPECT_EQ(child.error(), 0);
    EXPECT_EQ(child.status("file")->size, 3);
}

TEST(Directory, doesNotFollowALinkInAnother) {
    const TemporaryFolder folder;
    folder.makeFolder("target");
    std::filesystem::create_directory_symlink("target", folder.path() / "link");
    const Directory child(Directory(folder.url(".")), "link");
    EXPECT_FALSE(child.isOpen());
    EXPECT_NE(child.error(), 0);
}

TEST(Directory, tellsWhyAFolderInAnotherIsNotOpen) {
    const Unprivileged nobody;
    const TemporaryFolder folder;
    const ScopedPermissions none(folder.makeFolder("private").path(), 0);
    folder.write("file", "");
    const Directory parent(folder.url("."));
    EXPECT_EQ(Directory(parent, "gone").error(), ENOENT);
    EXPECT_EQ(Directory(parent, "file").error(), ENOTDIR);
    EXPECT_EQ(Directory(parent, "private").error(), EACCES);
}

TEST(Directory, tellsNothingOfItemsInAFolderThatIsNotOpen) {
    const TemporaryFolder folder;
    const Directory closed(Directory(folder.url(".")), "gone");
    EXPECT_FALSE(closed.status("file"));
    EXPECT_FALSE(closed.modified());
    EXPECT_FALSE(closed.isSearchable());
    EXPECT_FALSE(closed.isOnPseudoFileSystem());
}

TEST(Directory, isClosedWhenItGoes) {
    const TemporaryFolder folder;
    const int before = nextDescriptor();
    {
        const Directory directory(folder.url("."));
        EXPECT_NE(nextDescriptor(), before);
        const Directory child(directory, "gone");
    }
    EXPECT_EQ(nextDescriptor(), before);
}

TEST(Directory, isClosedOnceWhenItHasBeenMoved) {
    const TemporaryFolder folder;
    folder.write("file", "123");
    const int before = nextDescriptor();
    {
        std::optional<Directory> first(folder.url("."));
        const Directory second(std::move(*first));
        first.reset();
        ASSERT_TRUE(second.isOpen());
        EXPECT_EQ(second.status("file")->size, 3);
    }
    EXPECT_EQ(nextDescriptor(), before);
}

TEST(Directory, staysTheSameWhenItsPlaceIsTaken) {
    const TemporaryFolder folder;
    folder.makeFolder("a");
    folder.write("a/file", "123");
    const Directory directory(folder.url("a"));
    std::filesystem::rename(folder.path() / "a", folder.path() / "b");
    folder.makeFolder("a");
    EXPECT_TRUE(directory.status("file"));
}

TEST(Directory, isSearchableWithThePermission) {
    const Unprivileged nobody;
    const TemporaryFolder folder;
    const FileURL url = folder.makeFolder("a");
    EXPECT_TRUE(Directory(url).isSearchable());
    const ScopedPermissions readOnly(url.path(), S_IRUSR);
    EXPECT_FALSE(Directory(url).isSearchable());
}

TEST(Directory, ofProcessesAndDevicesOfTheKernelIsOnAPseudoFileSystem) {
    EXPECT_TRUE(Directory(urlOf("/proc")).isOnPseudoFileSystem());
    EXPECT_TRUE(Directory(urlOf("/proc/self/fd")).isOnPseudoFileSystem());
    EXPECT_TRUE(Directory(urlOf("/sys")).isOnPseudoFileSystem());
}

TEST(Directory, ofFilesIsOnNoPseudoFileSystem) {
    const TemporaryFolder folder;
    EXPECT_FALSE(Directory(folder.url(".")).isOnPseudoFileSystem());
    EXPECT_FALSE(Directory(urlOf("/usr")).isOnPseudoFileSystem());
}

} // namespace
} // namespace quillmar
