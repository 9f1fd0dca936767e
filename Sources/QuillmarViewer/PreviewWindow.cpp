#include "QuillmarViewer/PreviewWindow.h"

#include "QuillmarViewer/ParentWindow.h"
#include "QuillmarViewer/SpokenText.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace quillmar {
namespace {

/// Of the screen, at most; the desktop has bars of its own.
constexpr double shareOfScreen = 0.85;
constexpr double zoomStep = 1.1;
constexpr int margin = 12; ///< points

GtkWidget* labelled(const char* text) {
    GtkWidget* label = gtk_label_new(text);
    gtk_label_set_wrap(GTK_LABEL(label), TRUE);
    return label;
}

} // namespace

/// What GTK calls.
struct PreviewWindow::Callbacks {
    static gboolean key(GtkEventControllerKey*, guint key, guint, GdkModifierType modifiers, gpointer data) {
        return static_cast<PreviewWindow*>(data)->keyPressed(key, modifiers) ? TRUE : FALSE;
    }
    static gboolean closeRequest(GtkWindow*, gpointer data) {
        static_cast<PreviewWindow*>(data)->wishes_.closeWindow();
        return TRUE;
    }
    /// The screen has given the window its first size. Another page may have come meanwhile.
    static void laidOut(GdkSurface*, int, int, gpointer data) {
        auto* window = static_cast<PreviewWindow*>(data);
        const auto presented = std::exchange(window->presented_, std::nullopt);
        if (presented && window->given_ && *presented != *window->given_)
            gtk_window_set_default_size(window->window_, window->given_->width, window->given_->height);
    }
    static void pageClicked(GtkGestureClick*, int, double, double, gpointer data) {
        static_cast<PreviewWindow*>(data)->setInContent(true);
    }
    static void wayBackClicked(GtkButton*, gpointer data) {
        static_cast<PreviewWindow*>(data)->setInContent(false);
    }
    static void loadImages(GtkButton*, gpointer data) {
        static_cast<PreviewWindow*>(data)->wishes_.loadRemoteImages();
    }
    static void findChanged(GtkEditable* text, gpointer data) {
        static_cast<PreviewWindow*>(data)->view_->find(gtk_editable_get_text(text));
    }
    static void findNext(GtkSearchEntry*, gpointer data) {
        static_cast<PreviewWindow*>(data)->view_->findNext();
    }
    static void findPrevious(GtkSearchEntry*, gpointer data) {
        static_cast<PreviewWindow*>(data)->view_->findPrevious();
    }
    static void findStopped(GtkSearchEntry*, gpointer data) { static_cast<PreviewWindow*>(data)->endFind(); }
};

