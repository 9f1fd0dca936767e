#include "QuillmarViewer/Viewer.h"

#include "QuillmarViewer/GObjectPointer.h"
#include "QuillmarViewer/OtherProgram.h"
#include "QuillmarViewer/SandboxTrial.h"

#include <cstdio>
#include <string_view>

namespace quillmar {
namespace {

/// Milliseconds after which a window says that its page is being made.
constexpr guint busyAfter = 200;

/// For tests: what the window shows, as a picture.
constexpr const char* picturesPath = "/app/quillmar/Viewer";
constexpr const char* picturesInterface =
    "<node><interface name='app.quillmar.Viewer'><method name='SavePicture'>"
    "<arg type='s' name='path' direction='in'/><arg type='b' name='saved' direction='out'/>"
    "</method></interface></node>";

void stopTimer(guint& timer) {
    if (timer != 0) g_source_remove(timer);
    timer = 0;
}

void report(const std::string& message) { std::fputs(("quillmar: " + message + '\n').c_str(), stderr); }

} // namespace

struct Viewer::Callbacks {
    static gboolean busy(gpointer data) {
        auto* viewer = static_cast<Viewer*>(data);
        viewer->busyTimer_ = 0;
        if (!viewer->window_) return G_SOURCE_REMOVE; // it cannot be opened, and the program is leaving
        viewer->window_->showBusy(viewer->item_.name);
        viewer->announce(true);
        return G_SOURCE_REMOVE;
    }
    static gboolean idle(gpointer data) {
        auto* viewer = static_cast<Viewer*>(data);
        viewer->idleTimer_ = 0;
        g_main_loop_quit(viewer->loop_);
        return G_SOURCE_REMOVE;
    }
    static void roleLost(void* data) {
        auto* viewer = static_cast<Viewer*>(data);
        if (viewer->window_ && viewer->window_->isVisible()) return; // until the window is closed
        g_main_loop_quit(viewer->loop_);
    }
    static void savePicture(GDBusConnection*, const char*, const char*, const char*, const char*,
                            GVariant* parameters, GDBusMethodInvocation* invocation, gpointer data) {
        auto* viewer = static_cast<Viewer*>(data);
        const auto answer = [invocation](bool isSaved) {
            g_dbus_method_invocation_return_value(invocation, g_variant_new("(b)", isSaved ? TRUE : FALSE));
        };
        if (!viewer->window_ || !viewer->window_->isVisible()) return answer(false);
        const char* path = nullptr;
        g_variant_get(parameters, "(&s)", &path);
        viewer->window_->savePicture(path, answer);
    }
};

Viewer::Viewer(std::string command)
    : command_(std::move(command)), loop_(g_main_loop_new(nullptr, FALSE)), maker_(command_) {
    const char* address = g_getenv("DBUS_SESSION_BUS_ADDRESS");
    const GString8 runtimeBus(g_build_filename(g_get_user_runtime_dir(), "bus", nullptr));
    // Without a bus there must be no attempt to start one, which would outlive this program.
    const bool hasBus = address != nullptr || g_file_test(runtimeBus.get(), G_FILE_TEST_EXISTS) != FALSE;
    if (hasBus) connection_ = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
    if (connection_ != nullptr) g_dbus_connection_set_exit_on_close(connection_, FALSE);
}

Viewer::~Viewer() {
    stopTimer(busyTimer_);
    stopTimer(idleTimer_);
    service_.reset(); // who calls now starts the next one
    location_.cancel();
    maker_.cancel();
    if (picturesObject_ != 0) g_dbus_connection_unregister_object(connection_, picturesObject_);
    window_.reset();
    colors_.reset();
    if (connection_ != nullptr) g_object_unref(connection_);
    g_main_loop_unref(loop_);
}

int Viewer::showItems(std::vector<std::string> uris) {
    uris_ = std::move(uris);
    preview(uris_.front()); // made while GTK and WebKit start
    if (!ensureWindow()) return status_;
    g_main_loop_run(loop_);
    return status_;
}

int Viewer::serve(const ServiceOptions& options) {
    options_ = options;
    if (connection_ == nullptr) {
        report("there is no session bus on which file managers could ask for previews");
        return 1;
    }
    std::string error;
    service_.emplace(static_cast<PreviewRequests&>(*this));
    if (!service_->start(connection_, Callbacks::roleLost, this, error)) {
        report(error);
        return 1;
    }
    if (options.maySavePictures) {
        GDBusNodeInfo* info = g_dbus_node_info_new_for_xml(picturesInterface, nullptr);
        const GDBusInterfaceVTable calls{.method_call = Callbacks::savePicture,
                                         .get_property = nullptr,
                                         .set_property = nullptr,
                                         .padding = {}};
        picturesObject_ = g_dbus_connection_register_object(connection_, picturesPath, info->interfaces[0],
                                                            &calls, this, nullptr, nullptr);
        g_dbus_node_info_unref(info);
    }
    leaveWhenIdle();
    g_main_loop_run(loop_);
    return status_;
}

/// Starts what is heavy, when it is first needed. False, with a sentence on standard error, when it cannot.
bool Viewer::ensureWindow() {
    if (window_) return true;
    SandboxTrial sandbox;
    std::optional<std::string> problem;
    g_set_application_name("Quillmar");
    if (gtk_init_check() == FALSE) {
        problem = "there is no display to open a window on: use --html FILE";
    } else {
        problem = sandbox.problem();
    }
    if (problem) {
        report(*problem);
        status_ = 1;
        g_main_loop_quit(loop_);
        return false;
    }
    colors_.emplace(connection_); // before the window, which shows at once whether it is light or dark
    window_.emplace(static_cast<WindowWishes&>(*this), ViewerSettings(ViewerSettings::standardFile()));
    return true;
}

void Viewer::show(const Show& request) {
    const bool isShown = window_ && window_->isVisible() && item_.uri == request.uri;
    if (isShown && request.closeIfShown) return closeWindow();
    stopTimer(idleTimer_);
    preview(request.uri);
    if (!ensureWindow()) return;
    window_->setParent(request.parentHandle);
    window_->setActivationToken(request.activationToken);
    service_->setParentHandle(request.parentHandle);
}

void Viewer::close() {
    if (window_) closeWindow();
}

void Viewer::warmUp() {
    if (gtk_is_initialized() == FALSE) static_cast<void>(ensureWindow());
    leaveWhenIdle();
}

/// Whatever was asked for before is not wanted any more.
void Viewer::preview(const std::string& uri) {
    stopTimer(busyTimer_);
    maker_.cancel();
    crashes_ = 0;
    page_ = {};
    item_ = {.uri = uri, .name = uri, .url = std::nullopt};
    // A page that is there comes first, however long the program was busy starting.
    busyTimer_ = g_timeout_add_full(G_PRIORITY_LOW, busyAfter, Callbacks::busy, this, nullptr);
    location_.find(uri, [this](const ItemLocation::Answer& answer) { located(answer); });
}

void Viewer::located(const ItemLocation::Answer& answer) {
    item_.name = answer.name;
    item_.url = answer.url;
    const auto done = [this](Page page) { made(std::move(page)); };
    if (answer.url) {
        maker_.make(*answer.url, done);
    } else {
        const std::string name = answer.name.find('/') == answer.name.npos ? answer.name : "Item";
        maker_.makeMessage(FileURL::root().appendingPathComponent(name), answer.message, done);
    }
}

void Viewer::made(Page page) {
    stopTimer(busyTimer_);
    if (!window_) return;
    page_ = std::move(page);
    window_->show(page_, item_.name, PageView::Images::ownOnly);
    announce(true);
}

void Viewer::announce(bool isVisible) {
    if (service_) service_->setVisible(isVisible);
}

void Viewer::moveSelection(Direction direction) {
    if (service_) {
        using Asked = PreviewService::Direction;
        switch (direction) {
        case Direction::up: return service_->moveSelection(Asked::up);
        case Direction::down: return service_->moveSelection(Asked::down);
        case Direction::left: return service_->moveSelection(Asked::left);
        case Direction::right: return service_->moveSelection(Asked::right);
        }
    }
    const bool isForward = direction == Direction::down || direction == Direction::right;
    if (isForward ? current_ + 1 == uris_.size() : current_ == 0) return;
    current_ = isForward ? current_ + 1 : current_ - 1;
    preview(uris_[current_]);
}

void Viewer::openItem() {
    if (!item_.uri.empty()) openInOtherProgram(item_.uri);
    closeWindow();
}

void Viewer::closeWindow() {
    stopTimer(busyTimer_);
    location_.cancel();
    maker_.cancel();
    window_->hide();
    item_ = {};
    page_ = {};
    announce(false);
    if (!service_) {
        g_main_loop_quit(loop_);
    } else {
        leaveWhenIdle();
    }
}

void Viewer::loadRemoteImages() {
    if (!page_.html.empty()) window_->show(page_, item_.name, PageView::Images::remote);
}

/// The page is shown once more, then a page that says what happened, then nothing.
void Viewer::pageLost() {
    constexpr int patience = 2;
    if (page_.html.empty() || ++crashes_ > patience) return;
    if (crashes_ < patience || !item_.url) return window_->show(page_, item_.name, PageView::Images::ownOnly);
    maker_.makeMessage(*item_.url, "The program that draws the page has stopped unexpectedly.",
                       [this](Page page) { made(std::move(page)); });
}

void Viewer::leaveWhenIdle() {
    stopTimer(idleTimer_);
    const bool isShown = window_ && window_->isVisible();
    if (service_ && !isShown) idleTimer_ = g_timeout_add_seconds(options_.idleSeconds, Callbacks::idle, this);
}

} // namespace quillmar
