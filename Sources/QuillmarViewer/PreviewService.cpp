#include "QuillmarViewer/PreviewService.h"

#include "QuillmarViewer/BusNames.h"
#include "QuillmarViewer/MainLoopCall.h"
#include "QuillmarViewer/MessageForms.h"
#include "QuillmarViewer/PreviewInterfaces.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <string_view>
#include <vector>

namespace quillmar {
namespace {

namespace Nautilus = PreviewInterfaces::Nautilus;
namespace Nemo = PreviewInterfaces::Nemo;

/// As GNOME Files writes the number of an X11 window. D-Bus has it signed, X11 does not.
std::string x11Handle(std::int32_t window) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "x11:%x", static_cast<unsigned>(window));
    return text.data();
}

PreviewRequests::Show nautilusShow(GVariant* arguments, GDBusMethodInvocation* call) {
    const char* uri = nullptr;
    const char* handle = nullptr;
    gboolean closeIfShown = FALSE;
    g_variant_get(arguments, "(&s&sb)", &uri, &handle, &closeIfShown);
    return {.uri = uri,
            .parentHandle = handle,
            .closeIfShown = closeIfShown != FALSE,
            .activationToken = MessageForms::activationToken(call)};
}

PreviewRequests::Show nemoShow(GVariant* arguments) {
    const char* uri = nullptr;
    std::int32_t window = 0;
    gboolean closeIfShown = FALSE;
    g_variant_get(arguments, "(&sib)", &uri, &window, &closeIfShown);
    return {.uri = uri,
            .parentHandle = x11Handle(window),
            .closeIfShown = closeIfShown != FALSE,
            .activationToken = {}};
}

} // namespace

struct PreviewService::State {
    explicit State(PreviewRequests& allRequests) : requests(allRequests) {}
    ~State() { withdraw(); }
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    bool exportObjects(std::string& error);
    void withdraw();
    void emit(const char* interface, const char* signal, GVariant* arguments) const;
    void announce(const char* property) const;
    GVariant* valueOf(std::string_view property) const;

    static void call(GDBusConnection*, const char* sender, const char* path, const char* interface,
                     const char* method, GVariant* arguments, GDBusMethodInvocation* call, gpointer self);
    static GVariant* property(GDBusConnection*, const char* sender, const char* path, const char* interface,
                              const char* name, GError**, gpointer self);
    static void closed(GDBusConnection*, gboolean isVanished, GError*, gpointer self);

    PreviewRequests& requests;
    GDBusConnection* connection = nullptr;
    gulong closedHandler = 0;
    std::vector<guint> objects;
    std::optional<MainLoopCall> pinged;
    std::optional<MainLoopCall> lost;
    std::optional<MessageForms> messageForms;
    std::optional<BusNames> names;
    bool isVisible = false;
    std::string parentHandle;
    /// Nemo has no signal for this, and GNOME Files, which has, may run beside it with a selection of its own.
    bool canCallerMoveSelection = true;
};

void PreviewService::State::call(GDBusConnection*, const char*, const char*, const char* interface,
                                 const char* method, GVariant* arguments, GDBusMethodInvocation* call,
                                 gpointer self) {
    State& state = *static_cast<State*>(self);
    PreviewRequests& requests = state.requests;
    const bool isNemo = std::string_view(interface) == Nemo::interface;
    std::optional<PreviewRequests::Show> show;
    if (std::string_view(method) == "ShowFile") {
        show = isNemo ? nemoShow(arguments) : nautilusShow(arguments, call);
        state.canCallerMoveSelection = !isNemo;
    }
    // File managers wait for nothing but the reply. What the request leads to may end this service.
    g_dbus_method_invocation_return_value(call, nullptr);
    if (show)
        requests.show(*show);
    else
        requests.close();
}

GVariant* PreviewService::State::valueOf(std::string_view property) const {
    return property == "Visible" ? g_variant_new_boolean(isVisible ? TRUE : FALSE)
                                 : g_variant_new_string(parentHandle.c_str());
}

