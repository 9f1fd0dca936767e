#include "Tests/QuillmarViewer/DesktopBus.h"

#include <algorithm>
#include <stdexcept>

namespace quillmar {
namespace {

constexpr const char* daemonName = "org.freedesktop.DBus";
constexpr const char* daemonPath = "/org/freedesktop/DBus";
constexpr int patience = 20'000; ///< milliseconds that a call may take

std::string written(GVariant* value) {
    char* text = g_variant_print(value, FALSE);
    std::string result = text;
    g_free(text);
    return result;
}

} // namespace

GDBusConnection* DesktopBus::connect(const std::string& address) {
    constexpr auto flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                             G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    GDBusConnection* connection =
        g_dbus_connection_new_for_address_sync(address.c_str(), flags, nullptr, nullptr, nullptr);
    if (connection == nullptr) throw std::runtime_error("cannot connect to the bus");
    g_dbus_connection_set_exit_on_close(connection, FALSE);
    return connection;
}

DesktopBus::DesktopBus(const std::string& address) : connection_(connect(address)), monitor_(connect(address)) {
    filter_ = g_dbus_connection_add_filter(monitor_, hear, this, nullptr);
    GVariant* reply = g_dbus_connection_call_sync(
        monitor_, daemonName, daemonPath, "org.freedesktop.DBus.Monitoring", "BecomeMonitor",
        g_variant_new("(asu)", nullptr, 0U), nullptr, G_DBUS_CALL_FLAGS_NONE, patience, nullptr, nullptr);
    if (reply == nullptr) throw std::runtime_error("the bus may not be watched");
    g_variant_unref(reply);
}

DesktopBus::~DesktopBus() {
    g_dbus_connection_remove_filter(monitor_, filter_);
    g_dbus_connection_close_sync(monitor_, nullptr, nullptr);
    g_dbus_connection_close_sync(connection_, nullptr, nullptr);
    g_object_unref(monitor_);
    g_object_unref(connection_);
}

/// Replies go on, for one of them is ours; of the rest a monitor may not let GDBus answer anything.
GDBusMessage* DesktopBus::hear(GDBusConnection*, GDBusMessage* message, gboolean isIncoming, gpointer self) {
    if (isIncoming == FALSE) return message;
    const GDBusMessageType type = g_dbus_message_get_message_type(message);
    if (type != G_DBUS_MESSAGE_TYPE_METHOD_CALL && type != G_DBUS_MESSAGE_TYPE_SIGNAL) return message;
    const char* path = g_dbus_message_get_path(message);
    const char* member = g_dbus_message_get_member(message);
    GVariant* body = g_dbus_message_get_body(message);
    if (path != nullptr && member != nullptr) {
        auto* bus = static_cast<DesktopBus*>(self);
        const std::lock_guard lock(bus->mutex_);
        bus->heard_.push_back(
            {.path = path, .message = {.member = member, .arguments = body != nullptr ? written(body) : "()"}});
    }
    g_object_unref(message);
    return nullptr;
}

DesktopBus::Reply DesktopBus::call(const char* name, const char* path, const char* interface,
                                   const char* method, GVariant* arguments) {
    GError* error = nullptr;
    GVariant* value = g_dbus_connection_call_sync(connection_, name, path, interface, method, arguments,
                                                  nullptr, G_DBUS_CALL_FLAGS_NONE, patience, nullptr, &error);
    if (value == nullptr) {
        Reply reply{.succeeded = false, .text = error->message};
        g_error_free(error);
        return reply;
    }
    Reply reply{.succeeded = true, .text = written(value)};
    g_variant_unref(value);
    return reply;
}

bool DesktopBus::hasOwner(const char* name) {
    return call(daemonName, daemonPath, daemonName, "NameHasOwner", g_variant_new("(s)", name)).text ==
           "(true,)";
}

std::vector<DesktopBus::Message> DesktopBus::messages(const std::string& path) const {
    const std::lock_guard lock(mutex_);
    std::vector<Message> result;
    for (const Heard& heard : heard_)
        if (heard.path == path) result.push_back(heard.message);
    return result;
}

bool DesktopBus::wasSaid(const std::string& path, const Message& message) const {
    const auto all = messages(path);
    return std::ranges::find(all, message) != all.end();
}

void DesktopBus::forget() {
    const std::lock_guard lock(mutex_);
    heard_.clear();
}

} // namespace quillmar
