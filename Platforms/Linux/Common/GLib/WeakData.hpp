/// A weak pointer as the user data of GLib's callbacks, which may come when the object is gone.
#pragma once

#include <glib.h>

#include <memory>
#include <utility>

namespace vireline::xdg {

template <class T>
struct WeakData {
    using Pointer = std::weak_ptr<T>;

    /// Owned by GLib until it calls `destroy`, or until the callback takes it.
    [[nodiscard]] static gpointer make(Pointer object) {
        return std::make_unique<Pointer>(std::move(object)).release();
    }

    /// Null once the object is gone.
    [[nodiscard]] static std::shared_ptr<T> lock(gpointer data) {
        return static_cast<const Pointer*>(data)->lock();
    }

    /// For a callback that is called exactly once.
    [[nodiscard]] static std::shared_ptr<T> take(gpointer data) {
        const auto object = lock(data);
        destroy(data);
        return object;
    }

    static void destroy(gpointer data) {
        std::unique_ptr<Pointer>{static_cast<Pointer*>(data)}.reset();
    }
};

}
