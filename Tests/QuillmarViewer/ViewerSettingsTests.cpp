#include "QuillmarViewer/ViewerSettings.h"

#include "Tests/Helpers/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

using Size = ViewerSettings::Size;

class ViewerSettingsTest : public testing::Test {
protected:
    /// A file whose folder is not there yet.
    std::string file() const { return folder_.path() / "state/viewer.ini"; }

    TemporaryFolder folder_;
};

TEST_F(ViewerSettingsTest, haveNoSizeAndNoZoomBeforeOneIsChosen) {
    const ViewerSettings settings(file());
    EXPECT_EQ(settings.size("1280x900"), std::nullopt);
    EXPECT_EQ(settings.zoom(), 1);
}

TEST_F(ViewerSettingsTest, keepASizeForEachScreen) {
    ViewerSettings(file()).setSize("1280x900", {.width = 700, .height = 500});
    ViewerSettings(file()).setSize("2560x1440", {.width = 900, .height = 800});
    EXPECT_EQ(ViewerSettings(file()).size("1280x900"), (Size{.width = 700, .height = 500}));
    EXPECT_EQ(ViewerSettings(file()).size("2560x1440"), (Size{.width = 900, .height = 800}));
    EXPECT_EQ(ViewerSettings(file()).size("800x600"), std::nullopt);
}

TEST_F(ViewerSettingsTest, keepTheZoomBesideTheSizes) {
    ViewerSettings(file()).setZoom(1.5);
    ViewerSettings(file()).setSize("1280x900", {.width = 700, .height = 500});
    EXPECT_EQ(ViewerSettings(file()).zoom(), 1.5);
}

TEST_F(ViewerSettingsTest, takeNoZoomOutOfBounds) {
    const ViewerSettings settings(file());
    settings.setZoom(100);
    EXPECT_EQ(settings.zoom(), ViewerSettings::maxZoom);
    settings.setZoom(0);
    EXPECT_EQ(settings.zoom(), ViewerSettings::minZoom);
}

TEST_F(ViewerSettingsTest, takeScreensOfAnyName) {
    const ViewerSettings settings(file());
    for (const char* screen : {"", "a=b", "[view]", "a b\n", "\u00E9"}) {
        settings.setSize(screen, {.width = 300, .height = 200});
        EXPECT_EQ(settings.size(screen), (Size{.width = 300, .height = 200})) << screen;
    }
}

TEST_F(ViewerSettingsTest, areNothingWhereTheFileIsDamaged) {
    for (const char* text :
         {"", "\xFF\xFE", "[window size]\n1280x900=700\n", "[window size]\n1280x900=-1;5\n",
          "[window size]\n1280x900=99999999;99999999\n", "[window size]\n1280x900=a;b\n", "[view]\nzoom=nan\n",
          "[view]\nzoom=1e300\n", "[view]\nzoom=-2\n", "[view\nzoom=2"}) {
        const ViewerSettings settings(folder_.write("damaged.ini", text).path());
        EXPECT_EQ(settings.size("1280x900"), std::nullopt) << text;
        EXPECT_EQ(settings.zoom(), 1) << text;
    }
}

TEST_F(ViewerSettingsTest, areNotKeptWhereNothingCanBeWritten) {
    const ViewerSettings settings(folder_.write("file", "").path() + "/viewer.ini");
    settings.setZoom(2);
    EXPECT_EQ(settings.zoom(), 1);
}

} // namespace
} // namespace quillmar
