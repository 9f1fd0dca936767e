#include "Tests/QuillmarViewer/ServiceTest.h"

#include <algorithm>

namespace quillmar {
namespace {

constexpr const char* ours = "'org.gnome.NautilusPreviewer2'";
std::string visibleIs(const std::string& value) {
    return std::string("(").append(ours).append(", {'Visible': <" + value + ">}, [])");
}

/// What file managers ask for, and what they and the user see then.
class ServiceDrive : public StagedServiceTest {
protected:
    /// True once no worker is left.
    static bool workersEnd() {
        return Desktop::waitUntil([] { return desktop().processesNamed("--preview-worker").empty(); });
    }
    /// Less than a worker is waited for: what is seen by then is not that worker's end.
    static constexpr std::chrono::seconds beforeWorkersAreGivenUp{6};
};

TEST_F(ServiceDrive, showFileShowsThePageInAWindowOfTheItemsName) {
    EXPECT_TRUE(showFile(item("color-ff0000.txt")).succeeded);
    EXPECT_TRUE(windowAppears("color-ff0000.txt"));
    EXPECT_TRUE(pageBecomes(red));
}

TEST_F(ServiceDrive, theFormWithFourArgumentsDoesTheSame) {
    EXPECT_TRUE(showFileWithToken(item("color-00ff00.txt"), "token_TIME1").succeeded);
    EXPECT_TRUE(windowAppears("color-00ff00.txt"));
    EXPECT_TRUE(pageBecomes(green));
}

TEST_F(ServiceDrive, theOtherFileManagersFormDoesTheSame) {
    const std::string uri = item("color-0000ff.txt");
    const auto reply = bus().call("org.nemo.Preview", "/org/nemo/Preview", "org.nemo.Preview", "ShowFile",
                                  g_variant_new("(sib)", uri.c_str(), 0, FALSE));
    EXPECT_TRUE(reply.succeeded) << reply.text;
    EXPECT_TRUE(windowAppears("color-0000ff.txt"));
    EXPECT_TRUE(pageBecomes(blue));
}

TEST_F(ServiceDrive, aPingIsAnsweredAndShowsNothing) {
    EXPECT_TRUE(
        bus()
            .call("org.gnome.NautilusPreviewer", objectPath, "org.freedesktop.DBus.Peer", "Ping", nullptr)
            .succeeded);
    EXPECT_FALSE(isVisible());
    EXPECT_TRUE(screen().titles().empty());
}

TEST_F(ServiceDrive, theWindowHasTheSizeOfThePage) {
    showFile(item("color-ff0000.txt"));
    ASSERT_TRUE(windowAppears("color-ff0000.txt"));
    const auto window = screen().window("color-ff0000.txt");
    ASSERT_TRUE(window.has_value());
    EXPECT_EQ(screen().place(*window).width, 500);
    EXPECT_EQ(screen().place(*window).height, 400);
}

TEST_F(ServiceDrive, visibleIsTrueWhileThereIsAPreview) {
    EXPECT_FALSE(isVisible());
    showFile(item("color-ff0000.txt"));
    EXPECT_TRUE(Desktop::waitUntil([] { return isVisible(); }));
    close();
    EXPECT_TRUE(Desktop::waitUntil([] { return !isVisible(); }));
}

TEST_F(ServiceDrive, changesOfVisibleAreAnnounced) {
    showFile(item("color-ff0000.txt"));
    EXPECT_TRUE(wasSaid("PropertiesChanged", visibleIs("true")));
    close();
    EXPECT_TRUE(wasSaid("PropertiesChanged", visibleIs("false")));
}

TEST_F(ServiceDrive, closeClosesTheWindow) {
    showFile(item("color-ff0000.txt"));
    ASSERT_TRUE(windowAppears("color-ff0000.txt"));
    EXPECT_TRUE(close().succeeded);
    EXPECT_TRUE(windowGoes("color-ff0000.txt"));
}

TEST_F(ServiceDrive, theSameItemAgainClosesWhenTheCallSaysSo) {
    const std::string uri = item("color-ff0000.txt");
    showFile(uri, true);
    ASSERT_TRUE(windowAppears("color-ff0000.txt"));
    showFile(uri, true);
    EXPECT_TRUE(windowGoes("color-ff0000.txt"));
    EXPECT_TRUE(wasSaid("PropertiesChanged", visibleIs("false")));
}

TEST_F(ServiceDrive, anotherItemIsShownThoughTheCallMayClose) {
    showFile(item("color-ff0000.txt"), true);
    ASSERT_TRUE(windowAppears("color-ff0000.txt"));
    showFile(item("color-00ff00.txt"), true);
    EXPECT_TRUE(windowAppears("color-00ff00.txt"));
    EXPECT_TRUE(pageBecomes(green));
}

TEST_F(ServiceDrive, theSameItemAgainStaysWhenTheCallIsAnUpdate) {
    const std::string uri = item("color-ff0000.txt");
    showFile(uri);
    ASSERT_TRUE(windowAppears("color-ff0000.txt"));
    showFile(uri);
    ASSERT_TRUE(workersEnd());
    EXPECT_TRUE(pageBecomes(red));
    EXPECT_FALSE(bus().wasSaid(objectPath, {.member = "PropertiesChanged", .arguments = visibleIs("false")}));
}

TEST_F(ServiceDrive, theSameItemCanBeShownAgainAfterClosing) {
    const std::string uri = item("color-ff0000.txt");
    for (int round = 0; round < 3; ++round) {
        showFile(uri, true);
        EXPECT_TRUE(windowAppears("color-ff0000.txt"));
        EXPECT_TRUE(pageBecomes(red));
        showFile(uri, true);
        EXPECT_TRUE(windowGoes("color-ff0000.txt"));
    }
}

TEST_F(ServiceDrive, aNewPreviewTakesTheFocus) {
    const auto other = screen().makeWindow("file manager");
    showFile(item("color-ff0000.txt"));
    ASSERT_TRUE(windowAppears("color-ff0000.txt"));
    EXPECT_TRUE(Desktop::waitUntil([&] { return !screen().hasFocus(other); }));
    screen().destroyWindow(other);
}

TEST_F(ServiceDrive, anUpdateChangesTitleAndPageAndLeavesTheFocus) {
    showFile(item("color-ff0000.txt"));
    ASSERT_TRUE(windowAppears("color-ff0000.txt"));
    ASSERT_TRUE(pageBecomes(red));
    const auto other = screen().makeWindow("file manager");
    ASSERT_TRUE(screen().hasFocus(other));
    showFile(item("color-00ff00.txt"));
    EXPECT_TRUE(windowAppears("color-00ff00.txt"));
    EXPECT_TRUE(pageBecomes(green));
    EXPECT_TRUE(screen().hasFocus(other));
    screen().destroyWindow(other);
}

TEST_F(ServiceDrive, theWindowBelongsToTheCallersWindow) {
    const auto other = screen().makeWindow("file manager");
    std::ostringstream handle;
    handle << "x11:" << std::hex << other;
    showFile(item("color-ff0000.txt"), false, handle.str());
    ASSERT_TRUE(windowAppears("color-ff0000.txt"));
    const auto window = screen().window("color-ff0000.txt");
    ASSERT_TRUE(window.has_value());
    EXPECT_EQ(screen().parentOf(*window), other);
    screen().destroyWindow(other);
}

TEST_F(ServiceDrive, aSlowPageSaysThatItIsBeingMade) {
    showFile(item("slow"));
    EXPECT_TRUE(windowAppears("slow", beforeWorkersAreGivenUp));
    EXPECT_TRUE(wasSaid("PropertiesChanged", visibleIs("true")));
}

TEST_F(ServiceDrive, aSlowPageDoesNotLeaveThePageBeforeIt) {
    showFile(item("color-ff0000.txt"));
    ASSERT_TRUE(pageBecomes(red));
    showFile(item("slow"));
    EXPECT_TRUE(Desktop::waitUntil(
        [] {
            const auto picture = page();
            return picture && !picture->has(red);
        },
        beforeWorkersAreGivenUp));
}

TEST_F(ServiceDrive, aSlowUpdateHasItsOwnTitle) {
    showFile(item("color-ff0000.txt"));
    ASSERT_TRUE(pageBecomes(red));
    showFile(item("slow"));
    EXPECT_TRUE(windowAppears("slow", beforeWorkersAreGivenUp));
}

TEST_F(ServiceDrive, anotherItemStopsASlowOneAndIsShown) {
    showFile(item("slow"));
    showFile(item("color-00ff00.txt"));
    EXPECT_TRUE(pageBecomes(green));
    EXPECT_TRUE(windowAppears("color-00ff00.txt"));
    EXPECT_TRUE(workersEnd());
}

TEST_F(ServiceDrive, anotherItemReplacesOneThatIsBeingMade) {
    showFile(item("slow"));
    ASSERT_TRUE(windowAppears("slow", beforeWorkersAreGivenUp));
    showFile(item("color-00ff00.txt"));
    EXPECT_TRUE(pageBecomes(green));
    EXPECT_TRUE(windowAppears("color-00ff00.txt"));
    EXPECT_TRUE(workersEnd());
}

TEST_F(ServiceDrive, closingStopsASlowPage) {
    showFile(item("slow"));
    ASSERT_TRUE(windowAppears("slow", beforeWorkersAreGivenUp));
    close();
    EXPECT_TRUE(windowGoes("slow"));
    EXPECT_TRUE(workersEnd());
}

TEST_F(ServiceDrive, aSlowPageThatIsClosedBeforeItsWindowAppearsStaysAway) {
    showFile(item("slow"));
    close();
    EXPECT_TRUE(workersEnd());
    // A preview after it is the proof that the time for its window would have come.
    showFile(item("slow-too"));
    ASSERT_TRUE(windowAppears("slow-too", beforeWorkersAreGivenUp));
    const auto titles = screen().titles();
    EXPECT_EQ(std::ranges::count(titles, "slow"), 0);
}

TEST_F(ServiceDrive, manyUpdatesEndWithTheLastOne) {
    constexpr int updates = 40;
    for (int i = 0; i < updates; ++i) {
        showFile(item("color-ff0000.txt"));
        showFile(item("color-0000ff.txt"));
    }
    EXPECT_TRUE(windowAppears("color-0000ff.txt"));
    EXPECT_TRUE(pageBecomes(blue));
    EXPECT_TRUE(workersEnd());
    EXPECT_TRUE(pageBecomes(blue));
}

TEST_F(ServiceDrive, thePageBeforeTheLastClosingIsNeverSeenAgain) {
    constexpr int rounds = 6;
    for (int round = 0; round < rounds; ++round) {
        const bool isEven = round % 2 == 0;
        const Color before = isEven ? red : green;
        const Color after = isEven ? green : red;
        const std::string name = isEven ? "color-00ff00.txt" : "color-ff0000.txt";
        showFile(item(isEven ? "color-ff0000.txt" : "color-00ff00.txt"));
        ASSERT_TRUE(pageBecomes(before));
        close();
        ASSERT_TRUE(Desktop::waitUntil([] { return screen().titles().empty(); }));
        showFile(item(name));
        bool flashed = false;
        EXPECT_TRUE(Desktop::waitUntil([&] {
            const auto window = screen().window(name);
            if (!window) return false;
            const Picture picture = screen().picture(*window);
            flashed = flashed || picture.has(before);
            return picture.has(after);
        }));
        EXPECT_FALSE(flashed);
        close();
    }
}

} // namespace
} // namespace quillmar
