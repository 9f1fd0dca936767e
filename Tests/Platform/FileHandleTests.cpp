#include "Platform/FileHandle.h"

#include "Platform/FileError.h"
#include "Tests/Helpers/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace quillmar {
namespace {

/// The sentence of the error that opening \p url ends in.
std::string faultOf(const FileURL& url) {
    try {
        const FileHandle handle(url);
    } catch (const FileError& error) {
        return error.what();
    }
    return "none";
}

TEST(FileHandle, readsInPiecesUntilTheEnd) {
    const TemporaryFolder folder;
    FileHandle handle(folder.write("a.txt", "abcdef"));
    EXPECT_EQ(handle.read(4), "abcd");
    EXPECT_EQ(handle.read(4), "ef");
    EXPECT_EQ(handle.read(4), "");
    EXPECT_EQ(handle.read(0), "");
}

TEST(FileHandle, readsAtMostWhatIsAskedOfALargeFile) {
    const TemporaryFolder folder;
    const auto url = folder.write("a", std::string(1'000'000, 'x'));
    EXPECT_EQ(readPrefix(url, 700'001).size(), 700'001U);
    EXPECT_EQ(readPrefix(url, std::size_t{1} << 62).size(),
              1'000'000U); // takes no memory for what is not there
}

TEST(FileHandle, opensNamesOfAnyBytes) {
    const TemporaryFolder folder;
    EXPECT_EQ(readPrefix(folder.write("a\n\xFF", "x"), 9), "x");
}

TEST(FileHandle, saysThatAFileIsMissing) {
    const TemporaryFolder folder;
    EXPECT_EQ(faultOf(folder.url("gone.txt")), "There is no file named “gone.txt”.");
}

TEST(FileHandle, saysThatAFileIsPrivate) {
    if (::geteuid() == 0) {
        // Permissions do not bind root, so the sentence itself is looked at.
        EXPECT_STREQ(FileError::system(FileURL::standardized("/a", FileURL::root()), EACCES).what(),
                     "You don't have permission to view “a”.");
        return;
    }
    const TemporaryFolder folder;
    const auto url = folder.write("private.txt", "x");
    ::chmod(url.path().c_str(), 0);
    EXPECT_EQ(faultOf(url), "You don't have permission to view “private.txt”.");
}

TEST(FileHandle, neverOpensANamedPipe) {
    const TemporaryFolder folder;
    const auto url = folder.url("pipe.txt");
    ASSERT_EQ(::mkfifo(url.path().c_str(), 0600), 0);
    EXPECT_EQ(faultOf(url), "“pipe.txt” is a named pipe and has no content to preview.");
}

TEST(FileHandle, neverOpensASocket) {
    const TemporaryFolder folder;
    const auto url = folder.url("s");
    const int descriptor = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ASSERT_LT(url.path().size(), sizeof address.sun_path);
    url.path().copy(address.sun_path, url.path().size());
    ASSERT_EQ(::bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(faultOf(url), "“s” is a socket and has no content to preview.");
    ::close(descriptor);
}

TEST(FileHandle, neverOpensADevice) {
    EXPECT_EQ(faultOf(FileURL::standardized("/dev/zero", FileURL::root())),
              "“zero” is a device and has no content to preview.");
}

TEST(FileHandle, doesNotReadAPackageAsAFile) {
    const TemporaryFolder folder;
    EXPECT_EQ(faultOf(folder.makeFolder("Notes.app")),
              "“Notes.app” is a package and can't be shown as one file.");
}

TEST(FileHandle, givesTheSystemsReasonForAnythingElse) {
    const TemporaryFolder folder;
    std::filesystem::create_symlink("loop", folder.path() / "loop");
    EXPECT_EQ(faultOf(folder.url("loop")), "“loop” could not be read: Too many levels of symbolic links.");
}

} // namespace
} // namespace quillmar
