#include "Tests/QuillmarViewer/Desktop.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

/// The command on a desktop, without any service.
class CommandLineDrive : public testing::Test {
protected:
    static void SetUpTestSuite() { desktop_ = std::make_unique<Desktop>(); }
    static void TearDownTestSuite() { desktop_.reset(); }

    static Desktop& desktop() { return *desktop_; }
    static std::string program(const std::string& name) {
        return std::string(QUILLMAR_BIN_FOLDER).append("/").append(name);
    }
    static std::string path(const std::string& name) {
        return desktop().folder().write(name, "words of " + name + "\n").path();
    }
    static pid_t quickLook(const Desktop::Arguments& paths, const Desktop::Environment& changes = {}) {
        Desktop::Arguments arguments{program("QuillmarQuickLook")};
        arguments.insert(arguments.end(), paths.begin(), paths.end());
        return desktop().start(arguments, changes);
    }
    static bool windowAppears(const std::string& title) {
        return Desktop::waitUntil([&] { return desktop().screen().window(title).has_value(); });
    }
    static void pressIn(const std::string& title, const std::string& key) {
        ASSERT_TRUE(windowAppears(title));
        desktop().screen().focus(desktop().screen().window(title).value_or(0));
        desktop().press(key);
    }
    /// Calls that go to nobody until \p program has its name.
    static void showWhenReady(const std::string& uri) {
        constexpr const char* name = "org.gnome.NautilusPreviewer";
        ASSERT_TRUE(Desktop::waitUntil([] { return desktop().bus().hasOwner(name); }));
        desktop().bus().call(name, "/org/gnome/NautilusPreviewer", "org.gnome.NautilusPreviewer2", "ShowFile",
                             g_variant_new("(ssb)", uri.c_str(), "x11:0", FALSE));
    }

private:
    static std::unique_ptr<Desktop> desktop_;
};

std::unique_ptr<Desktop> CommandLineDrive::desktop_;

TEST_F(CommandLineDrive, itemsAreShownOneAfterTheOther) {
    const pid_t viewer = quickLook({path("first.txt"), path("second.txt")});
    ASSERT_TRUE(windowAppears("first.txt"));
    pressIn("first.txt", "Right");
    EXPECT_TRUE(windowAppears("second.txt"));
    pressIn("second.txt", "Left");
    EXPECT_TRUE(windowAppears("first.txt"));
    pressIn("first.txt", "Escape");
    EXPECT_EQ(desktop().exitStatus(viewer), 0);
}

TEST_F(CommandLineDrive, theFirstItemHasNoneBeforeItAndTheLastNoneBehind) {
    const pid_t viewer = quickLook({path("first.txt"), path("second.txt")});
    pressIn("first.txt", "Left");
    pressIn("first.txt", "Down");
    EXPECT_TRUE(windowAppears("second.txt"));
    pressIn("second.txt", "Right");
    pressIn("second.txt", "Up");
    EXPECT_TRUE(windowAppears("first.txt"));
    pressIn("first.txt", "space");
    EXPECT_EQ(desktop().exitStatus(viewer), 0);
}

TEST_F(CommandLineDrive, aNameLikeAnOptionIsShown) {
    const pid_t viewer = quickLook({"--", path("--service")});
    EXPECT_TRUE(windowAppears("--service"));
    pressIn("--service", "Escape");
    EXPECT_EQ(desktop().exitStatus(viewer), 0);
}

TEST_F(CommandLineDrive, aWindowOpensWithoutADesktopBus) {
    const pid_t viewer =
        quickLook({path("alone.txt")}, {{"DBUS_SESSION_BUS_ADDRESS", ""},
                                        {"XDG_RUNTIME_DIR", desktop().folder().makeFolder("empty").path()}});
    EXPECT_TRUE(windowAppears("alone.txt")) << desktop().output(viewer);
    pressIn("alone.txt", "Escape");
    EXPECT_EQ(desktop().exitStatus(viewer), 0);
}

