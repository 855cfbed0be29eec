#include "Tour/TourSession.hpp"

#include "VirtualDesktop/Screen/Wallpaper.hpp"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cctype>

namespace vireline::desktop {
namespace {

/// GTK names windows by the program, without the domain.
bool isAppOf(std::string_view app, std::string_view window) {
    return !window.empty() && app.ends_with(window);
}

class XSession final : public TourSession {
public:
    [[nodiscard]] Programs programs() const override {
        return {TESTED_PROGRAM, TEST_APP, FILE_MANAGER};
    }
    [[nodiscard]] std::vector<Monitor> monitors() const override {
        return {{"main", {1280, 620, 1600, 900}},
                {"above-left", {0, 0, 1280, 800}},
                {"side", {2880, 500, 1080, 1020}}};
    }
    [[nodiscard]] std::string dock() const override { return "above-left"; }
    [[nodiscard]] std::optional<WindowManager> manager() const override { return std::nullopt; }

    /// A wallpaper, and another program's panel.
    void decorate(VirtualDesktop& desktop) const override {
        paintWallpaper(desktop.client(), desktop.displays().monitors);
        constexpr int panelThickness = 44;
        desktop.reserve({"main", Edge::bottom, panelThickness});
    }

    [[nodiscard]] bool shows(VirtualDesktop& desktop, std::string_view app) const override {
        const auto& client = desktop.client();
        return std::ranges::any_of(client.managedWindows(), [&](xcb_window_t window) {
            auto name = client.text(window, "WM_CLASS");
            name.erase(std::min(name.find('\0'), name.size()));
            std::ranges::transform(name, name.begin(),
                                   [](unsigned char letter) { return std::tolower(letter); });
            return isAppOf(app, name) && client.isViewable(window) && !isDock(client, window);
        });
    }

    [[nodiscard]] bool showsMenu(const VirtualDesktop& desktop,
                                 const Picture& /*before*/) const override {
        return !desktop.docks().menus().empty();
    }

private:
    static bool isDock(const XClient& client, xcb_window_t window) {
        return client.text(window, "_NET_WM_NAME").starts_with("Vireline dock");
    }
};

/// Whether a window of this app is visible in or below the node of sway's tree.
bool isVisibleIn(const nlohmann::json& node, std::string_view app) {
    const auto id = node.find("app_id");
    if (node.value("visible", false) && id != node.end() && id->is_string() &&
        isAppOf(app, id->get<std::string>()))
        return true;
    return std::ranges::any_of(std::array{"nodes", "floating_nodes"}, [&](const char* children) {
        return node.contains(children) &&
               std::ranges::any_of(node[children],
                                   [&](const auto& child) { return isVisibleIn(child, app); });
    });
}

class SwayTourSession final : public TourSession {
public:
    [[nodiscard]] Programs programs() const override {
        return {TESTED_PROGRAM, WAYLAND_TEST_APP, FILE_MANAGER};
    }
    /// The one at the layout's origin counts as the display of the desktop's own dock.
    [[nodiscard]] std::vector<Monitor> monitors() const override {
        return {{"main", {0, 0, 1600, 900}},
                {"middle", {1600, 0, 1280, 800}},
                {"side", {2880, 0, 1080, 1020}}};
    }
    [[nodiscard]] std::string dock() const override { return "middle"; }
    [[nodiscard]] std::optional<WindowManager> manager() const override {
        return WindowManager::sway;
    }

    /// The compositor's socket has a name in the user's runtime folder, as in every session.
    void decorate(VirtualDesktop& desktop) const override {
        auto& environment = desktop.environment();
        const std::filesystem::path socket{environment["WAYLAND_DISPLAY"]};
        const auto name = socket.filename();
        std::filesystem::create_symlink(socket, environment["XDG_RUNTIME_DIR"] / name);
        environment["WAYLAND_DISPLAY"] = name;
    }

    [[nodiscard]] bool shows(VirtualDesktop& desktop, std::string_view app) const override {
        const auto answer = desktop.home().scratch() / "tree.json";
        std::filesystem::remove(answer);
        ChildProcess query{{.program = "swaymsg",
                            .arguments = {"--raw", "--type", "get_tree"},
                            .environment = desktop.environment(),
                            .output = answer,
                            .errors = {},
                            .inherited = {}}};
        if (query.waitForExit() != 0)
            return false;
        return isVisibleIn(nlohmann::json::parse(readFile(answer)), app);
    }

    /// Popups are not in sway's tree.
    [[nodiscard]] bool showsMenu(const VirtualDesktop& desktop,
                                 const Picture& before) const override {
        return Picture::ofScreen(desktop.client()) != before;
    }
};

}

std::unique_ptr<TourSession> tourSession(bool isWayland) {
    if (isWayland)
        return std::make_unique<SwayTourSession>();
    return std::make_unique<XSession>();
}

}
