#include "QuillmarViewer/ColorScheme.h"

#include "QuillmarViewer/GObjectPointer.h"

#include <gtk/gtk.h>
#include <string_view>

namespace quillmar {
namespace {

constexpr const char* portalName = "org.freedesktop.portal.Desktop";
constexpr const char* portalPath = "/org/freedesktop/portal/desktop";
constexpr const char* portalInterface = "org.freedesktop.portal.Settings";
constexpr const char* appearance = "org.freedesktop.appearance";
constexpr const char* colorScheme = "color-scheme";
constexpr const char* desktopSettings = "org.gnome.desktop.interface";

/// GTK reads its whole theme again whenever it is told, so it is told changes only.
void setDark(bool isDark) {
    constexpr const char* property = "gtk-application-prefer-dark-theme";
    GtkSettings* settings = gtk_settings_get_default();
    gboolean before = FALSE;
    g_object_get(settings, property, &before, nullptr);
    if ((before != FALSE) != isDark) g_object_set(settings, property, isDark ? TRUE : FALSE, nullptr);
}

/// The portal's numbers: 0 no preference, 1 dark, 2 light. The value may be wrapped more than once.
void apply(GVariant* value) {
    constexpr guint32 dark = 1;
    GVariant* inner = g_variant_ref(value);
    while (g_variant_is_of_type(inner, G_VARIANT_TYPE_VARIANT)) {
        GVariant* next = g_variant_get_variant(inner);
        g_variant_unref(inner);
        inner = next;
    }
    if (g_variant_is_of_type(inner, G_VARIANT_TYPE_UINT32)) setDark(g_variant_get_uint32(inner) == dark);
    g_variant_unref(inner);
}

} // namespace

struct ColorScheme::Callbacks {
    static void portalChanged(GDBusConnection*, const char*, const char*, const char*, const char*,
                              GVariant* parameters, gpointer) {
        if (!g_variant_is_of_type(parameters, G_VARIANT_TYPE("(ssv)"))) return;
        const char* group = nullptr;
        const char* key = nullptr;
        GVariant* value = nullptr;
        g_variant_get(parameters, "(&s&sv)", &group, &key, &value);
        if (std::string_view(group) == appearance && std::string_view(key) == colorScheme) apply(value);
        g_variant_unref(value);
    }

    static void portalAnswered(GObject* connection, GAsyncResult* result, gpointer) {
        GVariant* answer = g_dbus_connection_call_finish(G_DBUS_CONNECTION(connection), result, nullptr);
        if (answer == nullptr) return; // no portal, or nobody waits any more
        GVariant* value = g_variant_get_child_value(answer, 0);
        apply(value);
        g_variant_unref(value);
        g_variant_unref(answer);
    }

    static void settingsChanged(GSettings* settings, const char*, gpointer) {
        const GString8 wanted(g_settings_get_string(settings, colorScheme));
        setDark(std::string_view(wanted.get()) == "prefer-dark");
    }
};

ColorScheme::ColorScheme(GDBusConnection* connection) : connection_(connection) {
    GSettingsSchemaSource* source = g_settings_schema_source_get_default();
    GSettingsSchema* schema =
        source != nullptr ? g_settings_schema_source_lookup(source, desktopSettings, TRUE) : nullptr;
    if (schema != nullptr && g_settings_schema_has_key(schema, colorScheme)) {
        settings_ = g_settings_new(desktopSettings);
        Callbacks::settingsChanged(settings_, colorScheme, nullptr);
        g_signal_connect(settings_, "changed::color-scheme", G_CALLBACK(Callbacks::settingsChanged), nullptr);
    }
    if (schema != nullptr) g_settings_schema_unref(schema);
    if (connection_ == nullptr) return;
    reading_ = g_cancellable_new();
    subscription_ = g_dbus_connection_signal_subscribe(
        connection_, portalName, portalInterface, "SettingChanged", portalPath, appearance,
        G_DBUS_SIGNAL_FLAGS_NONE, Callbacks::portalChanged, nullptr, nullptr);
    constexpr int patience = 1'000; // milliseconds
    g_dbus_connection_call(connection_, portalName, portalPath, portalInterface, "Read",
                           g_variant_new("(ss)", appearance, colorScheme), G_VARIANT_TYPE("(v)"),
                           G_DBUS_CALL_FLAGS_NO_AUTO_START, patience, reading_, Callbacks::portalAnswered,
                           nullptr);
}

ColorScheme::~ColorScheme() {
    if (reading_ != nullptr) {
        g_cancellable_cancel(reading_);
        g_object_unref(reading_);
    }
    if (subscription_ != 0) g_dbus_connection_signal_unsubscribe(connection_, subscription_);
    if (settings_ != nullptr) g_object_unref(settings_);
}

} // namespace quillmar
