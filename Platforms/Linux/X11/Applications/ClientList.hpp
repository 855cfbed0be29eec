/// The window manager's clients, updated by events alone. While one window manager replaces
/// another, the previous list is kept.
#pragma once

#include "Applications/ClientWindowReader.hpp"
#include "Applications/ClientWindows/ClientWindow.hpp"
#include "Connection/X11Connection.hpp"
#include "Foundation/Lifetime.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Platform/RunLoop.hpp"

#include <cstdint>
#include <functional>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace vireline::x11 {

class ClientList : private NonCopyable {
public:
    /// Reads the current windows.
    ClientList(X11Connection& connection, RunLoop& runLoop);

    /// In the window manager's order, oldest first, without this program's own windows.
    [[nodiscard]] const std::vector<xdg::ClientWindow>& windows() const noexcept {
        return windows_;
    }

    /// The window with keyboard focus; XCB_NONE if there is none.
    [[nodiscard]] xcb_window_t activeWindow() const noexcept { return active_; }

    /// The current desktop; nullopt if the window manager does not say.
    [[nodiscard]] std::optional<std::uint32_t> currentDesktop() const noexcept { return desktop_; }

    /// The windows, the active one or the desktop changed. Coalesced: called on the run loop's next
    /// turn, or before the next pointer event.
    std::function<void()> onChange;

private:
    struct Known {
        xdg::ClientWindow window;
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
    /// Windows that changed since they were last read.
    std::unordered_set<xcb_window_t> stale_;
    std::vector<xdg::ClientWindow> windows_;
    xcb_window_t active_ = XCB_NONE;
    std::optional<std::uint32_t> desktop_;
    std::uint64_t activations_ = 0;
    /// The window manager's check window (`_NET_SUPPORTING_WM_CHECK`).
    xcb_window_t manager_ = XCB_NONE;
    bool hasManager_ = true;
    /// As `hasManager_`, but not reset while one window manager hands over to the next.
    bool isManaged_ = true;
    /// The time at which the list began to lack windows that are still mapped.
    std::optional<double> handOverSince_;
    Timer refresh_;
    bool isRefreshDue_ = false;
    Timer handOver_;
    Subscription events_;
    Lifetime lifetime_;
};

}
