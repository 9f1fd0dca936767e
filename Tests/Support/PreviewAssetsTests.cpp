#include "Support/PreviewAssets.h"

#include "Tests/Helpers/CountingIcons.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

FileURL file(int number) { return FileURL::standardized("/" + std::to_string(number), FileURL::root()); }

TEST(PreviewAssets, namesAttachmentsInTheirOrder) {
    PreviewAssets assets(nullptr);
    EXPECT_EQ(assets.add("first", "public.png"), "cid:asset-0");
    EXPECT_EQ(assets.add("second", "public.jpeg"), "cid:asset-1");
    ASSERT_EQ(assets.attachments().size(), 2U);
    EXPECT_EQ(*assets.attachments().at("asset-0").data, "first");
    EXPECT_EQ(assets.attachments().at("asset-1").typeIdentifier, "public.jpeg");
}

TEST(PreviewAssets, sharesTheBytesOfAFileThatIsAttachedTwice) {
    PreviewAssets assets(nullptr);
    const auto bytes = std::make_shared<const Data>("picture");
    assets.add(bytes, "public.png");
    assets.add(bytes, "public.png");
    EXPECT_EQ(assets.attachments().at("asset-0").data, assets.attachments().at("asset-1").data);
}

TEST(PreviewAssets, attachesTheIconOfAFileOnce) {
    CountingIcons icons;
    PreviewAssets assets(&icons);
    EXPECT_EQ(assets.fileIcon(file(1), "public.data"), "cid:asset-0");
    EXPECT_EQ(assets.fileIcon(file(1), "public.data"), "cid:asset-0");
    EXPECT_EQ(icons.askedFiles.size(), 1U);
    EXPECT_EQ(assets.attachments().at("asset-0").typeIdentifier, "public.png");
}

TEST(PreviewAssets, spendsTheBudgetOnRepeatedFilesToo) {
    CountingIcons icons;
    PreviewAssets assets(&icons);
    for (int i = 0; i < 150; ++i) assets.fileIcon(file(1), "public.data");
    EXPECT_EQ(assets.fileIcon(file(1), "public.data"), "cid:asset-1");
    EXPECT_EQ(icons.askedTypes, std::vector<std::string>{"public.data"});
}

TEST(PreviewAssets, usesTheFallbackTypeFromThe151stFileOn) {
    CountingIcons icons;
    PreviewAssets assets(&icons);
    for (int i = 0; i < 150; ++i) assets.fileIcon(file(i), "public.folder");
    EXPECT_EQ(icons.askedFiles.size(), 150U);
    EXPECT_EQ(assets.fileIcon(file(150), "public.folder"), assets.typeIcon("public.folder"));
    EXPECT_EQ(icons.askedFiles.size(), 150U);
}

TEST(PreviewAssets, fallsBackToTheTypeOfAFileWithoutIcon) {
    CountingIcons icons;
    icons.hasFileIcons = false;
    PreviewAssets assets(&icons);
    EXPECT_EQ(assets.fileIcon(file(1), "public.data"), "cid:asset-0");
    EXPECT_EQ(assets.fileIcon(file(1), "public.folder"), "cid:asset-1");
    EXPECT_EQ(icons.askedFiles.size(), 1U);
}

TEST(PreviewAssets, doesNotRepeatALookUpThatFailed) {
    CountingIcons icons;
    icons.typeWithoutIcon = "public.data";
    PreviewAssets assets(&icons);
    EXPECT_EQ(assets.typeIcon("public.data"), std::nullopt);
    EXPECT_EQ(assets.typeIcon("public.data"), std::nullopt);
    EXPECT_EQ(icons.askedTypes.size(), 1U);
}

TEST(PreviewAssets, hasNoIconsWithoutASource) {
    PreviewAssets assets(nullptr);
    EXPECT_EQ(assets.typeIcon("public.data"), std::nullopt);
    EXPECT_EQ(assets.fileIcon(file(1), "public.data"), std::nullopt);
    EXPECT_TRUE(assets.attachments().empty());
}

} // namespace
} // namespace quillmar