GVariant* PreviewService::State::property(GDBusConnection*, const char*, const char*, const char*,
                                          const char* name, GError**, gpointer self) {
    return static_cast<const State*>(self)->valueOf(name);
}

void PreviewService::State::closed(GDBusConnection*, gboolean, GError*, gpointer self) {
    static_cast<State*>(self)->lost->request();
}

bool PreviewService::State::exportObjects(std::string& error) {
    GDBusNodeInfo* node = g_dbus_node_info_new_for_xml(PreviewInterfaces::description, nullptr);
    static const GDBusInterfaceVTable table{call, property, nullptr, {}};
    GError* failure = nullptr;
    for (const auto& [path, interface] :
         {std::pair(Nautilus::path, Nautilus::interface), std::pair(Nemo::path, Nemo::interface)}) {
        const guint object = g_dbus_connection_register_object(
            connection, path, g_dbus_node_info_lookup_interface(node, interface), &table, this, nullptr,
            &failure);
        if (object == 0) break;
        objects.push_back(object);
    }
    g_dbus_node_info_unref(node);
    if (failure == nullptr) return true;
    error = failure->message;
    g_error_free(failure);
    return false;
}

/// The names go first: what is called meanwhile is called of the next previewer.
void PreviewService::State::withdraw() {
    names.reset();
    messageForms.reset();
    for (const guint object : objects) g_dbus_connection_unregister_object(connection, object);
    objects.clear();
    if (closedHandler != 0) g_signal_handler_disconnect(connection, closedHandler);
    closedHandler = 0;
    pinged.reset();
    lost.reset();
    g_clear_object(&connection);
}

void PreviewService::State::emit(const char* interface, const char* signal, GVariant* arguments) const {
    // Fails only when the connection is closed, which is told elsewhere.
    g_dbus_connection_emit_signal(connection, nullptr, Nautilus::path, interface, signal, arguments, nullptr);
}

void PreviewService::State::announce(const char* property) const {
    if (connection == nullptr) return;
    GVariantBuilder changed;
    g_variant_builder_init(&changed, G_VARIANT_TYPE("a{sv}"));
    g_variant_builder_add(&changed, "{sv}", property, valueOf(property));
    emit("org.freedesktop.DBus.Properties", "PropertiesChanged",
         g_variant_new("(sa{sv}as)", Nautilus::interface, &changed, nullptr));
}

PreviewService::PreviewService(PreviewRequests& requests) : state_(std::make_unique<State>(requests)) {}
PreviewService::~PreviewService() = default;

bool PreviewService::start(GDBusConnection* connection, void (*lost)(void*), void* context,
                           std::string& error) {
    State& state = *state_;
    state.connection = G_DBUS_CONNECTION(g_object_ref(connection));
    const auto warmUp = [](void* requests) { static_cast<PreviewRequests*>(requests)->warmUp(); };
    state.pinged.emplace(warmUp, &state.requests);
    state.lost.emplace(lost, context);
    state.closedHandler = g_signal_connect(connection, "closed", G_CALLBACK(State::closed), &state);
    state.messageForms.emplace(connection, *state.pinged);
    auto outcome = BusNames::Outcome::refused;
    if (state.exportObjects(error)) outcome = state.names.emplace().request(connection, error);
    if (outcome == BusNames::Outcome::refused) state.withdraw();
    if (outcome == BusNames::Outcome::secondInstance) state.lost->request();
    return outcome != BusNames::Outcome::refused;
}

void PreviewService::setVisible(bool isVisible) {
    if (state_->isVisible == isVisible) return;
    state_->isVisible = isVisible;
    state_->announce("Visible");
}

void PreviewService::setParentHandle(const std::string& handle) {
    if (state_->parentHandle == handle) return;
    state_->parentHandle = handle;
    state_->announce("ParentHandle");
}

void PreviewService::moveSelection(Direction direction) {
    if (state_->connection == nullptr || !state_->canCallerMoveSelection) return;
    state_->emit(Nautilus::interface, "SelectionEvent", g_variant_new("(u)", static_cast<unsigned>(direction)));
}

} // namespace quillmar
