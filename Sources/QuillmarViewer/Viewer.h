#pragma once

#include "QuillmarViewer/ColorScheme.h"
#include "QuillmarViewer/ItemLocation.h"
#include "QuillmarViewer/PageMaker.h"
#include "QuillmarViewer/PreviewService.h"
#include "QuillmarViewer/PreviewWindow.h"

#include <gio/gio.h>
#include <optional>
#include <string>
#include <vector>

namespace quillmar {

struct ServiceOptions {
    guint idleSeconds = 300;      ///< without a preview, before it leaves: it keeps memory that others may need
    bool maySavePictures = false; ///< of what the window shows, for tests
};

/// The program: shows the items of a command line, or those that file managers ask for.
class Viewer final : private PreviewRequests, private WindowWishes {
public:
    /// \p command is the program that makes pages.
    explicit Viewer(std::string command);
    ~Viewer() override;

    /// Shows the items at \p uris one by one, until the window is closed. Returns the exit status.
    int showItems(std::vector<std::string> uris);
    /// Serves file managers on the session bus until nobody has asked for a while. Returns the exit status.
    int serve(const ServiceOptions& options);

private:
    struct Callbacks;
    struct Item {
        std::string uri;
        std::string name;
        std::optional<FileURL> url;
    };

    // What file managers ask for
    void show(const Show& request) override;
    void close() override;
    void warmUp() override;

    // What the user does
    void moveSelection(Direction direction) override;
    void openItem() override;
    void closeWindow() override;
    void loadRemoteImages() override;
    void pageLost() override;

    bool ensureWindow();
    void preview(const std::string& uri);
    void located(const ItemLocation::Answer& answer);
    void made(Page page);
    void announce(bool isVisible);
    void leaveWhenIdle();

    std::string command_;
    GMainLoop* loop_ = nullptr;
    GDBusConnection* connection_ = nullptr; ///< null without a session bus
    ServiceOptions options_;
    std::optional<PreviewService> service_;
    std::optional<ColorScheme> colors_;
    std::optional<PreviewWindow> window_;
    PageMaker maker_;
    ItemLocation location_;
    Item item_;                     ///< that is shown, or about to be
    Page page_;                     ///< its page, once it is made
    std::vector<std::string> uris_; ///< of the command line
    std::size_t current_ = 0;
    int crashes_ = 0; ///< of what draws, for one item
    int status_ = 0;
    guint busyTimer_ = 0;
    guint idleTimer_ = 0;
    guint picturesObject_ = 0;
};

} // namespace quillmar
