/// The windows that the window manager manages, kept up to date by events alone. Survives the
/// window manager: while one hands over to the next, what was there is still there.
#pragma once

#include "Applications/ClientWindows/ClientWindow.hpp"
#include "Applications/ClientWindows/ClientWindowReader.hpp"
#include "Foundation/Lifetime.hpp"
#include "Platform/RunLoop.hpp"
#include "X11/X11Connection.hpp"

#include <cstdint>
#include <functional>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace vireline::x11 {

class ClientList {
public:
    /// Reads the windows that are there now.
    ClientList(X11Connection& connection, RunLoop& runLoop);
    ClientList(const ClientList&) = delete;
    ClientList& operator=(const ClientList&) = delete;
    ClientList(ClientList&&) = delete;
    ClientList& operator=(ClientList&&) = delete;
    ~ClientList() = default;

    /// In the window manager's order, oldest first, this program's own left out.
    [[nodiscard]] const std::vector<ClientWindow>& windows() const noexcept { return windows_; }

    /// The window with the keyboard's focus; XCB_NONE if none has it.
    [[nodiscard]] xcb_window_t activeWindow() const noexcept { return active_; }

    /// The desktop that is shown; nothing when the window manager does not say.
    [[nodiscard]] std::optional<std::uint32_t> currentDesktop() const noexcept { return desktop_; }

    /// The windows, the active one or the desktop changed. Comes on the run loop's next turn, or
    /// before the next event of the pointer, once for all that happened before.
    std::function<void()> onChange;

private:
    struct Known {
        ClientWindow window;
        bool isOwn = false;
    };

    void handle(const xcb_generic_event_t& event);
    void scheduleRefresh();
    void refresh();
    [[nodiscard]] std::vector<xcb_window_t> listedWindows();
    void watchManager(xcb_window_t manager);
    void noteManager();
    [[nodiscard]] bool isHandingOver(const std::vector<xcb_window_t>& listed);
    void learn(const std::vector<xcb_window_t>& listed);
    void noteEarlierWindows();
    void noteActive(xcb_window_t active);

    X11Connection& connection_;
    RunLoop& runLoop_;
    ClientWindowReader reader_;
    std::unordered_map<xcb_window_t, Known> known_;
    /// Windows of which something changed since they were read.
    std::unordered_set<xcb_window_t> stale_;
    std::vector<ClientWindow> windows_;
    xcb_window_t active_ = XCB_NONE;
    std::optional<std::uint32_t> desktop_;
    std::uint64_t activations_ = 0;
    /// The window by which the window manager shows that it lives.
    xcb_window_t manager_ = XCB_NONE;
    bool hasManager_ = true;
    /// The same without the gap between one window manager and the next.
    bool isManaged_ = true;
    /// When the list was first seen to lack windows that are still shown.
    std::optional<double> handOverSince_;
    Timer refresh_;
    bool isRefreshDue_ = false;
    Timer handOver_;
    Subscription events_;
    Lifetime lifetime_;
};

}
