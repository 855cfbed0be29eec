/// Base of the tests of lists of windows under the fake compositor.
#pragma once

#include "Applications/ClientWindows/WindowList.hpp"
#include "Connection/WaylandConnection.hpp"
#include "Wayland/Fakes/FakeCompositor.hpp"

#include <gtest/gtest.h>
#include <wayland-client.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vireline::wayland {

using Texts = std::vector<std::string>;

inline Texts classesOf(const xdg::WindowList& list) {
    Texts names;
    for (const xdg::ClientWindow& window : list.windows())
        names.push_back(window.traits.className);
    return names;
}

/// `Fake` offers the windows, and `List` lists them. Events are dispatched by `sync` only.
template <class List, class Fake>
class WindowListTest : public testing::Test {
protected:
    static constexpr const char* ownAppID = "org.example.ours";

    [[nodiscard]] virtual std::unique_ptr<List> makeList() = 0;

    void open() {
        display_ = compositor_.connect();
        connection_.emplace(display_.get());
        list_ = makeList();
        watch_ = list_->observe([this] { ++changes_; });
    }
    /// Twice, since KWin describes a window only when asked.
    void sync() const {
        wl_display_roundtrip(display_.get());
        wl_display_roundtrip(display_.get());
    }
    [[nodiscard]] const xdg::ClientWindow& window(std::size_t index) const {
        return list_->windows().at(index);
    }
    /// The requests since the previous call.
    [[nodiscard]] Texts requests() {
        list_->flush();
        sync();
        return fake_.requests();
    }

    FakeCompositor compositor_;
    Fake fake_{compositor_};
    Proxy<wl_display> display_;
    std::optional<WaylandConnection> connection_;
    std::unique_ptr<List> list_;
    int changes_ = 0;
    Subscription watch_;
};

}
