#pragma once

#include <gio/gio.h>
#include <mutex>
#include <string>
#include <vector>

namespace quillmar {

/// A message bus: calls of the test's own, and all that is said on it by others.
class DesktopBus {
public:
    /// Throws when the bus does not take us.
    explicit DesktopBus(const std::string& address);
    ~DesktopBus();
    DesktopBus(const DesktopBus&) = delete;
    DesktopBus& operator=(const DesktopBus&) = delete;

    /// Another connection to the bus at \p address. Throws when it does not take us.
    static GDBusConnection* connect(const std::string& address);

    struct Reply {
        bool succeeded = false;
        std::string text; ///< as GLib writes values, or the error
    };
    /// Takes a floating \p arguments; null for none.
    Reply call(const char* name, const char* path, const char* interface, const char* method,
               GVariant* arguments);
    bool hasOwner(const char* name);

    struct Message {
        std::string member;
        std::string arguments; ///< as GLib writes values, without their types
        bool operator==(const Message&) const = default;
    };
    /// What has been called and signalled on \p path, by anybody, since the last `forget`.
    std::vector<Message> messages(const std::string& path) const;
    bool wasSaid(const std::string& path, const Message& message) const;
    void forget();

private:
    struct Heard {
        std::string path;
        Message message;
    };

    static GDBusMessage* hear(GDBusConnection*, GDBusMessage* message, gboolean isIncoming, gpointer self);

    GDBusConnection* connection_ = nullptr;
    GDBusConnection* monitor_ = nullptr;
    guint filter_ = 0;
    mutable std::mutex mutex_; ///< the monitor hears in a thread of its own
    std::vector<Heard> heard_;
};

} // namespace quillmar
