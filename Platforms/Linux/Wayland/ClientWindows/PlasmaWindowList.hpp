/// All programs' windows through org_kde_plasma_window_management, which KWin offers to programs
/// whose desktop entry asks for it.
#pragma once

#include "ClientWindows/KWinWindow.hpp"
#include "ClientWindows/ToplevelHandles.hpp"
#include "ClientWindows/ToplevelList.hpp"
#include "Connection/Proxies.hpp"
#include "Connection/WaylandConnection.hpp"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

struct org_kde_plasma_window;
struct org_kde_plasma_window_management;

namespace vireline::wayland {

class PlasmaWindowList final : public ToplevelList {
public:
    /// Null if the compositor does not offer the protocol. Waits for the list of windows.
    [[nodiscard]] static std::unique_ptr<PlasmaWindowList>
    create(const WaylandConnection& connection, std::string ownAppID);
    ~PlasmaWindowList() override;

    [[nodiscard]] std::vector<std::string>
    titles(std::span<const xdg::WindowID> windows) const override {
        return handles_.titles(windows);
    }
    void iconify(xdg::WindowID window) override;
    void restore(xdg::WindowID window) override;
    void activate(xdg::WindowID window) override;
    void close(xdg::WindowID window) override;
    void flush() override { connection_.flush(); }

    /// nullopt if the window is gone.
    [[nodiscard]] std::optional<KWinWindow> details(xdg::WindowID window) const;

private:
    struct Events;

    struct Window {
        Proxy<org_kde_plasma_window> handle;
        xdg::WindowID id = xdg::WindowID::none;
        KWinWindow details;
        ToplevelState state;
        std::string title;
        /// Whether KWin has described the window completely.
        bool isDescribed = false;
    };

    PlasmaWindowList(const WaylandConnection& connection,
                     Proxy<org_kde_plasma_window_management> manager, std::string ownAppID);

    void readFirst();
    void came(const std::string& uuid);
    /// Passes on what has changed, except while the first list is being read.
    void changed(const Window& window);
    void setMinimised(xdg::WindowID window, bool isMinimised);

    const WaylandConnection& connection_;
    Proxy<org_kde_plasma_window_management> manager_;
    ToplevelHandles<Window> handles_;
    /// The windows' UUIDs from the lowest to the topmost, as of the first list.
    std::string stacking_;
};

}
