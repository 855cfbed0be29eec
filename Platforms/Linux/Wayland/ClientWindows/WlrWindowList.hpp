/// All programs' windows through zwlr_foreign_toplevel_manager_v1, which most compositors that are
/// built on wlroots offer.
#pragma once

#include "ClientWindows/ToplevelHandles.hpp"
#include "ClientWindows/ToplevelList.hpp"
#include "Connection/Proxies.hpp"
#include "Connection/WaylandConnection.hpp"

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

struct wl_seat;
struct zwlr_foreign_toplevel_handle_v1;
struct zwlr_foreign_toplevel_manager_v1;

namespace vireline::wayland {

class WlrWindowList final : public ToplevelList {
public:
    /// Null if the compositor does not offer the protocol. `seat` is asked for the user's seat when
    /// a window is activated, and may return null. Waits for the list of windows.
    [[nodiscard]] static std::unique_ptr<WlrWindowList> create(const WaylandConnection& connection,
                                                               std::string ownAppID,
                                                               std::function<wl_seat*()> seat);
    ~WlrWindowList() override;

    [[nodiscard]] std::vector<std::string>
    titles(std::span<const xdg::WindowID> windows) const override {
        return handles_.titles(windows);
    }
    void iconify(xdg::WindowID window) override;
    void restore(xdg::WindowID window) override;
    void activate(xdg::WindowID window) override;
    void close(xdg::WindowID window) override;
    void flush() override { connection_.flush(); }

private:
    struct Events;

    struct Window {
        Proxy<zwlr_foreign_toplevel_handle_v1> handle;
        xdg::WindowID id = xdg::WindowID::none;
        /// What was announced; valid once the event `done` has arrived.
        ToplevelState state;
        std::string title;
    };

    WlrWindowList(const WaylandConnection& connection,
                  Proxy<zwlr_foreign_toplevel_manager_v1> manager, std::string ownAppID,
                  std::function<wl_seat*()> seat);

    void readFirst();
    void finish();
    void came(zwlr_foreign_toplevel_handle_v1* handle);
    /// Null if the window is gone.
    [[nodiscard]] zwlr_foreign_toplevel_handle_v1* handleOf(xdg::WindowID window) const;

    const WaylandConnection& connection_;
    std::function<wl_seat*()> seat_;
    ToplevelHandles<Window> handles_;
    Proxy<zwlr_foreign_toplevel_manager_v1> manager_;
};

}
