#pragma once

#include "QuillmarViewer/MainLoopCall.h"

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

    /// The fourth argument of \p call, empty when it had three.
    static std::string activationToken(GDBusMethodInvocation* call);

private:
    GDBusConnection* connection_;
    guint filter_;
};

} // namespace quillmar
