#pragma once

#include <atomic>
#include <cstdint>
#include <gio/gio.h>
#include <string>

namespace quillmar {

/// The portal by which a desktop tells programs whether it is light or dark.
class SettingsPortal {
public:
    enum class Scheme : std::uint32_t { dark = 1, light = 2 };

    /// On the bus at \p address. Throws when another program has the name.
    explicit SettingsPortal(const std::string& address);
    ~SettingsPortal();
    SettingsPortal(const SettingsPortal&) = delete;
    SettingsPortal& operator=(const SettingsPortal&) = delete;

    /// Answers with \p scheme from now on, and says so.
    void choose(Scheme scheme);

private:
    static GDBusMessage* answer(GDBusConnection* connection, GDBusMessage* message, gboolean isIncoming,
                                gpointer self);

    GDBusConnection* connection_ = nullptr;
    guint filter_ = 0;
    std::atomic<Scheme> scheme_ = Scheme::light; ///< the connection answers in a thread of its own
};

} // namespace quillmar
