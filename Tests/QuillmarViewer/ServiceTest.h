#pragma once

#include "Tests/QuillmarViewer/Desktop.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>

namespace quillmar {

/// Tests of the service on a desktop that those of one suite share. Each begins and ends without a preview.
class ServiceTest : public testing::Test {
protected:
    static void SetUpTestSuite();
    static void TearDownTestSuite();
    void SetUp() override;
    void TearDown() override;

    /// A desktop whose programs are those of \p binFolder, or the staged ones (see StagedWorker) for none.
    /// \p prepare may add to the desktop before the service starts.
    static void makeDesktop(
        const std::string& binFolder, const std::function<void(Desktop&)>& prepare = [](Desktop&) {});
    static Desktop& desktop() { return *desktop_; }
    static Screen& screen() { return desktop_->screen(); }
    static DesktopBus& bus() { return desktop_->bus(); }

    static void startService();
    /// Changes to the desktop's environment and options, for the services of this suite that are started from
    /// now on.
    static void startServicesWith(Desktop::Environment changes, Desktop::Arguments options = {});
    static bool serviceIsAlive();
    static pid_t service() { return service_; }

    /// An item called \p name, and its URI.
    static std::string item(const std::string& name, DataView content = {});
    static std::string uriOf(const FileURL& url);

    static DesktopBus::Reply showFile(const std::string& uri, bool closeIfShown = false,
                                      const std::string& parent = "x11:0");
    static DesktopBus::Reply showFileWithToken(const std::string& uri, const std::string& token);
    static DesktopBus::Reply close();
    static bool isVisible();

    /// What the page looks like; none while nothing is shown.
    static std::optional<Picture> page();
    /// True once the page has \p color all over, or most of it.
    static bool pageBecomes(Color color);
    /// True once the page's text, as select all and copy give it, holds \p words.
    static bool textOfPageHolds(const std::string& words, const std::string& title);

    /// True once a window called \p title is seen.
    static bool windowAppears(const std::string& title, std::chrono::seconds bound = Desktop::patience);
    static bool windowGoes(const std::string& title);
    /// Presses \p key in the window called \p title.
    static void pressIn(const std::string& title, const std::string& key);

    static constexpr const char* objectPath = "/org/gnome/NautilusPreviewer";
    static std::vector<DesktopBus::Message> said() { return bus().messages(objectPath); }
    static bool wasSaid(const std::string& member, const std::string& arguments);

private:
    static std::unique_ptr<Desktop> desktop_;
    static std::string binFolder_;
    static Desktop::Environment environment_;
    static Desktop::Arguments serviceOptions_;
    static pid_t service_;
};

/// The same with workers that do as the item's name says.
class StagedServiceTest : public ServiceTest {
protected:
    static void SetUpTestSuite();

    static constexpr Color red{.red = 255, .green = 0, .blue = 0};
    static constexpr Color green{.red = 0, .green = 255, .blue = 0};
    static constexpr Color blue{.red = 0, .green = 0, .blue = 255};
};

} // namespace quillmar
