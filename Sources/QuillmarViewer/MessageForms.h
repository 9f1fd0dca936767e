#pragma once

#include "QuillmarViewer/MainLoopCall.h"

#include <cstddef>
#include <gio/gio.h>
#include <string>

namespace quillmar {

/// Looks at the messages that come in before GDBus does, in GDBus's own thread. `ShowFile` with four arguments
/// would be refused, for the interface declares three: it is handed on in the form with three. A ping, which
/// GDBus answers without asking anybody, is noticed.
class MessageForms {
public:
    /// \p pinged is requested at each ping.
    MessageForms(GDBusConnection* connection, const MainLoopCall& pinged);
    ~MessageForms();
    MessageForms(const MessageForms&) = delete;
    MessageForms& operator=(const MessageForms&) = delete;

    /// The fourth argument of \p call, empty when it had three, or is longer than `maxTokenBytes`.
    static std::string activationToken(GDBusMethodInvocation* call);
    /// The same of the message of a call.
    static std::string activationToken(GDBusMessage* message);

    /// \p message as GDBus is to see it; replaced by a copy when it is a `ShowFile` with four arguments.
    static GDBusMessage* declaredForm(GDBusMessage* message);

    /// Wayland's library breaks the connection off, and GTK ends the program, over a message that is larger
    /// than 4,096 bytes (`wl_connection_write`). The compositors' own tokens have some 40.
    static constexpr std::size_t maxTokenBytes = 1'024;

private:
    GDBusConnection* connection_;
    guint filter_;
};

} // namespace quillmar
