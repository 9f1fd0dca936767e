#include "Pages/FolderPage.h"

#include "Tests/Helpers/CountingIcons.h"
#include "Tests/Helpers/FolderItems.h"
#include "Tests/Helpers/Pages.h"

#include <gtest/gtest.h>

namespace quillmar::FolderPage {
namespace {

using Items = std::vector<FolderItem>;
using Strings = std::vector<std::string>;

FolderItem picture(const std::string& name) { return folderItem(name, 1, FileKind::images, "public.png"); }

FolderItem application(const std::string& name) {
    return folderItem(name, 1, FileKind::apps, "com.apple.application-bundle");
}

struct FolderPageIcons : testing::Test {
    std::string page(Items items) { return html(folderSummary(std::move(items)), assets); }

    CountingIcons icons;
    PreviewAssets assets{&icons};
};

TEST_F(FolderPageIcons, headerShowsTheFoldersOwn) {
    EXPECT_NE(page({}).find("<img class=\"icon\" src=\"cid:asset-0\" alt=\"\">"), std::string::npos);
    EXPECT_EQ(icons.askedFiles, Strings{"/home/me/Garden"});
    EXPECT_EQ(*assets.attachments().at("asset-0").data, "icon of /home/me/Garden");
}

TEST_F(FolderPageIcons, headerFallsBackToThatOfFolders) {
    icons.hasFileIcons = false;
    page({});
    EXPECT_EQ(icons.askedTypes, Strings{"public.folder"});
}

TEST_F(FolderPageIcons, headerWithoutAnyShowsThePlaceholder) {
    icons.hasFileIcons = false;
    icons.typeWithoutIcon = "public.folder";
    EXPECT_NE(page({}).find("<div class=\"icon placeholder\"></div>"), std::string::npos);
}

TEST_F(FolderPageIcons, aThousandPicturesShareOne) {
    const std::string html = page(Items(1'000, picture("a.png")));
    EXPECT_EQ(icons.askedTypes, Strings{"public.png"});
    EXPECT_EQ(icons.askedFiles.size(), 1U); // the folder's own
    EXPECT_EQ(occurrences(html, "<img src=\"cid:asset-1\" alt=\"\"><span>a.png</span>"), 1'000U);
    EXPECT_EQ(assets.attachments().size(), 2U);
}

TEST_F(FolderPageIcons, foldersShowTheirOwn) {
    const std::string html = page({childFolder("Music", 2), childFolder("Photos", 1)});
    EXPECT_EQ(icons.askedFiles,
              (Strings{"/home/me/Garden", "/home/me/Garden/Music", "/home/me/Garden/Photos"}));
    EXPECT_EQ(icons.askedTypes, Strings{});
    EXPECT_NE(html.find("<img src=\"cid:asset-1\" alt=\"\"><span>Music</span>"), std::string::npos);
    EXPECT_NE(html.find("<img src=\"cid:asset-2\" alt=\"\"><span>Photos</span>"), std::string::npos);
}

TEST_F(FolderPageIcons, foldersFallBackToThatOfFolders) {
    icons.hasFileIcons = false;
    page({childFolder("Music", 1)});
    EXPECT_EQ(icons.askedTypes, Strings{"public.folder"});
}

TEST_F(FolderPageIcons, applicationsShowTheirOwn) {
    page({application("Planner.app"), folderItem("tool.AppImage", 1, FileKind::apps, "app.quillmar.appimage")});
    EXPECT_EQ(icons.askedFiles,
              (Strings{"/home/me/Garden", "/home/me/Garden/Planner.app", "/home/me/Garden/tool.AppImage"}));
    EXPECT_EQ(icons.askedTypes, Strings{});
}

TEST_F(FolderPageIcons, applicationsFallBackToThoseOfTheirTypes) {
    icons.hasFileIcons = false;
    page({application("Planner.app"), folderItem("tool", 1, FileKind::apps)});
    EXPECT_EQ(icons.askedTypes, (Strings{"public.folder", "com.apple.application-bundle", "public.data"}));
}

TEST_F(FolderPageIcons, packagesAndLinksShowThoseOfTheirTypes) {
    page({folderItem("Plan.rtfd", 2, FileKind::documents, "com.apple.rtfd"),
          folderItem("link", 1, FileKind::other, "public.symlink")});
    EXPECT_EQ(icons.askedTypes, (Strings{"com.apple.rtfd", "public.symlink"}));
    EXPECT_EQ(icons.askedFiles.size(), 1U);
}

TEST_F(FolderPageIcons, filesWithoutTypeShowThatOfData) {
    page({folderItem("NOTICE", 1)});
    EXPECT_EQ(icons.askedTypes, Strings{"public.data"});
}

TEST_F(FolderPageIcons, aSpacerStandsWhereThereIsNone) {
    icons.typeWithoutIcon = "public.png";
    EXPECT_NE(page({picture("a.png")})
                  .find("<span class=\"name\"><span class=\"spacer\"></span><span>a.png</span></span>"),
              std::string::npos);
}

TEST_F(FolderPageIcons, onlyTheFirst150LookUpsAreOfFilesOwn) {
    Items items;
    for (int i = 1; i <= 200; ++i) items.push_back(childFolder(std::to_string(i), 1));
    const std::string html = page(items);
    EXPECT_EQ(icons.askedFiles.size(), 150U); // the folder's own among them
    EXPECT_EQ(icons.askedFiles.back(), "/home/me/Garden/149");
    EXPECT_EQ(icons.askedTypes, Strings{"public.folder"});
    EXPECT_EQ(occurrences(html, "<img src=\"cid:asset-150\" alt=\"\">"), 51U); // of 150 to 200
}

TEST_F(FolderPageIcons, areNotLookedUpForHiddenItems) {
    page({childFolder(".git", 2), picture(".a.png"), folderItem("b", 1)});
    EXPECT_EQ(icons.askedFiles, Strings{"/home/me/Garden"});
    EXPECT_EQ(icons.askedTypes, Strings{"public.data"});
}

TEST_F(FolderPageIcons, areNotLookedUpForItemsLeftOut) {
    Items items(1'000, folderItem("a", 1));
    items.push_back(picture("b.png"));
    items.push_back(application("c.app"));
    page(items);
    EXPECT_EQ(icons.askedFiles, Strings{"/home/me/Garden"});
    EXPECT_EQ(icons.askedTypes, Strings{"public.data"});
}

} // namespace
} // namespace quillmar::FolderPage
