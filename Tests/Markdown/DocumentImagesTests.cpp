#include "Markdown/DocumentImages.h"

#include "Markdown/LocalImageFiles.h"
#include "Markdown/MarkdownLimits.h"
#include "Tests/Helpers/TemporaryFolder.h"
#include "Tests/Helpers/Unprivileged.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quillmar {
namespace {

using namespace std::string_literals;

constexpr std::uintmax_t maxImageBytes = 8'388'608;

using Reference = std::optional<std::string>;

/// A folder "docs" with a document's images, within another folder.
class DocumentImagesTest : public testing::Test {
protected:
    DocumentImagesTest() : images(outer.makeFolder("docs"), files, assets) {}

    /// A file of zeroes that takes no room on the disk.
    void writeSparse(const std::string& name, std::uintmax_t size) const {
        outer.write(name, "");
        std::filesystem::resize_file(outer.path() / name, size);
    }

    void link(const std::string& target, const std::string& name) const {
        std::filesystem::create_symlink(target, outer.path() / name);
    }

    std::string pathOf(const std::string& name) const { return outer.url(name).path(); }

    const PreviewAssets::Attachment& attachment(const std::string& name) const {
        return assets.attachments().at(name);
    }

    /// The type given to the image at \p path, which must be found.
    std::string typeOf(const std::string& path) {
        const Reference reference = images.attach(path);
        return reference ? attachment(reference->substr(4)).typeIdentifier : "not found";
    }

    /// How many of \p times references of the image at \p path are attached.
    int attached(const std::string& path, int times) {
        int count = 0;
        for (int i = 0; i < times; ++i) count += images.attach(path) ? 1 : 0;
        return count;
    }

