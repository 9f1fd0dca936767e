#include "Tests/QuillmarViewer/ServiceTest.h"

#include <cstdlib>

namespace quillmar {
namespace {

/// Pixels that are clearly of a colour, as marks of found words are and text is not.
int coloredPixels(const Picture& picture) {
    constexpr int clearly = 80;
    int count = 0;
    for (const Color color : picture.pixels) count += std::abs(color.red - color.blue) > clearly ? 1 : 0;
    return count;
}

/// What keys and the mouse do in the window.
class WindowKeys : public ServiceTest {
protected:
    static constexpr const char* name = "herbs.txt";

    void SetUp() override {
        ServiceTest::SetUp();
        showFile(item(name, "lovage\nlemon balm\nthyme\n"));
        ASSERT_TRUE(windowAppears(name));
        ASSERT_TRUE(Desktop::waitUntil([] {
            const auto picture = page();
            return picture && picture->ink() > 0;
        }));
    }

    static bool arrowIsSaid(const std::string& direction) {
        return wasSaid("SelectionEvent", "(" + direction + ",)");
    }
    static bool arrowWasSaid(const std::string& direction) {
        return bus().wasSaid(objectPath, {.member = "SelectionEvent", .arguments = "(" + direction + ",)"});
    }
    /// An arrow key that is heard proves that the keys before it have been dealt with.
    static bool arrowsMoveTheSelection() {
        bus().forget();
        pressIn(name, "Left");
        return arrowIsSaid("4");
    }
    static void clickInPage() {
        const auto place = screen().place(screen().window(name).value_or(0));
        desktop().click(place.x + place.width / 2, place.y + place.height / 2);
    }
    static int ink() {
        const auto picture = page();
        return picture ? picture->ink() : 0;
    }
};

TEST_F(WindowKeys, arrowsAskTheFileManagerToMoveItsSelection) {
    const std::pair<const char*, const char*> directions[] = {
        {"Up", "2"}, {"Down", "3"}, {"Left", "4"}, {"Right", "5"}};
    for (const auto& [key, direction] : directions) {
        pressIn(name, key);
        EXPECT_TRUE(arrowIsSaid(direction)) << key;
    }
}

TEST_F(WindowKeys, arrowsStayInThePageAfterTab) {
    pressIn(name, "Tab");
    pressIn(name, "Right");
    pressIn(name, "Escape");
    pressIn(name, "Left");
    EXPECT_TRUE(arrowIsSaid("4"));
    EXPECT_FALSE(arrowWasSaid("5"));
}

TEST_F(WindowKeys, arrowsStayInThePageAfterAClick) {
    clickInPage();
    pressIn(name, "Right");
    pressIn(name, "Escape");
    pressIn(name, "Left");
    EXPECT_TRUE(arrowIsSaid("4"));
    EXPECT_FALSE(arrowWasSaid("5"));
}

TEST_F(WindowKeys, escapeClosesOnceTheContentIsLeft) {
    pressIn(name, "Tab");
    pressIn(name, "Escape");
    ASSERT_TRUE(arrowsMoveTheSelection());
    EXPECT_TRUE(isVisible());
    pressIn(name, "Escape");
    EXPECT_TRUE(windowGoes(name));
    EXPECT_TRUE(Desktop::waitUntil([] { return !isVisible(); }));
}

TEST_F(WindowKeys, spaceCloses) {
    pressIn(name, "space");
    EXPECT_TRUE(windowGoes(name));
}

TEST_F(WindowKeys, spaceClosesAfterAClickInThePage) {
    clickInPage();
    pressIn(name, "space");
    EXPECT_TRUE(windowGoes(name));
}

TEST_F(WindowKeys, qCloses) {
    pressIn(name, "q");
    EXPECT_TRUE(windowGoes(name));
}

TEST_F(WindowKeys, controlWCloses) {
    pressIn(name, "ctrl+w");
    EXPECT_TRUE(windowGoes(name));
}

TEST_F(WindowKeys, anotherItemGivesTheArrowsBackToTheSelection) {
    pressIn(name, "Tab");
    showFile(item("second.txt", "sorrel\n"));
    ASSERT_TRUE(windowAppears("second.txt"));
    bus().forget();
    pressIn("second.txt", "Right");
    EXPECT_TRUE(arrowIsSaid("5"));
}

TEST_F(WindowKeys, lettersGoIntoTheFindBar) {
    pressIn(name, "ctrl+f");
    pressIn(name, "q");
    pressIn(name, "space");
    pressIn(name, "Escape"); // leaves the find bar alone
    EXPECT_TRUE(arrowsMoveTheSelection());
    EXPECT_TRUE(isVisible());
}

TEST_F(WindowKeys, findingMarksTheWord) {
    const auto window = screen().window(name);
    ASSERT_TRUE(window.has_value());
    const int before = coloredPixels(screen().picture(*window));
    pressIn(name, "ctrl+f");
    desktop().type("lovage");
    constexpr int marked = 200;
    EXPECT_TRUE(Desktop::waitUntil([&] { return coloredPixels(screen().picture(*window)) > before + marked; }));
}

TEST_F(WindowKeys, zoomIsKeptWhenTheServiceStartsAnew) {
    const int before = ink();
    for (int step = 0; step < 5; ++step) pressIn(name, "ctrl+plus");
    ASSERT_TRUE(Desktop::waitUntil([&] { return ink() > before * 5 / 4; }));
    desktop().end(service());
    startService();
    showFile(item(name, "lovage\nlemon balm\nthyme\n"));
    EXPECT_TRUE(Desktop::waitUntil([&] { return ink() > before * 5 / 4; }));
    pressIn(name, "ctrl+0");
    EXPECT_TRUE(Desktop::waitUntil([&] { return ink() == before; }));
}

TEST_F(WindowKeys, aSizeThatTheUserGivesIsKept) {
    const auto first = screen().window(name);
    ASSERT_TRUE(first.has_value());
    screen().resize(*first, 610, 330);
    ASSERT_TRUE(Desktop::waitUntil([] {
        const auto picture = page();
        return picture && picture->width == 610;
    }));
    close();
    ASSERT_TRUE(windowGoes(name));
    showFile(item("second.txt", "sorrel\n"));
    ASSERT_TRUE(windowAppears("second.txt"));
    const auto second = screen().window("second.txt");
    ASSERT_TRUE(second.has_value());
    EXPECT_EQ(screen().place(*second).width, 610);
    EXPECT_EQ(screen().place(*second).height, 330);
}

} // namespace
} // namespace quillmar
