#include "Platform/ResourceValues.h"

#include "Tests/Helpers/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace quillmar {
namespace {

std::optional<UniformType> type(std::string_view identifier) { return UniformType::withIdentifier(identifier); }

TEST(ResourceValues, ofAFileAreItsTypeAndSize) {
    const TemporaryFolder folder;
    const ResourceValues expected{.isDirectory = false,
                                  .isPackage = false,
                                  .contentType = type("net.daringfireball.markdown"),
                                  .fileSize = 5};
    EXPECT_EQ(resourceValues(folder.write("a.md", "12345")), expected);
}

TEST(ResourceValues, ofAFileWithoutKnownExtensionHaveNoType) {
    const TemporaryFolder folder;
    EXPECT_EQ(resourceValues(folder.write("README", ""))->contentType, std::nullopt);
    EXPECT_EQ(resourceValues(folder.write("a.unheard-of", ""))->contentType, std::nullopt);
}

TEST(ResourceValues, ofAFolderHaveNoSize) {
    const TemporaryFolder folder;
    const ResourceValues expected{.isDirectory = true,
                                  .isPackage = false,
                                  .contentType = type("public.folder"),
                                  .fileSize = std::nullopt};
    EXPECT_EQ(resourceValues(folder.makeFolder("notes.txt")), expected);
}

TEST(ResourceValues, tellAPackageFromAFolderByItsExtension) {
    const TemporaryFolder folder;
    const auto values = resourceValues(folder.makeFolder("Notes.APP"));
    EXPECT_TRUE(values->isDirectory);
    EXPECT_TRUE(values->isPackage);
    EXPECT_EQ(values->contentType, type("com.apple.application-bundle"));
}

TEST(ResourceValues, ofALinkAreItsTargets) {
    const TemporaryFolder folder;
    folder.write("target.py", "123");
    std::filesystem::create_symlink("target.py", folder.path() / "link.md");
    const auto values = resourceValues(folder.url("link.md"));
    EXPECT_EQ(values->contentType, type("public.python-script"));
    EXPECT_EQ(values->fileSize, 3);
    EXPECT_FALSE(resourceValues(folder.makeFolder("sub"))->isPackage);
    std::filesystem::create_directory_symlink("sub", folder.path() / "folder.app");
    EXPECT_FALSE(resourceValues(folder.url("folder.app"))->isPackage);
}

TEST(ResourceValues, ofASpecialFileAreEmpty) {
    const TemporaryFolder folder;
    ASSERT_EQ(::mkfifo((folder.path() / "pipe.md").c_str(), 0600), 0);
    EXPECT_EQ(resourceValues(folder.url("pipe.md")), ResourceValues{});
}

TEST(ResourceValues, areAbsentForWhatIsNotThere) {
    const TemporaryFolder folder;
    std::filesystem::create_symlink("nowhere", folder.path() / "broken");
    EXPECT_EQ(resourceValues(folder.url("gone")), std::nullopt);
    EXPECT_EQ(resourceValues(folder.url("broken")), std::nullopt);
}

TEST(ItemExists, isTrueForABrokenLink) {
    const TemporaryFolder folder;
    std::filesystem::create_symlink("nowhere", folder.path() / "broken");
    EXPECT_TRUE(itemExists(folder.url("broken")));
    EXPECT_FALSE(itemExists(folder.url("gone")));
    EXPECT_FALSE(itemExists(folder.url("broken/inside")));
}

} // namespace
} // namespace quillmar