    TemporaryFolder outer;
    PreviewAssets assets{nullptr};
    LocalImageFiles files;
    DocumentImages images;
};

TEST_F(DocumentImagesTest, findsAnImageBesideTheDocument) {
    outer.write("docs/plan.png", "pixels");
    EXPECT_EQ(images.attach("plan.png"), "cid:asset-0");
    EXPECT_EQ(*attachment("asset-0").data, "pixels");
    EXPECT_EQ(attachment("asset-0").typeIdentifier, "public.png");
}

TEST_F(DocumentImagesTest, findsAnImageInAFolderBesideTheDocument) {
    outer.makeFolder("docs/beds/roses");
    outer.write("docs/beds/roses/plan.png", "pixels");
    EXPECT_TRUE(images.attach("beds/roses/plan.png"));
    EXPECT_TRUE(images.attach("./beds//roses/./plan.png"));
}

TEST_F(DocumentImagesTest, findsAnImageInTheFolderAround) {
    outer.write("plan.png", "pixels");
    EXPECT_TRUE(images.attach("../plan.png"));
    EXPECT_TRUE(images.attach("gone/../../plan.png"));
}

TEST_F(DocumentImagesTest, findsAnImageByItsWholePath) {
    outer.write("plan.png", "pixels");
    EXPECT_TRUE(images.attach(pathOf("plan.png")));
    EXPECT_TRUE(images.attach("/../../.." + pathOf("plan.png")));
}

TEST_F(DocumentImagesTest, findsAnImageWhateverBytesNameIt) {
    outer.write("docs/\xFF \n\u00E9.png", "pixels");
    EXPECT_TRUE(images.attach("\xFF \n\u00E9.png"));
}

TEST_F(DocumentImagesTest, distinguishesCase) {
    outer.write("docs/plan.png", "pixels");
    EXPECT_FALSE(images.attach("Plan.png"));
}

TEST_F(DocumentImagesTest, findsNothingWhereNothingIs) {
    EXPECT_FALSE(images.attach("gone.png"));
    EXPECT_FALSE(images.attach("gone/plan.png"));
    EXPECT_FALSE(images.attach(std::string(100'000, 'x')));
    EXPECT_TRUE(assets.attachments().empty());
}

TEST_F(DocumentImagesTest, doesNotAttachFolders) {
    outer.makeFolder("docs/plan.png");
    outer.makeFolder("docs/Plan.app");
    for (const auto* path : {"plan.png", "Plan.app", "", ".", "..", "/"})
        EXPECT_FALSE(images.attach(path)) << path;
}

TEST_F(DocumentImagesTest, doesNotOpenPipesOrDevices) {
    ASSERT_EQ(::mkfifo(pathOf("docs/plan.png").c_str(), 0600), 0);
    EXPECT_FALSE(images.attach("plan.png"));
    EXPECT_FALSE(images.attach("/dev/zero"));
}

TEST_F(DocumentImagesTest, doesNotCutAPathAtAZeroByte) {
    outer.write("docs/plan.png", "pixels");
    EXPECT_FALSE(images.attach("plan.png\0"s));
    EXPECT_FALSE(images.attach("plan.png\0.jpg"s));
    EXPECT_FALSE(images.attach("\0"s));
}

TEST_F(DocumentImagesTest, doesNotAttachWhatMayNotBeRead) {
    outer.write("docs/plan.png", "pixels");
    const ScopedPermissions none(pathOf("docs/plan.png"), 0);
    const Unprivileged nobody;
    EXPECT_FALSE(images.attach("plan.png"));
    EXPECT_TRUE(assets.attachments().empty());
}

TEST_F(DocumentImagesTest, attachesAnEmptyFile) {
    outer.write("docs/empty.png", "");
    EXPECT_TRUE(images.attach("empty.png"));
    EXPECT_EQ(*attachment("asset-0").data, "");
}

TEST_F(DocumentImagesTest, knowsTheTypeByTheExtension) {
    for (const auto& [name, type] :
         std::initializer_list<std::pair<std::string, std::string>>{{"a.png", "public.png"},
                                                                    {"a.PNG", "public.png"},
                                                                    {"a.b.jpeg", "public.jpeg"},
                                                                    {"a.gif", "com.compuserve.gif"},
                                                                    {"a.svg", "public.svg-image"},
                                                                    {"a.pdf", "com.adobe.pdf"},
                                                                    {"a.txt", "public.plain-text"}}) {
        outer.write("docs/" + name, "x");
        EXPECT_EQ(typeOf(name), type) << name;
    }
}

TEST_F(DocumentImagesTest, takesAFileWithoutKnownExtensionForAnImage) {
    for (const auto* name : {"plan", "plan.unheard-of", ".png"}) {
        outer.write(std::string("docs/") + name, "x");
        EXPECT_EQ(typeOf(name), "public.image") << name;
    }
}

TEST_F(DocumentImagesTest, knowsTheTypeOfALinkByItsTarget) {
    outer.write("photo.jpg", "pixels");
    outer.write("photo", "pixels");
    link("../photo.jpg", "docs/plan.png");
    link("../photo", "docs/other.png");
    link("plan.png", "docs/link-of-a-link");
    EXPECT_EQ(typeOf("plan.png"), "public.jpeg");
    EXPECT_EQ(typeOf("other.png"), "public.image");
    EXPECT_EQ(typeOf("link-of-a-link"), "public.jpeg");
    EXPECT_EQ(*attachment("asset-0").data, "pixels");
}

TEST_F(DocumentImagesTest, knowsTheSizeOfALinkByItsTarget) {
    writeSparse("large.png", maxImageBytes + 1);
    link("../large.png", "docs/plan.png");
    EXPECT_FALSE(images.attach("plan.png"));
}

TEST_F(DocumentImagesTest, findsNothingBehindALinkThatLeadsNowhere) {
    link("gone.png", "docs/broken.png");
    link("loop.png", "docs/loop.png");
    link("..", "docs/folder.png");
    EXPECT_FALSE(images.attach("broken.png"));
    EXPECT_FALSE(images.attach("loop.png"));
    EXPECT_FALSE(images.attach("folder.png"));
}

TEST_F(DocumentImagesTest, resolvesDotsByTheTextOfAPath) {
    outer.makeFolder("elsewhere/deep");
    link("../elsewhere/deep", "docs/beds");
    outer.write("elsewhere/plan.png", "the link's way");
    outer.write("docs/plan.png", "the text's way");
    EXPECT_TRUE(images.attach("beds/../plan.png"));
    EXPECT_EQ(*attachment("asset-0").data, "the text's way");
}

TEST_F(DocumentImagesTest, attachesAnImageOfExactlyTheLimit) {
    ASSERT_EQ(MarkdownLimits::maxImageBytes, static_cast<std::int64_t>(maxImageBytes));
    writeSparse("docs/plan.png", maxImageBytes);
    EXPECT_TRUE(images.attach("plan.png"));
    EXPECT_EQ(attachment("asset-0").data->size(), maxImageBytes);
}

TEST_F(DocumentImagesTest, doesNotAttachALargerImage) {
    writeSparse("docs/plan.png", maxImageBytes + 1);
    EXPECT_FALSE(images.attach("plan.png"));
    EXPECT_TRUE(assets.attachments().empty());
}

TEST_F(DocumentImagesTest, attachesAnImageOnceForEachReference) {
    outer.write("docs/plan.png", "pixels");
    EXPECT_EQ(images.attach("plan.png"), "cid:asset-0");
    EXPECT_EQ(images.attach("plan.png"), "cid:asset-1");
    EXPECT_EQ(assets.attachments().size(), 2U);
}

TEST_F(DocumentImagesTest, readsAnImageOnce) {
    outer.write("docs/plan.png", "pixels");
    EXPECT_TRUE(images.attach("plan.png"));
    outer.write("docs/plan.png", "others");
    EXPECT_TRUE(images.attach("./plan.png"));
    EXPECT_TRUE(images.attach(pathOf("docs/plan.png")));
    EXPECT_EQ(attachment("asset-1").data, attachment("asset-0").data);
    EXPECT_EQ(attachment("asset-2").data, attachment("asset-0").data);
    EXPECT_EQ(attachment("asset-2").typeIdentifier, "public.png");
}

TEST_F(DocumentImagesTest, looksForAMissingImageOnce) {
    EXPECT_FALSE(images.attach("plan.png"));
    outer.write("docs/plan.png", "pixels");
    EXPECT_FALSE(images.attach("plan.png"));
}

TEST_F(DocumentImagesTest, tellsImagesApart) {
    outer.write("docs/a.png", "a");
    outer.write("docs/b.gif", "b");
    for (const auto* path : {"a.png", "b.gif", "a.png"}) EXPECT_TRUE(images.attach(path));
    EXPECT_EQ(*attachment("asset-1").data, "b");
    EXPECT_EQ(attachment("asset-1").typeIdentifier, "com.compuserve.gif");
    EXPECT_EQ(*attachment("asset-2").data, "a");
}

TEST_F(DocumentImagesTest, countsEveryReferenceToTheTotal) {
    ASSERT_EQ(MarkdownLimits::maxAttachedImageBytes, 256 * 1024 * 1024);
    writeSparse("docs/plan.png", maxImageBytes);
    EXPECT_EQ(attached("plan.png", 40), 32);
    EXPECT_EQ(assets.attachments().size(), 32U);
}

TEST_F(DocumentImagesTest, countsTheReferencesOfAllImagesTogether) {
    writeSparse("docs/a.png", maxImageBytes);
    writeSparse("docs/b.png", maxImageBytes);
    EXPECT_EQ(attached("a.png", 20), 20);
    EXPECT_EQ(attached("b.png", 20), 12);
}

TEST_F(DocumentImagesTest, leavesTheRestToSmallerImages) {
    writeSparse("docs/large.png", maxImageBytes);
    writeSparse("docs/also-large.png", maxImageBytes);
    writeSparse("docs/exact.png", maxImageBytes - 1);
    outer.write("docs/small.png", "x");
    EXPECT_EQ(attached("large.png", 31), 31);
    EXPECT_TRUE(images.attach("small.png"));
    EXPECT_FALSE(images.attach("large.png"));
    EXPECT_FALSE(images.attach("also-large.png"));
    EXPECT_TRUE(images.attach("exact.png"));
    EXPECT_FALSE(images.attach("small.png"));
}

TEST_F(DocumentImagesTest, attachesAnEmptyFileWhenTheTotalIsReached) {
    writeSparse("docs/large.png", maxImageBytes);
    outer.write("docs/empty.png", "");
    EXPECT_EQ(attached("large.png", 32), 32);
    EXPECT_TRUE(images.attach("empty.png"));
}

TEST_F(DocumentImagesTest, doesNotCountWhatIsNotAttached) {
    writeSparse("docs/plan.png", maxImageBytes);
    writeSparse("docs/larger.png", maxImageBytes + 1);
    outer.makeFolder("docs/folder.png");
    EXPECT_EQ(attached("larger.png", 40), 0);
    EXPECT_EQ(attached("gone.png", 40), 0);
    EXPECT_EQ(attached("folder.png", 40), 0);
    EXPECT_EQ(attached("plan.png", 33), 32);
}

} // namespace
} // namespace quillmar
