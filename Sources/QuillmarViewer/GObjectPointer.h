#pragma once

#include <glib-object.h>
#include <memory>

namespace quillmar {

struct Unreference {
    void operator()(gpointer object) const { g_object_unref(object); }
};

/// A reference of one's own to an object of GObject's.
template <typename Type>
using GObjectPointer = std::unique_ptr<Type, Unreference>;

struct Free {
    void operator()(gpointer memory) const { g_free(memory); }
};

/// Text or memory that GLib has handed over.
using GString8 = std::unique_ptr<char, Free>;

} // namespace quillmar
