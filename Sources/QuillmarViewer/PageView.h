#pragma once

#include "QuillmarViewer/GObjectPointer.h"

#include <functional>
#include <string>
#include <webkit/webkit.h>

namespace quillmar {

/// Shows pages, and nothing else: scripts do not run, nothing is fetched, links go to the user's browser. A
/// view that has shown something is not shown again, for the old page would flash: a fresh one takes its place.
class PageView {
public:
    /// Where pictures of a page may come from: the page itself, or any place on the network that it names.
    enum class Images { ownOnly, remote };

    explicit PageView(Images images);
    ~PageView();
    PageView(const PageView&) = delete;
    PageView& operator=(const PageView&) = delete;

    GtkWidget* widget() const { return GTK_WIDGET(view_.get()); }

    /// Shows \p html; `onLoaded` is called when it can be seen. An empty page makes WebKit warm.
    void load(std::string html);
    bool isBlank() const { return html_.empty(); }
    /// True once the process that draws has started and answered, which takes a while.
    bool isWarm() const { return isWarm_; }
    /// True while a page is being drawn that cannot be seen yet. It may take a hostile page forever.
    bool isDrawing() const { return isDrawing_; }
    /// True when what drew it has ended: another view is wanted.
    bool isLost() const { return isLost_; }
    Images images() const { return images_; }

    std::function<void()> onLoaded;
    /// The process that draws has ended.
    std::function<void()> onCrashed;

    /// Tells a screen reader what the page is called and how it begins.
    void describe(const std::string& title, const std::string& text);
    void setZoom(double factor);
    void copySelection();

    void find(const std::string& text);
    void findNext();
    void findPrevious();
    void endFind();

    /// Writes what can be seen to \p path as a PNG, then calls \p done.
    void savePicture(const std::string& path, std::function<void(bool)> done);

private:
    struct Callbacks;

    GObjectPointer<WebKitWebView> view_;
    Images images_;
    std::string html_;
    bool isWarm_ = false;
    bool isDrawing_ = false;
    bool isLost_ = false;
    bool isReplaced_ = false; ///< the load that is about to end has made room for the next one
};

} // namespace quillmar
