/// Owning handles for GLib's objects.
#pragma once

#include <gio/gio.h>

#include <memory>

namespace vireline::xdg {

struct GObjectUnref {
    void operator()(gpointer object) const noexcept { g_object_unref(object); }
};

/// Owns one reference to a GObject.
template <class T>
using GObjectHandle = std::unique_ptr<T, GObjectUnref>;

/// Owns a GLib structure that `end` frees.
template <class T, auto end>
struct GLibEnd {
    void operator()(T* value) const noexcept { end(value); }
};

template <class T, auto end>
using GLibHandle = std::unique_ptr<T, GLibEnd<T, end>>;

using GErrorHandle = GLibHandle<GError, g_error_free>;

}
