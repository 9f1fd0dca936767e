#include "Tests/QuillmarViewer/ServiceTest.h"

#include <algorithm>
#include <csignal>

namespace quillmar {
namespace {

/// Processes that the service depends on, and what is left when they die.
class Crashes : public StagedServiceTest {
protected:
    /// Kills all programs of this name, or with this argument, and waits until they are gone. False when there
    /// was none.
    static bool kill(const std::string& word) {
        if (!Desktop::waitUntil([&] { return !desktop().processesNamed(word).empty(); })) return false;
        const auto victims = desktop().processesNamed(word);
        for (const pid_t victim : victims) ::kill(victim, SIGKILL);
        return Desktop::waitUntil([&] {
            const auto left = desktop().processesNamed(word);
            return std::ranges::none_of(
                victims, [&](pid_t victim) { return std::ranges::find(left, victim) != left.end(); });
        });
    }

    static void showRed() {
        showFile(item("color-ff0000.txt"));
        ASSERT_TRUE(pageBecomes(red));
    }
};

TEST_F(Crashes, whatDrawsThePageIsStartedAgain) {
    showRed();
    ASSERT_TRUE(kill("WebKitWebProcess"));
    EXPECT_TRUE(pageBecomes(red));
    EXPECT_TRUE(windowAppears("color-ff0000.txt"));
}

TEST_F(Crashes, theNextItemIsShownWhenWhatDrawsHasCrashed) {
    showRed();
    ASSERT_TRUE(kill("WebKitWebProcess"));
    showFile(item("color-00ff00.txt"));
    EXPECT_TRUE(pageBecomes(green));
}

TEST_F(Crashes, anItemIsShownWhenWhatDrawsCrashedWhileNothingWasShown) {
    showRed();
    close();
    ASSERT_TRUE(windowGoes("color-ff0000.txt"));
    ASSERT_TRUE(kill("WebKitWebProcess"));
    showFile(item("color-00ff00.txt"));
    EXPECT_TRUE(pageBecomes(green));
    EXPECT_TRUE(windowAppears("color-00ff00.txt"));
}

TEST_F(Crashes, aPageThatCrashesWhatDrawsItTwiceSaysSo) {
    showRed();
    ASSERT_TRUE(kill("WebKitWebProcess"));
    ASSERT_TRUE(pageBecomes(red));
    ASSERT_TRUE(kill("WebKitWebProcess"));
    EXPECT_TRUE(textOfPageHolds("has stopped unexpectedly", "color-ff0000.txt"));
}

TEST_F(Crashes, anItemIsShownAfterOneThatCrashedTwice) {
    showRed();
    ASSERT_TRUE(kill("WebKitWebProcess"));
    ASSERT_TRUE(pageBecomes(red));
    ASSERT_TRUE(kill("WebKitWebProcess"));
    showFile(item("color-00ff00.txt"));
    EXPECT_TRUE(pageBecomes(green));
}

TEST_F(Crashes, theNetworkProcessIsStartedAgain) {
    showRed();
    ASSERT_TRUE(kill("WebKitNetworkProcess"));
    showFile(item("color-00ff00.txt"));
    EXPECT_TRUE(pageBecomes(green));
}

TEST_F(Crashes, aWorkerThatDiesMakesAMessage) {
    showFile(item("slow"));
    ASSERT_TRUE(kill("--preview-worker"));
    EXPECT_TRUE(textOfPageHolds("has stopped unexpectedly", "slow"));
}

TEST_F(Crashes, theNextItemIsShownAfterADeadWorker) {
    showFile(item("slow"));
    ASSERT_TRUE(kill("--preview-worker"));
    showFile(item("color-00ff00.txt"));
    EXPECT_TRUE(pageBecomes(green));
    EXPECT_TRUE(windowAppears("color-00ff00.txt"));
}

TEST_F(Crashes, aPageThatIsHardToDrawDoesNotHoldUpTheNextItem) {
    // A word that WebKit looks for places to break in, for minutes.
    constexpr std::size_t letters = 1'000'000;
    const std::string word(letters, 'x');
    showFile(item("made.page", "<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n</head>\n"
                               "<body><h1 style=\"overflow-wrap:anywhere\">" +
                                   word + "</h1></body></html>"));
    // The next item is asked for once the page is being drawn.
    constexpr double seconds = 1;
    const double before = desktop().processorSeconds("WebKitWebProcess");
    ASSERT_TRUE(
        Desktop::waitUntil([&] { return desktop().processorSeconds("WebKitWebProcess") > before + seconds; }));
    showFile(item("color-00ff00.txt"));
    EXPECT_TRUE(pageBecomes(green));
    EXPECT_TRUE(windowAppears("color-00ff00.txt"));
}

TEST_F(Crashes, aWorkerThatAnswersWithNextToNothingMakesAPage) {
    for (const std::string& answer : {std::string(), std::string("x"), std::string("<p>words</p>")}) {
        showFile(item("made.page", answer));
        EXPECT_TRUE(Desktop::waitUntil([] { return screen().window("made.page") || !serviceIsAlive(); }));
        ASSERT_TRUE(serviceIsAlive()) << '"' << answer << "\": " << desktop().output(service());
        close();
        EXPECT_TRUE(windowGoes("made.page"));
    }
}

TEST_F(Crashes, nothingOfAServiceThatIsKilledIsLeft) {
    showRed();
    desktop().end(service());
    const auto isLeft = [] {
        for (const char* name : {"WebKitWebProcess", "WebKitNetworkProcess", "--preview-worker"})
            if (!desktop().processesNamed(name).empty()) return true;
        return false;
    };
    EXPECT_TRUE(Desktop::waitUntil([&] { return !isLeft(); }));
    startService();
}

} // namespace
} // namespace quillmar
