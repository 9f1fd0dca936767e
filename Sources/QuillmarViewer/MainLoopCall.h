#pragma once

#include <gio/gio.h>

namespace quillmar {

/// A function that runs on the main loop some time after any thread has asked for it. Requests that come before
/// it runs are one, so nobody can pile them up.
class MainLoopCall {
public:
    using Function = void (*)(void*);

    /// Belongs to the main context of the thread that makes it, and goes in that thread.
    MainLoopCall(Function function, void* context);
    ~MainLoopCall();
    MainLoopCall(const MainLoopCall&) = delete;
    MainLoopCall& operator=(const MainLoopCall&) = delete;

    /// From any thread.
    void request() { request(source_); }
    /// For those who keep the source by a reference of their own and may outlive this object: asking is then
    /// without effect.
    static void request(GSource* source) { g_source_set_ready_time(source, 0); }
    GSource* source() const { return source_; }

private:
    static gboolean dispatch(GSource* source, GSourceFunc callback, gpointer self);

    Function function_;
    void* context_;
    GSource* source_;
};

} // namespace quillmar
