#pragma once

#include "QuillmarViewer/Page.h"
#include "QuillmarViewer/PageView.h"
#include "QuillmarViewer/ViewerSettings.h"

#include <gtk/gtk.h>
#include <memory>
#include <optional>
#include <string>

namespace quillmar {

/// What a person does in the window that is not for the window alone.
class WindowWishes {
public:
    enum class Direction { up, down, left, right };

    WindowWishes() = default;
    WindowWishes(const WindowWishes&) = delete;
    WindowWishes& operator=(const WindowWishes&) = delete;
    virtual ~WindowWishes() = default;

    /// An arrow key, while arrows move the selection.
    virtual void moveSelection(Direction direction) = 0;
    virtual void openItem() = 0;
    virtual void closeWindow() = 0;
    /// The page is to be shown again with the pictures that it has elsewhere.
    virtual void loadRemoteImages() = 0;
    /// What drew the page has crashed.
    virtual void pageLost() = 0;
};

/// The one window: a page, and what comes and goes around it.
class PreviewWindow {
public:
    /// \p wishes must outlive this object.
    PreviewWindow(WindowWishes& wishes, ViewerSettings settings);
    ~PreviewWindow();
    PreviewWindow(const PreviewWindow&) = delete;
    PreviewWindow& operator=(const PreviewWindow&) = delete;

    /// Shows \p page; a hidden window appears when it can be seen, one that is shown changes where it is.
    void show(const Page& page, const std::string& title, PageView::Images images);
    /// Says that \p title is being made ready.
    void showBusy(const std::string& title);
    /// Hides the window and takes the page away, so that it is never seen in the place of another.
    void hide();
    bool isVisible() const { return gtk_widget_get_visible(GTK_WIDGET(window_)) != FALSE; }

    /// See `setParentWindow`. To be called before the window appears.
    void setParent(std::string handle) { parent_ = std::move(handle); }
    /// Lets the desktop give the window the focus; empty without a token.
    void setActivationToken(const std::string& token);

    /// See `PageView::savePicture`. False when nothing is shown.
    void savePicture(const std::string& path, std::function<void(bool)> done);

private:
    struct Callbacks;

    std::unique_ptr<PageView> freshView(PageView::Images images);
    void renewView(PageView::Images images);
    void present();
    void fit(double width, double height);
    std::string screen() const;
    void rememberSize();
    void setBusy(bool isBusy);
    void setInContent(bool isInContent);
    void setZoom(double factor);
    void beginFind();
    void endFind();
    bool keyPressed(guint key, GdkModifierType modifiers);
    bool commandPressed(guint key);

    WindowWishes& wishes_;
    ViewerSettings settings_;
    double zoom_;
    std::unique_ptr<PageView> view_;
    GtkWindow* window_;
    GtkWidget* imagesBar_ = nullptr; ///< offers to load remote pictures
    GtkOverlay* overlay_ = nullptr;
    GtkWidget* busy_ = nullptr;
    GtkSpinner* spinner_ = nullptr;
    GtkLabel* busyLabel_ = nullptr;
    GtkWidget* wayBack_ = nullptr; ///< shown while arrow keys scroll
    GtkWidget* findBar_ = nullptr;
    GtkEditable* findText_ = nullptr;
    std::string parent_;
    std::optional<ViewerSettings::Size> given_;     ///< by us, to tell what the user gives
    std::optional<ViewerSettings::Size> presented_; ///< when the window appeared; none once it has that size
    bool isInContent_ = false;                      ///< arrow keys scroll
};

} // namespace quillmar
