#include "Markdown/LocalImageFiles.h"

#include "Tests/Helpers/TemporaryFolder.h"
#include "Tests/Helpers/Unprivileged.h"

#include <gtest/gtest.h>
#include <limits>
#include <sys/stat.h>

namespace quillmar {
namespace {

class LocalImageFilesTest : public testing::Test {
protected:
    std::optional<ImageFiles::Image> image(const FileURL& url, std::int64_t maxBytes = 100) {
        return files.image(url, maxBytes);
    }

    TemporaryFolder folder;
    LocalImageFiles files;
};

TEST_F(LocalImageFilesTest, readsAFileWithItsType) {
    const auto found = image(folder.write("plan.png", "pixels\xFF\n"));
    ASSERT_TRUE(found);
    EXPECT_EQ(*found->data, "pixels\xFF\n");
    EXPECT_EQ(found->typeIdentifier, "public.png");
}

TEST_F(LocalImageFilesTest, readsAFileOfUnknownTypeAsAnImage) {
    const auto found = image(folder.write("plan", "pixels"));
    ASSERT_TRUE(found);
    EXPECT_EQ(found->typeIdentifier, "public.image");
}

TEST_F(LocalImageFilesTest, readsAFileOfExactlyTheLimit) {
    const FileURL url = folder.write("plan.png", "pixels");
    ASSERT_TRUE(image(url, 6));
    EXPECT_EQ(*image(url, 6)->data, "pixels");
    EXPECT_EQ(*image(url, std::numeric_limits<std::int64_t>::max())->data, "pixels");
}

TEST_F(LocalImageFilesTest, readsNothingOfALargerFile) {
    const FileURL url = folder.write("plan.png", "pixels");
    for (const std::int64_t limit :
         {std::int64_t{5}, std::int64_t{0}, std::int64_t{-1}, std::numeric_limits<std::int64_t>::min()})
        EXPECT_FALSE(image(url, limit)) << limit;
}

TEST_F(LocalImageFilesTest, readsAnEmptyFileWhateverTheLimit) {
    const FileURL url = folder.write("plan.png", "");
    ASSERT_TRUE(image(url, 0));
    EXPECT_EQ(*image(url, 0)->data, "");
    EXPECT_FALSE(image(url, -1));
}

TEST_F(LocalImageFilesTest, readsNothingOfAFileThatHidesItsSize) {
    // The kernel reports no size for files that it makes up while they are read, and may keep readers waiting.
    const auto found = image(FileURL::standardized("/proc/version", FileURL::root()), 5);
    ASSERT_TRUE(found);
    EXPECT_EQ(*found->data, "");
}

TEST_F(LocalImageFilesTest, readsTheTargetOfALink) {
    folder.write("photo.jpg", "pixels");
    std::filesystem::create_symlink("photo.jpg", folder.path() / "plan.png");
    const auto found = image(folder.url("plan.png"));
    ASSERT_TRUE(found);
    EXPECT_EQ(*found->data, "pixels");
    EXPECT_EQ(found->typeIdentifier, "public.jpeg");
}

TEST_F(LocalImageFilesTest, findsNothingThatIsNoFile) {
    ASSERT_EQ(::mkfifo((folder.path() / "pipe.png").c_str(), 0600), 0);
    std::filesystem::create_symlink("gone.png", folder.path() / "broken.png");
    std::filesystem::create_symlink("loop.png", folder.path() / "loop.png");
    folder.makeFolder("folder.png");
    for (const char* name : {"pipe.png", "broken.png", "loop.png", "folder.png", "gone.png", "/dev/zero", "/"})
        EXPECT_FALSE(image(folder.url(name))) << name;
}

TEST_F(LocalImageFilesTest, findsNothingThatMayNotBeRead) {
    const FileURL url = folder.write("plan.png", "pixels");
    const ScopedPermissions openFolder(folder.path(), 0755);
    const ScopedPermissions noFile(url.path(), 0);
    const Unprivileged unprivileged;
    EXPECT_FALSE(image(url));
}

} // namespace
} // namespace quillmar
