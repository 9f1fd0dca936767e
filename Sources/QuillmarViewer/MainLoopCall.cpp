#include "QuillmarViewer/MainLoopCall.h"

namespace quillmar {

MainLoopCall::MainLoopCall(Function function, void* context) : function_(function), context_(context) {
    static GSourceFuncs functions{nullptr, nullptr, dispatch, nullptr, nullptr, nullptr};
    source_ = g_source_new(&functions, sizeof(GSource));
    // Dispatching calls no callback; what it needs is handed to it as the callback's data.
    g_source_set_callback(source_, nullptr, this, nullptr);
    GMainContext* mainContext = g_main_context_ref_thread_default();
    g_source_attach(source_, mainContext);
    g_main_context_unref(mainContext);
}

MainLoopCall::~MainLoopCall() {
    g_source_destroy(source_);
    g_source_unref(source_);
}

gboolean MainLoopCall::dispatch(GSource* source, GSourceFunc, gpointer self) {
    g_source_set_ready_time(source, -1);
    const auto* call = static_cast<const MainLoopCall*>(self);
    // The last thing that happens: the function may let go of this object.
    call->function_(call->context_);
    return G_SOURCE_CONTINUE;
}

} // namespace quillmar
