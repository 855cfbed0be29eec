#include "ManagerStory.hpp"

#include <algorithm>
#include <array>
#include <sstream>
#include <stdexcept>

namespace vireline::desktop {
namespace {

constexpr int panelThickness = 40;
constexpr std::uint32_t fromPager = 2;

/// Compositing managers may keep windows of other desktops mapped without painting them. Managers
/// with separate desktops per monitor unmap such windows.
bool isOnAnotherDesktop(const XClient& client, xcb_window_t window) {
    const auto manager = testedManager();
    if (manager != WindowManager::kwin && manager != WindowManager::mutter)
        return false;
    constexpr std::uint32_t all = 0xffffffff;
    const auto own = client.items(window, "_NET_WM_DESKTOP");
    const auto current = client.items(client.root(), "_NET_CURRENT_DESKTOP");
    return !own.empty() && own.front() != all && own != current;
}

/// The others move docks elsewhere, put borders around them, cover them or do not manage them.
bool keepsDocks(std::optional<WindowManager> manager) {
    constexpr std::array others{WindowManager::i3, WindowManager::awesome, WindowManager::bspwm};
    return !manager || std::ranges::find(others, *manager) == others.end();
}

std::string place(PixelPoint corner) {
    return std::to_string(corner.x) + "," + std::to_string(corner.y);
}

}

void ManagerStory::start(const std::string& preferences) {
    Options options;
    options.monitors = monitors;
    options.outputs = true;
    options.windowManager = hasManager();
    options.managerComposites = true;
    auto& desktop = make(options);
    desktop.reserve({outputName(0), Edge::bottom, panelThickness});
    for (const auto& app : {alpha, beta})
        desktop.home().install(app);
    desktop.home().pin(std::vector{alpha, beta});
    desktop.home().writePreferences(R"({"onboardingCompleted": true)" + preferences + "}");
    desktop.pointer().moveTo(middle.monitor.center());
    desktop.runVireline();
}

void ManagerStory::run(const std::string& preferences) {
    start(preferences);
    demand(comes([&] { return isInPlace(middle) && isInPlace(side); }),
           "docks are not in their places: " + docksShown());
    waitForKeeper();
}

void ManagerStory::waitForKeeper(std::optional<WindowManager> manager,
                                 const std::vector<DockWindow>& former) {
    const auto isKept = [&](const DockWindow& dock) {
        const bool isManaged = !desktop().client().overridesRedirect(dock.window);
        const bool isNew = std::ranges::count(former, dock.window, &DockWindow::window) == 0;
        return keepsDocks(manager) ? isManaged : !isManaged && isNew;
    };
    const auto areKept = [&] {
        const auto docks = desktop().docks().shown();
        return docks.size() == 2 && std::ranges::all_of(docks, isKept);
    };
    demand(comes(areKept), keepsDocks(manager) ? "docks are not left to the window manager"
                                               : "docks stay in the window manager's hands");
}

bool ManagerStory::supports(std::string_view atom) {
    const auto& client = desktop().client();
    const auto known = client.atoms(client.root(), "_NET_SUPPORTED");
    return std::ranges::find(known, client.atom(atom)) != known.end();
}

void ManagerStory::check(bool holds, const std::string& otherwise, std::source_location where) {
    if (!holds)
        ADD_FAILURE_AT(where.file_name(), static_cast<int>(where.line())) << otherwise;
}

void ManagerStory::demand(bool holds, const std::string& otherwise) {
    if (!holds)
        throw std::runtime_error{otherwise};
}

DockWindow ManagerStory::dock(const DockPlace& place) {
    return desktop().docks().on(desktop().displayIDOf(place.output));
}

bool ManagerStory::isInPlace(const DockPlace& place, const PixelRect& frame) {
    return dock(place).frame == frame;
}

void ManagerStory::checkDocks() {
    const auto arePlaced = [&] {
        return isInPlace(middle) && isInPlace(side) && desktop().docks().shown().size() == 2;
    };
    check(comes(arePlaced), "docks are not in their places: " + docksShown());
}

std::string ManagerStory::docksShown() {
    std::ostringstream text;
    for (const auto& dock : desktop().docks().shown())
        text << (text.str().empty() ? "" : ", ") << dock.frame;
    return text.str().empty() ? "none is shown" : text.str();
}

bool ManagerStory::takesPointer(const DockPlace& place, PixelPoint point) {
    const auto there = desktop().client().windowsAt(point);
    const auto window = dock(place).window;
    return window != XCB_NONE && std::ranges::find(there, window) != there.end();
}

bool ManagerStory::isOnTop(const DockPlace& place, PixelPoint tile, Colour colour) {
    return takesPointer(place, tile) && isSame(desktop().pixel(tile), colour);
}

std::vector<xcb_window_t> ManagerStory::shownWindows(const App& app) {
    const auto& client = desktop().client();
    auto windows = client.allWindows();
    std::erase_if(windows, [&](xcb_window_t window) {
        // A frame may have the title as well, but not the class.
        return !client.isViewable(window) || client.text(window, "WM_NAME") != app.name ||
               !client.hasProperty(window, "WM_CLASS") || isOnAnotherDesktop(client, window);
    });
    return windows;
}

xcb_window_t ManagerStory::open(const App& app, const PixelRect& monitor,
                                std::vector<std::string> arguments) {
    constexpr int inset = 60;
    // Some managers open windows on the monitor with the pointer, others on that of the last click.
    desktop().pointer().moveTo(monitor.center());
    if (desktop().client().windowsAt(monitor.center()).size() == 1)
        desktop().pointer().click(monitor.center());
    if (std::ranges::find(arguments, "--at") == arguments.end())
        arguments.insert(arguments.end(), {"--at", place({monitor.x + inset, monitor.y + inset})});
    desktop().launch(app, std::move(arguments));
    demand(comes([&] { return isShown(app); }), "the test's own window does not open");
    const auto window = shownWindows(app).front();
    if (!comes([&] { return monitor.contains(outer(window).center()); })) {
        std::ostringstream text;
        text << "the test's own window opens at " << outer(window) << ", not on " << monitor;
        demand(false, text.str());
    }
    check(!hasManager() || comes([&] { return desktop().isActive(app); }),
          "the test's own window does not become active");
    return window;
}

xcb_window_t ManagerStory::openLarge(const App& app, const PixelRect& monitor,
                                     std::vector<std::string> arguments) {
    constexpr int stripe = 40;
    const int top = hasManager() ? 0 : stripe;
    arguments.insert(arguments.end(),
                     {"--at", place({monitor.x, monitor.y + top}), "--size",
                      std::to_string(monitor.width) + "x" + std::to_string(monitor.height - top)});
    return open(app, monitor, std::move(arguments));
}

void ManagerStory::ask(xcb_window_t window, const std::string& state, bool on) {
    const auto atom = [&](const std::string& name) {
        return desktop().client().atom("_NET_WM_STATE_" + name);
    };
    std::vector<std::uint32_t> message{on ? 1U : 0U};
    if (state == "MAXIMIZED")
        message.insert(message.end(), {atom("MAXIMIZED_VERT"), atom("MAXIMIZED_HORZ")});
    else
        message.insert(message.end(), {atom(state), 0});
    message.push_back(fromPager);
    desktop().client().sendToRoot(window, "_NET_WM_STATE", message);
}

bool ManagerStory::has(xcb_window_t window, const std::string& state) {
    const auto states = desktop().client().atoms(window, "_NET_WM_STATE");
    return std::ranges::find(states, desktop().client().atom("_NET_WM_STATE_" + state)) !=
           states.end();
}

PixelRect ManagerStory::outer(xcb_window_t window) {
    const auto inner = desktop().client().frame(window).value_or(PixelRect{});
    const auto sides = desktop().client().items(window, "_NET_FRAME_EXTENTS");
    if (sides.size() < 4)
        return inner;
    const auto side = [&](std::size_t index) { return static_cast<int>(sides[index]); };
    return {inner.x - side(0), inner.y - side(2), inner.width + side(0) + side(1),
            inner.height + side(2) + side(3)};
}

bool ManagerStory::leaveDesktopOf(const App& app) {
    if (isManager(WindowManager::i3)) {
        desktop().run("i3-msg", {"workspace", "elsewhere"});
    } else if (isManager(WindowManager::bspwm)) {
        desktop().run("bspc", {"desktop", "--focus", "next.local"});
    } else {
        const auto& client = desktop().client();
        const auto number = client.items(client.root(), "_NET_NUMBER_OF_DESKTOPS");
        const auto own = client.items(desktop().windowsOf(app).front(), "_NET_WM_DESKTOP");
        if (number.empty() || number.front() < 2 || own.empty())
            return false;
        client.sendToRoot(client.root(), "_NET_CURRENT_DESKTOP",
                          {(own.front() + 1) % number.front(), XCB_CURRENT_TIME});
    }
    return comes([&] { return !isShown(app); });
}

void ManagerStory::waitForDot(const DockPlace& place, PixelPoint tile) {
    // The dot's position between the icon and the strip's end, and next to it.
    const PixelPoint dot{tile.x - place.frame.x, place.frame.height - 4};
    constexpr int aside = 8;
    constexpr int contrast = 24;
    // From the window itself: mutter, when it renders in software, may leave out the last frame of
    // an animation until the same part of the window changes again.
    const auto isThere = [&] {
        const auto shown = desktop().docks().shown();
        const auto dock = std::ranges::find(shown, place.frame, &DockWindow::frame);
        if (dock == shown.end())
            return false;
        const auto picture = Picture::ofWindow(desktop().client(), dock->window,
                                               {0, 0, place.frame.width, place.frame.height});
        return picture.at(dot.x, dot.y).distance(picture.at(dot.x - aside, dot.y)) >= contrast;
    };
    demand(comes(isThere), "the dock does not show that the app runs");
}

void ManagerStory::clickTile(PixelPoint tile, const std::string& message) {
    const int before = desktop().log().count(message);
    desktop().pointer().click(tile);
    demand(comes([&] { return desktop().log().count(message) > before; }),
           "a click on a tile does not do \"" + message + "\"");
}

}
