#include "Tests/QuillmarViewer/ServiceTest.h"

#include <algorithm>

namespace quillmar {
namespace {

/// The file manager itself: what it calls on the bus, and what we answer. It starts the service, by way of the
/// bus.
class NautilusDrive : public testing::Test {
protected:
    void SetUp() override {
        writeServiceFile("org.gnome.NautilusPreviewer",
                         std::string(QUILLMAR_BIN_FOLDER).append("/QuillmarViewer --service --save-pictures"));
        // What else the file manager would start, and does not need here.
        for (const char* name :
             {"org.freedesktop.Tracker3.Miner.Files", "org.freedesktop.Tracker3.Miner.Files.Control",
              "org.gtk.vfs.UDisks2VolumeMonitor", "org.gtk.vfs.Daemon"})
            writeServiceFile(name, "/bin/false");
        desktop_.folder().makeFolder("shown");
        desktop_.folder().write("shown/1 first.md", squareOf(redPixel));
        desktop_.folder().write("shown/2 second.md", squareOf(bluePixel));
    }

    /// One pixel, drawn large.
    static std::string squareOf(const std::string& pixel) {
        return "# A colour\n\n<img width=\"200\" height=\"200\" src=\"data:image/png;base64," + pixel + "\">\n";
    }

    void writeServiceFile(const std::string& name, const std::string& command) {
        desktop_.folder().makeFolder("data/dbus-1/services");
        desktop_.folder().write("data/dbus-1/services/" + name + ".service",
                                "[D-BUS Service]\nName=" + name + "\nExec=" + command + "\n");
    }

    /// Calls of ShowFile up to now.
    std::ptrdiff_t shows() {
        const auto said = desktop_.bus().messages(path);
        return std::ranges::count(said, "ShowFile", &DesktopBus::Message::member);
    }
    bool wasShown(const std::string& word) {
        return Desktop::waitUntil([&] {
            const auto said = desktop_.bus().messages(path);
            return std::ranges::any_of(said, [&](const DesktopBus::Message& message) {
                return message.member == "ShowFile" && message.arguments.find(word) != std::string::npos;
            });
        });
    }
    bool windowAppears(const std::string& title) {
        return Desktop::waitUntil([&] { return desktop_.screen().window(title).has_value(); });
    }
    bool windowGoes(const std::string& title) {
        return Desktop::waitUntil([&] { return !desktop_.screen().window(title).has_value(); });
    }
    /// A press may come before the file is selected, so it is repeated until the call is seen.
    bool pressSpaceUntilShown() {
        const auto before = shows();
        return Desktop::waitUntil([&] {
            desktop_.press("space");
            constexpr std::chrono::milliseconds soon{300};
            return Desktop::waitUntil([&] { return shows() > before; }, soon);
        });
    }
    bool pageHas(Color color) {
        return Desktop::waitUntil([&] {
            const std::string file = desktop_.folder().url("page.png").path();
            const auto reply =
                desktop_.bus().call("org.gnome.NautilusPreviewer", "/app/quillmar/Viewer",
                                    "app.quillmar.Viewer", "SavePicture", g_variant_new("(s)", file.c_str()));
            const auto picture = reply.text == "(true,)" ? Picture::read(file) : std::nullopt;
            return picture && picture->has(color);
        });
    }

    static constexpr const char* path = "/org/gnome/NautilusPreviewer";
    static constexpr Color red{.red = 255, .green = 0, .blue = 0};
    static constexpr Color blue{.red = 0, .green = 0, .blue = 255};
    static constexpr const char* redPixel =
        "iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAIAAACQd1PeAAAADElEQVR42mP4z8AAAAMBAQD3A0FDAAAAAElFTkSuQmCC";
    static constexpr const char* bluePixel =
        "iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAIAAACQd1PeAAAADElEQVR42mNgYPgPAAEDAQA2dBFAAAAAAElFTkSuQmCC";

    Desktop desktop_;
};

TEST_F(NautilusDrive, spaceShowsArrowsFollowEscapeAndSpaceClose) {
    const std::string first = desktop_.folder().url("shown/1 first.md").path();
    const pid_t nautilus = desktop_.start({"nautilus", "--new-window", "--select", first});

    ASSERT_TRUE(pressSpaceUntilShown()) << desktop_.output(nautilus);
    ASSERT_TRUE(windowAppears("1 first.md"));
    EXPECT_TRUE(pageHas(red));

    desktop_.screen().focus(desktop_.screen().window("1 first.md").value_or(0));
    desktop_.press("Right");
    EXPECT_TRUE(wasShown("2%20second.md"));
    EXPECT_TRUE(windowAppears("2 second.md"));
    EXPECT_TRUE(pageHas(blue));

    desktop_.press("Escape");
    EXPECT_TRUE(windowGoes("2 second.md"));

    ASSERT_TRUE(pressSpaceUntilShown());
    ASSERT_TRUE(windowAppears("2 second.md"));
    desktop_.press("space");
    EXPECT_TRUE(windowGoes("2 second.md"));
}

} // namespace
} // namespace quillmar
