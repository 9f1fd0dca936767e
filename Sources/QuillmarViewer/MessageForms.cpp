#include "QuillmarViewer/MessageForms.h"

#include "QuillmarViewer/PreviewInterfaces.h"

#include <string_view>

namespace quillmar {
namespace {

/// What the token is called among the data of a message. It travels with its call, so calls keep their order
/// and a call that is refused later leaves nothing behind.
constexpr const char* tokenKey = "quillmar-activation-token";

bool isCall(GDBusMessage* message, const char* interface, const char* member) {
    return g_dbus_message_get_message_type(message) == G_DBUS_MESSAGE_TYPE_METHOD_CALL &&
           g_strcmp0(g_dbus_message_get_interface(message), interface) == 0 &&
           g_strcmp0(g_dbus_message_get_member(message), member) == 0;
}

/// \p message with its first three arguments; it is replaced by a copy, for the original is locked.
GDBusMessage* withoutToken(GDBusMessage* message) {
    GDBusMessage* copy = g_dbus_message_copy(message, nullptr);
    // Of the original GDBus says itself what is wrong.
    if (copy == nullptr) return message;
    const char* uri = nullptr;
    const char* handle = nullptr;
    const char* token = nullptr;
    gboolean closeIfShown = FALSE;
    g_variant_get(g_dbus_message_get_body(message), "(&s&sb&s)", &uri, &handle, &closeIfShown, &token);
    g_dbus_message_set_body(copy, g_variant_new("(ssb)", uri, handle, closeIfShown));
    g_object_set_data_full(G_OBJECT(copy), tokenKey, g_strdup(token), g_free);
    g_object_unref(message);
    return copy;
}

GDBusMessage* look(GDBusConnection*, GDBusMessage* message, gboolean isIncoming, gpointer pinged) {
    if (!isIncoming) return message;
    if (isCall(message, "org.freedesktop.DBus.Peer", "Ping")) {
        MainLoopCall::request(static_cast<GSource*>(pinged));
        return message;
    }
    return MessageForms::declaredForm(message);
}

void forget(gpointer source) { g_source_unref(static_cast<GSource*>(source)); }

} // namespace

MessageForms::MessageForms(GDBusConnection* connection, const MainLoopCall& pinged)
    : connection_(G_DBUS_CONNECTION(g_object_ref(connection))),
      // The filter may still be running when it has been removed, so it keeps the source.
      filter_(g_dbus_connection_add_filter(connection, look, g_source_ref(pinged.source()), forget)) {}

MessageForms::~MessageForms() {
    g_dbus_connection_remove_filter(connection_, filter_);
    g_object_unref(connection_);
}

std::string MessageForms::activationToken(GDBusMethodInvocation* call) {
    return activationToken(g_dbus_method_invocation_get_message(call));
}

std::string MessageForms::activationToken(GDBusMessage* message) {
    const void* data = g_object_get_data(G_OBJECT(message), tokenKey);
    if (data == nullptr) return {};
    const std::string_view token = static_cast<const char*>(data);
    return token.size() <= maxTokenBytes ? std::string(token) : std::string();
}

GDBusMessage* MessageForms::declaredForm(GDBusMessage* message) {
    const bool hasFour = isCall(message, PreviewInterfaces::Nautilus::interface, "ShowFile") &&
                         g_strcmp0(g_dbus_message_get_signature(message), "ssbs") == 0;
    return hasFour ? withoutToken(message) : message;
}

} // namespace quillmar
