#include "VirtualDesktop/Session/ManagerState.hpp"

#include "VirtualDesktop/Processes/Waiting.hpp"

#include <csignal>

namespace vireline::desktop {

xcb_window_t managerWindow(const XClient& client) {
    const auto check = client.items(client.root(), "_NET_SUPPORTING_WM_CHECK");
    if (check.empty() || client.items(check.front(), "_NET_SUPPORTING_WM_CHECK") != check)
        return XCB_NONE;
    return check.front();
}

void awaitEnd(ChildProcess& manager) {
    constexpr std::chrono::milliseconds grace{300};
    if (!eventually([&] { return !manager.isRunning(); }, grace))
        manager.signal(SIGKILL);
}

bool managesWindows(const XClient& client) {
    constexpr std::chrono::milliseconds attempt{100};
    const xcb_window_t probe = client.createWindow({0, 0, 1, 1}, 0);
    // Not an app's window, for which docks would show a tile.
    client.setAtoms(probe, "_NET_WM_WINDOW_TYPE", {"_NET_WM_WINDOW_TYPE_UTILITY"});
    const bool isManaged = eventually([&] {
        client.map(probe);
        if (eventually([&] { return client.hasProperty(probe, "WM_STATE"); }, attempt))
            return true;
        xcb_unmap_window(client.get(), probe);
        return false;
    });
    client.destroy(probe);
    return isManaged;
}

}
