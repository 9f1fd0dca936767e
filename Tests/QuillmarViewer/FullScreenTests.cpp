#include "Tests/QuillmarViewer/ServiceTest.h"

namespace quillmar {
namespace {

/// With a window manager, without which no window fills the screen.
class FullScreen : public ServiceTest {
protected:
    void SetUp() override {
        manager_ = desktop().start({"openbox"});
        ASSERT_TRUE(Desktop::waitUntil([] { return screen().hasWindowManager(); }))
            << desktop().output(manager_);
        ServiceTest::SetUp();
        showFile(item("herbs.txt", "lovage\n"));
        ASSERT_TRUE(Desktop::waitUntil([] { return width() > 0; }));
    }
    void TearDown() override {
        ServiceTest::TearDown();
        desktop().end(manager_);
    }

    static int width() {
        const auto picture = page();
        return picture ? picture->width : 0;
    }
    static bool widthBecomes(int wanted) {
        return Desktop::waitUntil([=] { return width() == wanted; });
    }

    static constexpr int screenWidth = 1'280;

private:
    pid_t manager_ = -1;
};

TEST_F(FullScreen, beginsAndEndsWithF11) {
    const int before = width();
    ASSERT_NE(before, screenWidth);
    desktop().press("F11");
    EXPECT_TRUE(widthBecomes(screenWidth));
    desktop().press("F11");
    EXPECT_TRUE(widthBecomes(before));
}

TEST_F(FullScreen, lastsWhenAnotherItemIsSelected) {
    desktop().press("F11");
    ASSERT_TRUE(widthBecomes(screenWidth));
    const int before = page()->ink();
    showFile(item("trees.txt", "alder, beech, elm\nmaple, oak, rowan\nspruce, willow, yew\n"));
    ASSERT_TRUE(Desktop::waitUntil([=] { return page()->ink() > before * 3 / 2; }));
    EXPECT_EQ(width(), screenWidth);
}

TEST_F(FullScreen, isNotTheNextWindowsSize) {
    const int before = width();
    desktop().press("F11");
    ASSERT_TRUE(widthBecomes(screenWidth));
    close();
    ASSERT_TRUE(Desktop::waitUntil([] { return !isVisible(); }));
    showFile(item("herbs.txt", "lovage\n"));
    EXPECT_TRUE(widthBecomes(before));
}

} // namespace
} // namespace quillmar
