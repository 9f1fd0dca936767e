#include "Tests/QuillmarViewer/ServiceTest.h"

namespace quillmar {
namespace {

/// The service on a Wayland display that nobody sees.
class Wayland : public ServiceTest {
protected:
    static void SetUpTestSuite() {
        constexpr const char* socket = "wayland-test";
        startServicesWith({{"DISPLAY", ""}, {"GDK_BACKEND", "wayland"}, {"WAYLAND_DISPLAY", socket}});
        makeDesktop(QUILLMAR_BIN_FOLDER, [=](Desktop& desktop) {
            desktop.start({"weston", "--backend=headless-backend.so", "--no-config", "--idle-time=0",
                           std::string("--socket=").append(socket)});
            Desktop::waitUntil([&] {
                return std::filesystem::exists(
                    desktop.folder().url(std::string("runtime/").append(socket)).path());
            });
        });
    }

    static bool pageIsSeen() {
        return Desktop::waitUntil([] {
            const auto picture = page();
            return picture && picture->ink() > 0;
        });
    }
};

TEST_F(Wayland, aPageIsShown) {
    showFile(item("herbs.txt", "lovage\n"));
    EXPECT_TRUE(pageIsSeen()) << desktop().output(service());
}

TEST_F(Wayland, aSecondSpaceCloses) {
    const std::string uri = item("herbs.txt", "lovage\n");
    showFile(uri, true);
    ASSERT_TRUE(pageIsSeen());
    showFile(uri, true);
    EXPECT_TRUE(Desktop::waitUntil([] { return !isVisible(); }));
}

TEST_F(Wayland, aParentThatCannotBeFoundIsIgnored) {
    for (const char* parent : {"wayland:nobody", "wayland:", "x11:400004", "x11:0", ""}) {
        showFile(item("herbs.txt", "lovage\n"), false, parent);
        EXPECT_TRUE(pageIsSeen()) << parent;
        close();
        ASSERT_TRUE(Desktop::waitUntil([] { return !isVisible(); }));
    }
}

} // namespace
} // namespace quillmar
