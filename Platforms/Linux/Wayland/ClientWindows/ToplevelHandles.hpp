/// The protocol's handles of all windows, and what each of them has reported.
#pragma once

#include "Applications/ClientWindows/WindowList.hpp"
#include "ClientWindows/FirstEvents.hpp"
#include "Foundation/NonCopyable.hpp"

#include <algorithm>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace vireline::wayland {

/// `Window` has at least the members `handle` (a `Proxy`), `id` and `title`.
template <class Window>
class ToplevelHandles : private NonCopyable {
public:
    using Handle = typename decltype(Window::handle)::element_type;

    /// Reads the windows that there are already. `listen` adds the listener of `manager`; then this
    /// waits `roundTrips` times for the compositor's answers, dispatching only events of `manager`
    /// and of handles that are added meanwhile.
    template <class Manager>
    void readFirst(wl_display* display, Manager& manager, int roundTrips,
                   const std::function<void()>& listen) {
        {
            FirstEvents first{display};
            first_ = &first;
            first.add(reinterpret_cast<wl_proxy*>(&manager));
            listen();
            for (int i = 0; i < roundTrips; ++i)
                first.wait();
        }
        first_ = nullptr;
    }
    [[nodiscard]] bool isReadingFirst() const noexcept { return first_ != nullptr; }

    void add(Window window) {
        if (first_ != nullptr)
            first_->add(reinterpret_cast<wl_proxy*>(window.handle.get()));
        windows_.push_back(std::move(window));
    }
    /// Destroys the handle and returns the window's ID; nullopt if there is no such window.
    std::optional<xdg::WindowID> remove(Handle* handle) {
        const auto found = std::ranges::find(windows_, handle, handleOf);
        if (found == windows_.end())
            return std::nullopt;
        const xdg::WindowID id = found->id;
        forget(*found);
        windows_.erase(found);
        return id;
    }
    void clear() {
        std::ranges::for_each(windows_, [this](const Window& window) { forget(window); });
        windows_.clear();
    }

    /// In the order in which they were added.
    [[nodiscard]] std::vector<Window>& windows() noexcept { return windows_; }

    /// Both return null if there is no such window.
    [[nodiscard]] Window* find(Handle* handle) {
        const auto found = std::ranges::find(windows_, handle, handleOf);
        return found == windows_.end() ? nullptr : &*found;
    }
    [[nodiscard]] const Window* find(xdg::WindowID id) const {
        const auto found = std::ranges::find(windows_, id, &Window::id);
        return found == windows_.end() ? nullptr : &*found;
    }

    /// Empty for windows that are gone.
    [[nodiscard]] std::vector<std::string> titles(std::span<const xdg::WindowID> ids) const {
        std::vector<std::string> titles;
        titles.reserve(ids.size());
        for (const xdg::WindowID id : ids) {
            const Window* const window = find(id);
            titles.push_back(window == nullptr ? std::string{} : window->title);
        }
        return titles;
    }

private:
    [[nodiscard]] static Handle* handleOf(const Window& window) { return window.handle.get(); }

    /// To be called before the window's handle is destroyed.
    void forget(const Window& window) {
        if (first_ != nullptr)
            first_->remove(reinterpret_cast<const wl_proxy*>(window.handle.get()));
    }

    std::vector<Window> windows_;
    /// Null except during `readFirst`.
    FirstEvents* first_ = nullptr;
};

}
