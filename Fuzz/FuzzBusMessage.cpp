#include "Fuzz/FuzzTarget.h"
#include "QuillmarViewer/GObjectPointer.h"
#include "QuillmarViewer/MessageForms.h"

#include <string_view>
#include <tuple>

namespace quillmar {
namespace {

std::string_view signatureOf(GDBusMessage* message) {
    const char* signature = g_dbus_message_get_signature(message);
    return signature != nullptr ? signature : "";
}

/// What is no message never reaches us.
GObjectPointer<GDBusMessage> messageOf(DataView input) {
    Data bytes(input); // the library takes them unconst
    return GObjectPointer<GDBusMessage>(
        g_dbus_message_new_from_blob(reinterpret_cast<guchar*>(bytes.data()), bytes.size(),
                                     G_DBUS_CAPABILITY_FLAGS_UNIX_FD_PASSING, nullptr));
}

using Arguments = std::tuple<std::string_view, std::string_view, bool>;

/// Of a message whose arguments are of the types of \p format.
Arguments firstThree(GDBusMessage* message, const char* format) {
    const char* uri = nullptr;
    const char* handle = nullptr;
    gboolean closeIfShown = FALSE;
    g_variant_get(g_dbus_message_get_body(message), format, &uri, &handle, &closeIfShown, nullptr);
    return {uri, handle, closeIfShown != FALSE};
}

} // namespace

void fuzz(DataView input) {
    auto original = messageOf(input);
    if (!original) return;
    g_dbus_message_lock(original.get()); // as it is when it comes from the bus
    const GObjectPointer<GDBusMessage> kept(G_DBUS_MESSAGE(g_object_ref(original.get())));
    const GObjectPointer<GDBusMessage> declared(MessageForms::declaredForm(original.release()));
    const std::string token = MessageForms::activationToken(declared.get());
    require(token.size() <= MessageForms::maxTokenBytes);
    if (declared == kept) {
        require(token.empty());
        return;
    }
    require(signatureOf(kept.get()) == "ssbs" && signatureOf(declared.get()) == "ssb");
    require(g_dbus_message_get_serial(declared.get()) == g_dbus_message_get_serial(kept.get()));
    require(firstThree(declared.get(), "(&s&sb)") == firstThree(kept.get(), "(&s&sb&s)"));
}

} // namespace quillmar
