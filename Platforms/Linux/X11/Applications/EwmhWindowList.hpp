/// The window manager's list of all programs' windows, and the requests that EWMH has for them.
#pragma once

#include "Applications/ClientList.hpp"
#include "Applications/ClientWindows/WindowList.hpp"
#include "Connection/X11Connection.hpp"
#include "Connection/XcbWindows.hpp"
#include "Foundation/CallbackList.hpp"
#include "Foundation/NonCopyable.hpp"

#include <functional>
#include <utility>

namespace vireline::x11 {

class EwmhWindowList final : public xdg::WindowList, private NonCopyable {
public:
    EwmhWindowList(X11Connection& connection, RunLoop& runLoop);

    [[nodiscard]] const std::vector<xdg::ClientWindow>& windows() const override {
        return clients_.windows();
    }
    [[nodiscard]] xdg::WindowID activeWindow() const override {
        return windowID(clients_.activeWindow());
    }
    [[nodiscard]] std::optional<std::uint32_t> currentDesktop() const override {
        return clients_.currentDesktop();
    }
    [[nodiscard]] Subscription observe(std::function<void()> handler) override {
        return changes_.add(std::move(handler));
    }
    [[nodiscard]] std::vector<std::string>
    titles(std::span<const xdg::WindowID> windows) const override;
    [[nodiscard]] std::vector<xdg::WindowIcon> icons(xdg::WindowID window) const override;

    void iconify(xdg::WindowID window) override;
    void restore(xdg::WindowID window) override;
    void activate(xdg::WindowID window) override;
    void close(xdg::WindowID window) override;
    void showDesktop(std::uint32_t desktop) override;
    void flush() override { connection_.flush(); }

private:
    X11Connection& connection_;
    ClientList clients_;
    CallbackList<> changes_;
};

}