PreviewWindow::PreviewWindow(WindowWishes& wishes, ViewerSettings settings)
    : wishes_(wishes), settings_(std::move(settings)), zoom_(settings_.zoom()),
      view_(freshView(PageView::Images::ownOnly)), // first, for the process that draws starts beside all else
      window_(GTK_WINDOW(gtk_window_new())) {
    gtk_window_set_icon_name(window_, "app.quillmar.Viewer");
    g_signal_connect(window_, "close-request", G_CALLBACK(Callbacks::closeRequest), this);
    // Keys are ours before they are the page's, which keeps those that scroll.
    GtkEventController* keys = gtk_event_controller_key_new();
    gtk_event_controller_set_propagation_phase(keys, GTK_PHASE_CAPTURE);
    g_signal_connect(keys, "key-pressed", G_CALLBACK(Callbacks::key), this);
    gtk_widget_add_controller(GTK_WIDGET(window_), keys);

    GtkWidget* box = gtk_box_new(GTK_ORIENTATION_VERTICAL, 0);
    gtk_window_set_child(window_, box);

    imagesBar_ = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, margin);
    gtk_widget_add_css_class(imagesBar_, "toolbar");
    GtkWidget* sentence = labelled("This page has pictures on the internet, which are not loaded.");
    gtk_widget_set_hexpand(sentence, TRUE);
    gtk_label_set_xalign(GTK_LABEL(sentence), 0);
    gtk_box_append(GTK_BOX(imagesBar_), sentence);
    GtkWidget* load = gtk_button_new_with_mnemonic("_Load them this once");
    g_signal_connect(load, "clicked", G_CALLBACK(Callbacks::loadImages), this);
    gtk_box_append(GTK_BOX(imagesBar_), load);
    gtk_widget_set_visible(imagesBar_, FALSE);
    gtk_box_append(GTK_BOX(box), imagesBar_);

    overlay_ = GTK_OVERLAY(gtk_overlay_new());
    gtk_widget_set_vexpand(GTK_WIDGET(overlay_), TRUE);
    gtk_overlay_set_child(overlay_, view_->widget());
    gtk_box_append(GTK_BOX(box), GTK_WIDGET(overlay_));

    busy_ = gtk_box_new(GTK_ORIENTATION_VERTICAL, margin);
    gtk_widget_set_halign(busy_, GTK_ALIGN_CENTER);
    gtk_widget_set_valign(busy_, GTK_ALIGN_CENTER);
    spinner_ = GTK_SPINNER(gtk_spinner_new());
    gtk_box_append(GTK_BOX(busy_), GTK_WIDGET(spinner_));
    busyLabel_ = GTK_LABEL(labelled(""));
    gtk_box_append(GTK_BOX(busy_), GTK_WIDGET(busyLabel_));
    gtk_widget_set_visible(busy_, FALSE);
    gtk_overlay_add_overlay(overlay_, busy_);

    wayBack_ = gtk_button_new_with_label("Arrow keys scroll this page. Esc: back to the selection");
    gtk_widget_add_css_class(wayBack_, "osd");
    gtk_widget_set_halign(wayBack_, GTK_ALIGN_CENTER);
    gtk_widget_set_valign(wayBack_, GTK_ALIGN_END);
    gtk_widget_set_margin_bottom(wayBack_, margin);
    gtk_widget_set_visible(wayBack_, FALSE);
    g_signal_connect(wayBack_, "clicked", G_CALLBACK(Callbacks::wayBackClicked), this);
    gtk_overlay_add_overlay(overlay_, wayBack_);

    findBar_ = gtk_search_bar_new();
    GtkWidget* findText = gtk_search_entry_new();
    findText_ = GTK_EDITABLE(findText);
    g_signal_connect(findText, "search-changed", G_CALLBACK(Callbacks::findChanged), this);
    g_signal_connect(findText, "activate", G_CALLBACK(Callbacks::findNext), this);
    g_signal_connect(findText, "next-match", G_CALLBACK(Callbacks::findNext), this);
    g_signal_connect(findText, "previous-match", G_CALLBACK(Callbacks::findPrevious), this);
    g_signal_connect(findText, "stop-search", G_CALLBACK(Callbacks::findStopped), this);
    gtk_accessible_update_property(GTK_ACCESSIBLE(findText), GTK_ACCESSIBLE_PROPERTY_LABEL, "Find in the page",
                                   -1);
    gtk_search_bar_set_child(GTK_SEARCH_BAR(findBar_), findText);
    gtk_box_append(GTK_BOX(box), findBar_);
}

PreviewWindow::~PreviewWindow() {
    gtk_window_destroy(window_);
    view_.reset();
}

/// A view that has shown nothing, warmed by an empty page.
std::unique_ptr<PageView> PreviewWindow::freshView(PageView::Images images) {
    auto fresh = std::make_unique<PageView>(images);
    fresh->onCrashed = [this] { wishes_.pageLost(); };
    GtkGesture* click = gtk_gesture_click_new();
    gtk_gesture_single_set_button(GTK_GESTURE_SINGLE(click), 0);
    gtk_event_controller_set_propagation_phase(GTK_EVENT_CONTROLLER(click), GTK_PHASE_CAPTURE);
    g_signal_connect(click, "pressed", G_CALLBACK(Callbacks::pageClicked), this);
    gtk_widget_add_controller(fresh->widget(), GTK_EVENT_CONTROLLER(click));
    fresh->setZoom(zoom_);
    fresh->load({});
    return fresh;
}

void PreviewWindow::renewView(PageView::Images images) {
    auto fresh = freshView(images);
    gtk_overlay_set_child(overlay_, fresh->widget());
    view_ = std::move(fresh);
    if (isVisible()) gtk_widget_grab_focus(view_->widget()); // which went with the view before
}

void PreviewWindow::show(const Page& page, const std::string& title, PageView::Images images) {
    gtk_window_set_title(window_, title.c_str());
    setInContent(false);
    endFind();
    if (view_->isDrawing() || view_->isLost() || images != view_->images()) renewView(images);
    const bool offersImages = page.namesRemoteImages && images == PageView::Images::ownOnly;
    gtk_widget_set_visible(imagesBar_, offersImages ? TRUE : FALSE);
    if (!isVisible() || !gtk_window_is_fullscreen(window_)) fit(page.width, page.height);
    view_->onLoaded = [this] {
        if (view_->isBlank()) return;
        setBusy(false);
        present();
    };
    view_->describe(title, spokenText(page.html));
    view_->load(page.html);
    if (!view_->isWarm()) present(); // while it starts
}

