#pragma once

#include <functional>
#include <gio/gio.h>
#include <stdexcept>
#include <string>

namespace quillmar {

/// A session bus of its own, gone with this.
class SessionBus {
public:
    SessionBus() : bus_(g_test_dbus_new(G_TEST_DBUS_NONE)) { g_test_dbus_up(bus_); }
    ~SessionBus() {
        g_test_dbus_down(bus_);
        g_object_unref(bus_);
    }
    SessionBus(const SessionBus&) = delete;
    SessionBus& operator=(const SessionBus&) = delete;

    std::string address() const { return g_test_dbus_get_bus_address(bus_); }

private:
    GTestDBus* bus_;
};

/// Runs the main loop until \p condition holds. False when it does not come true for so long that it never
/// will.
inline bool waitUntil(const std::function<bool()>& condition) {
    constexpr guint tick = 10; // milliseconds, after which it is asked again although nothing has happened
    constexpr int patience = 2'000;
    int ticks = 0;
    const auto count = [](gpointer counted) -> gboolean {
        ++*static_cast<int*>(counted);
        return G_SOURCE_CONTINUE;
    };
    const guint timer = g_timeout_add(tick, count, &ticks);
    bool isMet = condition();
    while (!isMet && ticks < patience) {
        g_main_context_iteration(nullptr, TRUE);
        isMet = condition();
    }
    g_source_remove(timer);
    return isMet;
}

/// A program on the bus: the previewer's connection, or a file manager.
class BusPeer {
public:
    explicit BusPeer(const SessionBus& bus) {
        const auto flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                             G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
        connection_ =
            g_dbus_connection_new_for_address_sync(bus.address().c_str(), flags, nullptr, nullptr, nullptr);
        if (connection_ == nullptr) throw std::runtime_error("cannot connect to the bus");
    }
    ~BusPeer() {
        close();
        g_object_unref(connection_);
    }
    BusPeer(const BusPeer&) = delete;
    BusPeer& operator=(const BusPeer&) = delete;

    GDBusConnection* connection() const { return connection_; }
    std::string name() const {
        const char* name = g_dbus_connection_get_unique_name(connection_);
        return name != nullptr ? name : std::string();
    }
    void close() const { g_dbus_connection_close_sync(connection_, nullptr, nullptr); }

    struct Method {
        const char* busName;
        const char* path;
        const char* interface;
        const char* member;
    };
    /// The reply printed as GVariant text, or the name of the error. \p arguments is GVariant text, too.
    std::string call(const Method& method, const std::string& arguments = "()") const {
        std::string answer;
        send(method, arguments, &answer);
        return waitUntil([&] { return !answer.empty(); }) ? answer : "no answer";
    }
    /// Calls, and goes on. The \p answer, where one is wanted, is put in place when it comes.
    void send(const Method& method, const std::string& arguments, std::string* answer = nullptr) const {
        GVariant* parsed = g_variant_parse(nullptr, arguments.c_str(), nullptr, nullptr, nullptr);
        if (parsed == nullptr) throw std::runtime_error("bad arguments");
        constexpr int neverTimesOut = G_MAXINT;
        g_dbus_connection_call(connection_, method.busName, method.path, method.interface, method.member,
                               parsed, nullptr, G_DBUS_CALL_FLAGS_NO_AUTO_START, neverTimesOut, nullptr,
                               answer != nullptr ? answered : nullptr, answer);
        g_variant_unref(parsed);
    }

private:
    static void answered(GObject* connection, GAsyncResult* result, gpointer answer) {
        GError* failure = nullptr;
        GVariant* reply = g_dbus_connection_call_finish(G_DBUS_CONNECTION(connection), result, &failure);
        char* text = reply != nullptr ? g_variant_print(reply, TRUE) : g_dbus_error_get_remote_error(failure);
        *static_cast<std::string*>(answer) = text != nullptr ? text : failure->message;
        g_free(text);
        g_clear_error(&failure);
        if (reply != nullptr) g_variant_unref(reply);
    }

    GDBusConnection* connection_ = nullptr;
};

} // namespace quillmar
