#include "Tests/QuillmarViewer/ServiceTest.h"
#include "Tests/QuillmarViewer/SettingsPortal.h"

#include <algorithm>

namespace quillmar {
namespace {

using Scheme = SettingsPortal::Scheme;

constexpr Color darkGround{.red = 10, .green = 10, .blue = 10};
constexpr Color lightGround{.red = 255, .green = 255, .blue = 255};

/// On a desktop that is light or dark.
class ColorSchemes : public ServiceTest {
protected:
    static void SetUpTestSuite() {
        makeDesktop(QUILLMAR_BIN_FOLDER,
                    [](Desktop& desktop) { portal_ = std::make_unique<SettingsPortal>(desktop.busAddress()); });
    }
    static void TearDownTestSuite() {
        portal_.reset();
        ServiceTest::TearDownTestSuite();
    }
    static SettingsPortal& portal() { return *portal_; }

private:
    static std::unique_ptr<SettingsPortal> portal_;
};

std::unique_ptr<SettingsPortal> ColorSchemes::portal_;

TEST_F(ColorSchemes, aPageFollowsTheDesktopWhileItIsShown) {
    portal().choose(Scheme::dark);
    showFile(item("herbs.md", "# Herbs\n"));
    EXPECT_TRUE(pageBecomes(darkGround));
    portal().choose(Scheme::light);
    EXPECT_TRUE(pageBecomes(lightGround));
    portal().choose(Scheme::dark);
    EXPECT_TRUE(pageBecomes(darkGround));
}

TEST_F(ColorSchemes, nothingBrightIsSeenBeforeADarkPage) {
    portal().choose(Scheme::dark);
    const std::string path = desktop().folder().write("night.md", "# Night\n").path();
    const pid_t viewer = desktop().start({std::string(QUILLMAR_BIN_FOLDER).append("/QuillmarQuickLook"), path});
    ASSERT_TRUE(windowAppears("night.md"));
    const auto window = screen().window("night.md");
    const auto place = screen().place(window.value_or(0));
    std::vector<Color> seen;
    EXPECT_TRUE(Desktop::waitUntil([&] {
        seen.push_back(screen().colorAt(window.value_or(0), place.width / 2, place.height / 2));
        return seen.back() == darkGround;
    }));
    constexpr int bright = 128;
    EXPECT_TRUE(std::ranges::all_of(seen, [](Color color) { return color.red < bright; }));
    desktop().end(viewer);
}

} // namespace
} // namespace quillmar