void PreviewWindow::showBusy(const std::string& title) {
    const std::string text = "Reading “" + title + "”…";
    gtk_label_set_text(busyLabel_, text.c_str());
    gtk_window_set_title(window_, title.c_str());
    if (!isVisible()) {
        constexpr double width = 520;
        constexpr double height = 380;
        fit(width, height);
    } else if (view_ && !view_->isBlank()) {
        renewView(PageView::Images::ownOnly); // the page of another item is no answer
    }
    setBusy(true);
    present();
}

void PreviewWindow::present() {
    if (isVisible()) return; // an update leaves the focus where it is
    gtk_widget_realize(GTK_WIDGET(window_));
    setParentWindow(window_, parent_);
    presented_ = given_;
    GdkSurface* surface = gtk_native_get_surface(GTK_NATIVE(window_));
    g_signal_handlers_disconnect_by_data(surface, this); // of the time before
    g_signal_connect(surface, "layout", G_CALLBACK(Callbacks::laidOut), this);
    gtk_window_present(window_);
    gtk_widget_grab_focus(view_->widget());
}

void PreviewWindow::hide() {
    rememberSize();
    gtk_window_unfullscreen(window_);
    gtk_widget_set_visible(GTK_WIDGET(window_), FALSE);
    setBusy(false);
    setInContent(false);
    endFind();
    given_.reset();
    renewView(PageView::Images::ownOnly);
}

void PreviewWindow::setActivationToken(const std::string& token) {
    if (!token.empty()) gtk_window_set_startup_id(window_, token.c_str());
}

void PreviewWindow::savePicture(const std::string& path, std::function<void(bool)> done) {
    view_->savePicture(path, std::move(done));
}

/// The size that the user has chosen on this screen, or what the page asks for, scaled down to fit.
void PreviewWindow::fit(double width, double height) {
    rememberSize();
    if (given_ && settings_.size(screen())) return; // chosen, and already so
    if (const auto chosen = settings_.size(screen())) {
        given_ = chosen;
    } else {
        GListModel* monitors = gdk_display_get_monitors(gtk_widget_get_display(GTK_WIDGET(window_)));
        const GObjectPointer<GdkMonitor> monitor(static_cast<GdkMonitor*>(g_list_model_get_item(monitors, 0)));
        GdkRectangle area{.x = 0, .y = 0, .width = ViewerSettings::maxSide, .height = ViewerSettings::maxSide};
        if (monitor) gdk_monitor_get_geometry(monitor.get(), &area);
        const double scale =
            std::min({1.0, area.width * shareOfScreen / width, area.height * shareOfScreen / height});
        given_ = {.width = static_cast<int>(std::lround(width * scale)),
                  .height = static_cast<int>(std::lround(height * scale))};
    }
    gtk_window_set_default_size(window_, given_->width, given_->height);
}

/// What tells screens apart: a size fits the screen that it was chosen on.
std::string PreviewWindow::screen() const {
    GListModel* monitors = gdk_display_get_monitors(gtk_widget_get_display(GTK_WIDGET(window_)));
    GObjectPointer<GdkMonitor> monitor(static_cast<GdkMonitor*>(g_list_model_get_item(monitors, 0)));
    GdkSurface* surface = gtk_native_get_surface(GTK_NATIVE(window_));
    if (surface != nullptr && isVisible()) {
        GdkMonitor* current =
            gdk_display_get_monitor_at_surface(gtk_widget_get_display(GTK_WIDGET(window_)), surface);
        if (current != nullptr) monitor.reset(static_cast<GdkMonitor*>(g_object_ref(current)));
    }
    if (!monitor) return {};
    GdkRectangle area{};
    gdk_monitor_get_geometry(monitor.get(), &area);
    return std::to_string(area.width).append("x").append(std::to_string(area.height));
}

/// Keeps the window's size if somebody but us has given it.
void PreviewWindow::rememberSize() {
    if (!given_ || presented_ || !isVisible() || gtk_window_is_fullscreen(window_) ||
        gtk_window_is_maximized(window_))
        return;
    ViewerSettings::Size size;
    gtk_window_get_default_size(window_, &size.width, &size.height);
    if (size == *given_ || size.width <= 0 || size.height <= 0) return;
    given_ = size;
    settings_.setSize(screen(), size);
}

