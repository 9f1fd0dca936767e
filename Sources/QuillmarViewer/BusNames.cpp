#include "QuillmarViewer/BusNames.h"

#include "QuillmarViewer/PreviewInterfaces.h"

#include <cstdint>
#include <optional>

namespace quillmar {
namespace {

constexpr const char* busDaemon = "org.freedesktop.DBus";
constexpr const char* busPath = "/org/freedesktop/DBus";
constexpr int standardPatience = -1;

/// Flags and replies of RequestName (D-Bus, "Message Bus Messages").
constexpr std::uint32_t waitInQueue = 0;
constexpr std::uint32_t doNotQueue = 4;
constexpr std::uint32_t nameExists = 3;

/// The bus's reply; none, and \p error, when it refuses.
std::optional<std::uint32_t> requestName(GDBusConnection* connection, const char* name, std::uint32_t flags,
                                         std::string& error) {
    GError* failure = nullptr;
    GVariant* reply = g_dbus_connection_call_sync(connection, busDaemon, busPath, busDaemon, "RequestName",
                                                  g_variant_new("(su)", name, flags), G_VARIANT_TYPE("(u)"),
                                                  G_DBUS_CALL_FLAGS_NONE, standardPatience, nullptr, &failure);
    if (reply == nullptr) {
        error = failure->message;
        g_error_free(failure);
        return std::nullopt;
    }
    std::uint32_t code = 0;
    g_variant_get(reply, "(u)", &code);
    g_variant_unref(reply);
    return code;
}

} // namespace

BusNames::~BusNames() {
    for (const char* name : names_)
        g_dbus_connection_call(connection_, busDaemon, busPath, busDaemon, "ReleaseName",
                               g_variant_new("(s)", name), nullptr, G_DBUS_CALL_FLAGS_NONE, standardPatience,
                               nullptr, nullptr, nullptr);
    if (connection_ != nullptr) g_object_unref(connection_);
}

BusNames::Outcome BusNames::request(GDBusConnection* connection, std::string& error) {
    connection_ = G_DBUS_CONNECTION(g_object_ref(connection));
    const auto instance = requestName(connection, PreviewInterfaces::instanceName, doNotQueue, error);
    if (!instance) return Outcome::refused;
    if (*instance == nameExists) return Outcome::secondInstance;
    names_.push_back(PreviewInterfaces::instanceName);
    for (const char* name : {PreviewInterfaces::Nautilus::busName, PreviewInterfaces::Nemo::busName}) {
        if (!requestName(connection, name, waitInQueue, error)) return Outcome::refused;
        names_.push_back(name);
    }
    return Outcome::requested;
}

} // namespace quillmar