TEST_F(CommandLineDrive, withoutADisplayItSaysWhatWritesThePage) {
    const pid_t command = quickLook({path("first.txt")}, {{"DISPLAY", ""}});
    EXPECT_EQ(desktop().exitStatus(command), 1);
    EXPECT_NE(desktop().output(command).find("--html"), std::string::npos) << desktop().output(command);
}

TEST_F(CommandLineDrive, aDisplayThatIsNotThereIsSaid) {
    const pid_t command = quickLook({path("first.txt")}, {{"DISPLAY", ":9999"}});
    EXPECT_EQ(desktop().exitStatus(command), 1);
    EXPECT_NE(desktop().output(command).find("--html"), std::string::npos) << desktop().output(command);
}

TEST_F(CommandLineDrive, aServiceWithoutADisplaySaysSoWhenItIsAsked) {
    const pid_t service = desktop().start({program("QuillmarViewer"), "--service"}, {{"DISPLAY", ""}});
    showWhenReady("file:///etc/hostname");
    EXPECT_EQ(desktop().exitStatus(service), 1);
    EXPECT_NE(desktop().output(service).find("no display"), std::string::npos) << desktop().output(service);
}

TEST_F(CommandLineDrive, aServiceWithoutABusSaysSo) {
    const pid_t service = desktop().start(
        {program("QuillmarViewer"), "--service"},
        {{"DBUS_SESSION_BUS_ADDRESS", ""}, {"XDG_RUNTIME_DIR", desktop().folder().makeFolder("empty").path()}});
    EXPECT_EQ(desktop().exitStatus(service), 1);
    EXPECT_NE(desktop().output(service).find("bus"), std::string::npos) << desktop().output(service);
}

TEST_F(CommandLineDrive, aServiceLeavesNothingBehindWhenNobodyAsksAnyMore) {
    const pid_t service = desktop().start({program("QuillmarViewer"), "--service", "--idle-seconds=1"});
    const std::string uri = "file://" + path("asked.txt");
    showWhenReady(uri);
    ASSERT_TRUE(windowAppears("asked.txt"));
    pressIn("asked.txt", "Escape");
    EXPECT_EQ(desktop().exitStatus(service), 0);
    EXPECT_TRUE(Desktop::waitUntil([] { return desktop().processesNamed("WebKitWebProcess").empty(); }));
    EXPECT_TRUE(Desktop::waitUntil([] { return desktop().processesNamed("WebKitNetworkProcess").empty(); }));
}

TEST_F(CommandLineDrive, aServiceStaysWhileItsWindowIsOpen) {
    const pid_t service = desktop().start({program("QuillmarViewer"), "--service", "--idle-seconds=1"});
    showWhenReady("file://" + path("asked.txt"));
    ASSERT_TRUE(windowAppears("asked.txt"));
    constexpr std::chrono::seconds longerThanIdle{2};
    EXPECT_FALSE(Desktop::waitUntil([&] { return desktop().status(service).has_value(); }, longerThanIdle));
    desktop().end(service);
}

TEST_F(CommandLineDrive, serviceOptionsThatAreNotUnderstoodAreSaid) {
    for (const char* option : {"--idle-seconds=", "--idle-seconds=-1", "--idle-seconds=1x", "--other"}) {
        const pid_t service = desktop().start({program("QuillmarViewer"), "--service", option});
        EXPECT_EQ(desktop().exitStatus(service), 2) << option;
        EXPECT_NE(desktop().output(service).find("--idle-seconds"), std::string::npos) << option;
    }
}

TEST_F(CommandLineDrive, aSecondServiceLeavesToTheFirst) {
    const pid_t first = desktop().start({program("QuillmarViewer"), "--service"});
    ASSERT_TRUE(Desktop::waitUntil([] { return desktop().bus().hasOwner("org.gnome.NautilusPreviewer"); }));
    const pid_t second = desktop().start({program("QuillmarViewer"), "--service"});
    EXPECT_EQ(desktop().exitStatus(second), 0);
    EXPECT_FALSE(desktop().status(first).has_value());
    desktop().end(first);
}

} // namespace
} // namespace quillmar