void PreviewWindow::setBusy(bool isBusy) {
    gtk_widget_set_visible(busy_, isBusy ? TRUE : FALSE);
    gtk_spinner_set_spinning(spinner_, isBusy ? TRUE : FALSE); // it would draw unseen
}

void PreviewWindow::setInContent(bool isInContent) {
    isInContent_ = isInContent;
    gtk_widget_set_visible(wayBack_, isInContent ? TRUE : FALSE);
    if (!isInContent && view_) gtk_widget_grab_focus(view_->widget());
}

void PreviewWindow::setZoom(double factor) {
    zoom_ = std::clamp(factor, ViewerSettings::minZoom, ViewerSettings::maxZoom);
    view_->setZoom(zoom_);
    settings_.setZoom(zoom_);
}

void PreviewWindow::beginFind() {
    gtk_search_bar_set_search_mode(GTK_SEARCH_BAR(findBar_), TRUE);
    gtk_widget_grab_focus(GTK_WIDGET(findText_));
    gtk_editable_select_region(findText_, 0, -1);
}

void PreviewWindow::endFind() {
    if (gtk_search_bar_get_search_mode(GTK_SEARCH_BAR(findBar_)) == FALSE) return;
    gtk_search_bar_set_search_mode(GTK_SEARCH_BAR(findBar_), FALSE);
    view_->endFind();
    gtk_widget_grab_focus(view_->widget());
}

/// True when the key was for us.
bool PreviewWindow::keyPressed(guint key, GdkModifierType modifiers) {
    const bool isFinding = gtk_search_bar_get_search_mode(GTK_SEARCH_BAR(findBar_)) != FALSE;
    constexpr guint command = GDK_CONTROL_MASK;
    constexpr guint others = GDK_ALT_MASK | GDK_SUPER_MASK | GDK_META_MASK;
    if ((modifiers & others) != 0) return false;
    if ((modifiers & command) != 0) return commandPressed(key);
    if (key == GDK_KEY_F11) {
        if (gtk_window_is_fullscreen(window_)) {
            gtk_window_unfullscreen(window_);
        } else {
            gtk_window_fullscreen(window_);
        }
        return true;
    }
    if (isFinding) {
        if (key != GDK_KEY_Escape) return false;
        endFind();
        return true;
    }
    if (GtkWidget* focus = gtk_window_get_focus(window_); focus != nullptr && GTK_IS_BUTTON(focus)) {
        const bool presses = key == GDK_KEY_space || key == GDK_KEY_Return || key == GDK_KEY_KP_Enter;
        if (presses) return false; // the button's own
    }
    using Direction = WindowWishes::Direction;
    switch (key) {
    case GDK_KEY_Escape:
        if (isInContent_) {
            setInContent(false);
        } else {
            wishes_.closeWindow();
        }
        return true;
    case GDK_KEY_space:
    case GDK_KEY_q: wishes_.closeWindow(); return true;
    case GDK_KEY_Return:
    case GDK_KEY_KP_Enter: wishes_.openItem(); return true;
    case GDK_KEY_Tab:
        if (isInContent_) return false; // from link to link
        setInContent(true);
        return true;
    default: break;
    }
    if (isInContent_) return false;
    switch (key) {
    case GDK_KEY_Up: wishes_.moveSelection(Direction::up); return true;
    case GDK_KEY_Down: wishes_.moveSelection(Direction::down); return true;
    case GDK_KEY_Left: wishes_.moveSelection(Direction::left); return true;
    case GDK_KEY_Right: wishes_.moveSelection(Direction::right); return true;
    default: return false; // Page Up, Home and the like scroll
    }
}

/// With Control.
bool PreviewWindow::commandPressed(guint key) {
    switch (key) {
    case GDK_KEY_w: wishes_.closeWindow(); return true;
    case GDK_KEY_f: beginFind(); return true;
    case GDK_KEY_c:
        if (gtk_search_bar_get_search_mode(GTK_SEARCH_BAR(findBar_)) != FALSE) return false;
        view_->copySelection();
        return true;
    case GDK_KEY_plus:
    case GDK_KEY_equal:
    case GDK_KEY_KP_Add: setZoom(zoom_ * zoomStep); return true;
    case GDK_KEY_minus:
    case GDK_KEY_KP_Subtract: setZoom(zoom_ / zoomStep); return true;
    case GDK_KEY_0:
    case GDK_KEY_KP_0: setZoom(1); return true;
    default: return false;
    }
}

} // namespace quillmar
