#include "QuillmarQuickLook/Icons/BuiltInIcons.h"

#include "Platform/UniformTypeTable.h"
#include "QuillmarIconRenderer/RenderedIcon.h"
#include "QuillmarQuickLook/Icons/IconFinder.h"
#include "QuillmarQuickLook/Icons/IconNames.h"
#include "Tests/Helpers/Pictures.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>

namespace quillmar {
namespace {

/// All that there are, and what the families of types are called.
constexpr std::array names{
    "application-x-executable", "audio-x-generic",   "drive-harddisk",    "folder",
    "font-x-generic",           "image-x-generic",   "package-x-generic", "text-html",
    "text-x-generic",           "text-x-script",     "unknown",           "video-x-generic",
    "x-office-address-book",    "x-office-calendar", "x-office-document", "x-office-presentation",
    "x-office-spreadsheet"};

TEST(BuiltInIcons, canAllBeDrawn) {
    for (const char* name : names) {
        const auto png = renderedIcon(BuiltInIcons::svg(name), IconFinder::wantedSize);
        ASSERT_TRUE(png) << name;
        const Icon icon(*png);
        EXPECT_EQ(icon.width, 128U) << name;
        EXPECT_EQ(icon.height, 128U) << name;
        EXPECT_FALSE(icon.isClear()) << name;
        EXPECT_EQ(icon.at(0, 0)[3], 0) << name; // no picture with a background
    }
}

TEST(BuiltInIcons, areAllDifferent) {
    std::vector<std::string_view> pictures;
    for (const char* name : names) pictures.push_back(BuiltInIcons::svg(name));
    std::ranges::sort(pictures);
    EXPECT_EQ(std::ranges::adjacent_find(pictures), pictures.end());
}

TEST(BuiltInIcons, referToNothing) {
    for (const char* name : names) {
        EXPECT_EQ(BuiltInIcons::svg(name).find("href"), std::string_view::npos) << name;
        EXPECT_EQ(BuiltInIcons::svg(name).find("<!"), std::string_view::npos) << name;
    }
}

TEST(BuiltInIcons, haveOneForEveryType) {
    for (const auto& row : UniformTypeTable::types) {
        const auto typeNames = IconNames::ofType(UniformType::withIdentifier(row.identifier).value());
        EXPECT_TRUE(std::ranges::any_of(typeNames, [](const auto& name) {
            return !BuiltInIcons::svg(name).empty();
        })) << row.identifier;
    }
}

TEST(BuiltInIcons, haveOneForWhatNobodyKnows) {
    EXPECT_FALSE(BuiltInIcons::svg(IconNames::ofUnknown().at(0)).empty());
}

TEST(BuiltInIcons, haveNoneOfAnotherName) {
    for (const auto* name : {"", "folder.svg", "Folder", "folde", "folders", "../folder"})
        EXPECT_TRUE(BuiltInIcons::svg(name).empty()) << name;
}

} // namespace
} // namespace quillmar
