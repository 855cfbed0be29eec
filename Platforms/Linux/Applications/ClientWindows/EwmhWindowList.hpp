/// The window manager's list of all programs' windows, and the requests that EWMH has for them.
#pragma once

#include "Applications/ClientWindows/ClientList.hpp"
#include "Applications/ClientWindows/WindowList.hpp"
#include "Applications/ClientWindows/XcbWindows.hpp"
#include "Foundation/CallbackList.hpp"
#include "Foundation/NonCopyable.hpp"
#include "X11/X11Connection.hpp"

#include <functional>
#include <utility>

namespace vireline::x11 {

class EwmhWindowList final : public WindowList, private NonCopyable {
public:
    EwmhWindowList(X11Connection& connection, RunLoop& runLoop);

    [[nodiscard]] const std::vector<ClientWindow>& windows() const override {
        return clients_.windows();
    }
    [[nodiscard]] WindowID activeWindow() const override {
        return windowID(clients_.activeWindow());
    }
    [[nodiscard]] std::optional<std::uint32_t> currentDesktop() const override {
        return clients_.currentDesktop();
    }
    [[nodiscard]] Subscription observe(std::function<void()> handler) override {
        return changes_.add(std::move(handler));
    }
    [[nodiscard]] std::vector<WindowIcon> icons(WindowID window) const override;

    void iconify(WindowID window) override;
    void restore(WindowID window) override;
    void activate(WindowID window) override;
    void close(WindowID window) override;
    void showDesktop(std::uint32_t desktop) override;
    void flush() override { connection_.flush(); }

private:
    X11Connection& connection_;
    ClientList clients_;
    CallbackList<> changes_;
};

}
