#include "Tests/QuillmarViewer/SettingsPortal.h"

#include "Tests/QuillmarViewer/DesktopBus.h"

#include <stdexcept>
#include <string_view>

namespace quillmar {
namespace {

constexpr const char* name = "org.freedesktop.portal.Desktop";
constexpr const char* path = "/org/freedesktop/portal/desktop";
constexpr const char* interface = "org.freedesktop.portal.Settings";
constexpr const char* group = "org.freedesktop.appearance";
constexpr const char* key = "color-scheme";

GVariant* variant(SettingsPortal::Scheme scheme) {
    return g_variant_new_variant(g_variant_new_uint32(static_cast<guint32>(scheme)));
}

} // namespace

SettingsPortal::SettingsPortal(const std::string& address) : connection_(DesktopBus::connect(address)) {
    filter_ = g_dbus_connection_add_filter(connection_, answer, this, nullptr);
    GVariant* reply = g_dbus_connection_call_sync(
        connection_, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
        g_variant_new("(su)", name, 0U), nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr);
    constexpr guint32 owner = 1;
    guint32 result = 0;
    if (reply != nullptr) {
        g_variant_get(reply, "(u)", &result);
        g_variant_unref(reply);
    }
    if (result != owner) throw std::runtime_error("the portal's name is taken");
}

SettingsPortal::~SettingsPortal() {
    g_dbus_connection_remove_filter(connection_, filter_);
    g_dbus_connection_close_sync(connection_, nullptr, nullptr);
    g_object_unref(connection_);
}

void SettingsPortal::choose(Scheme scheme) {
    scheme_ = scheme;
    g_dbus_connection_emit_signal(connection_, nullptr, path, interface, "SettingChanged",
                                  g_variant_new("(ss@v)", group, key, variant(scheme)), nullptr);
    g_dbus_connection_flush_sync(connection_, nullptr, nullptr);
}

GDBusMessage* SettingsPortal::answer(GDBusConnection* connection, GDBusMessage* message, gboolean isIncoming,
                                     gpointer self) {
    const char* member = g_dbus_message_get_member(message);
    if (isIncoming == FALSE || g_dbus_message_get_message_type(message) != G_DBUS_MESSAGE_TYPE_METHOD_CALL ||
        std::string_view(member) != "Read")
        return message;
    GDBusMessage* reply = g_dbus_message_new_method_reply(message);
    // The portal wraps values twice.
    GVariant* value = g_variant_new_variant(variant(static_cast<SettingsPortal*>(self)->scheme_));
    g_dbus_message_set_body(reply, g_variant_new("(@v)", value));
    g_dbus_connection_send_message(connection, reply, G_DBUS_SEND_MESSAGE_FLAGS_NONE, nullptr, nullptr);
    g_object_unref(reply);
    g_object_unref(message);
    return nullptr;
}

} // namespace quillmar
