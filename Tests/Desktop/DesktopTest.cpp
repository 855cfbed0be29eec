#include "DesktopTest.hpp"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <string_view>

namespace vireline::desktop {
namespace {

std::string describe(const std::vector<PlannedDock>& docks) {
    std::ostringstream text;
    for (const auto& dock : docks)
        text << " #" << dock.spec.displayID << ' ' << dock.window;
    return text.str();
}

std::string describe(const std::vector<DockWindow>& docks) {
    std::ostringstream text;
    for (const auto& dock : docks)
        text << ' ' << dock;
    return text.str();
}

bool match(const std::vector<DockWindow>& docks, const std::vector<PlannedDock>& planned) {
    return std::ranges::equal(docks, planned, [](const auto& dock, const auto& plan) {
        return dock.displayID == plan.spec.displayID && dock.frame == plan.window;
    });
}

}

void DesktopTest::TearDown() {
    if (!HasFailure() || !desktop_)
        return;
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    auto name = std::string{test->test_suite_name()} + "." + test->name();
    if (const auto manager = testedManager())
        name.append(".").append(shortName(*manager));
    std::ranges::replace(name, '/', '-');
    desktop_->leaveEvidence(EVIDENCE_FOLDER, name);
    // Where a build server runs the tests, its output is all that can be seen of them.
    std::cout << "The program's log:\n" << readFile(desktop_->log().file()) << std::flush;
}

VirtualDesktop& DesktopTest::make(Options options) {
    if (!options.manager)
        options.manager = testedManager();
    auto programs = testedPrograms();
#ifdef WAYLAND_TEST_APP
    if (options.manager && isWayland(*options.manager))
        programs.testApp = WAYLAND_TEST_APP;
#endif
    desktop_ = std::make_unique<VirtualDesktop>(programs, options);
    return *desktop_;
}

VirtualDesktop& DesktopTest::runWithTwoDisplays(const std::vector<App>& pinned, Options options) {
    if (options.monitors.empty())
        options.monitors = twoMonitors();
    auto& desktop = make(options);
    for (const auto& app : pinned)
        desktop.home().install(app);
    desktop.home().pin(pinned);
    desktop.runVireline();
    return desktop;
}

App DesktopTest::fileManager() {
    return {"org.example.Files",
            "Files",
            distinctColour(7),
            {"--record", opened().string(), "%U"},
            {"MimeType=inode/directory;x-scheme-handler/trash;"}};
}

std::filesystem::path DesktopTest::opened() {
    return desktop().home().scratch() / "opened";
}

testing::AssertionResult DesktopTest::docksSettle(const Request& request) {
    const auto planned = desktop().planned(request);
    if (eventually([&] { return match(desktop().docks().shown(), planned); }))
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << "planned:" << describe(planned) << "; shown:" << describe(desktop().docks().shown());
}

PlannedDock DesktopTest::plannedDock(const std::string& monitor, const Request& request) {
    const auto planned = desktop().planned(request);
    const auto found =
        std::ranges::find(planned, monitor, [](const auto& dock) { return dock.monitor.name; });
    if (found == planned.end())
        throw std::runtime_error{"no dock is planned on " + monitor};
    return *found;
}

DockLayout DesktopTest::layout(const std::string& monitor, const Request& request) {
    return {plannedDock(monitor, request), request.counts, request.maxIconSize};
}

testing::AssertionResult DesktopTest::turns(PixelPoint place, Colour colour) {
    if (eventually([&] { return isSame(desktop().pixel(place), colour); }))
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << place << " is " << desktop().pixel(place) << " and not " << colour;
}

testing::AssertionResult DesktopTest::turnsFrom(PixelPoint place, Colour colour) {
    if (eventually([&] { return !isSame(desktop().pixel(place), colour); }))
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << place << " stays " << colour;
}

testing::AssertionResult DesktopTest::logs(std::string_view prefix, int times) {
    if (desktop().log().reaches(prefix, times))
        return testing::AssertionSuccess();
    auto failure = testing::AssertionFailure();
    failure << "fewer than " << times << " messages begin with \"" << prefix << "\":";
    for (const auto& message : desktop().log().messages())
        failure << "\n  " << message;
    return failure;
}

testing::AssertionResult DesktopTest::dotShows(PixelPoint dot, bool shows) {
    // Compared with the strip's colour next to the dot, in the same row.
    constexpr int beside = 8;
    constexpr int contrast = 24;
    const auto stands = [&] {
        const Picture row = desktop().picture({dot.x - beside, dot.y, beside + 1, 1});
        return row.at(0, 0).distance(row.at(beside, 0)) >= contrast;
    };
    if (eventually([&] { return stands() == shows; }))
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << "the dot at " << dot << (shows ? " does not show" : " still shows");
}

PixelRect DesktopTest::openMenu(PixelPoint icon) {
    desktop().pointer().click(icon, Pointer::Button::secondary);
    std::vector<PixelRect> menus;
    const auto isOpen = [&] { return !(menus = desktop().docks().menus()).empty(); };
    return eventually(isOpen) ? menus.front() : PixelRect{};
}

PixelPoint DesktopTest::besideTiles(const DockLayout& dock, int pinned) {
    // At the separator, where there is a strip even while it still grows or shrinks.
    const PixelPoint last = dock.icon(pinned - 1);
    return {(last.x + dock.icon(pinned).x) / 2, last.y};
}

void DesktopTest::choose(const PixelRect& menu, int index, int count) {
    desktop().pointer().click(
        {menu.x + menu.width / 2, menu.y + menu.height * (2 * index + 1) / (2 * count)});
}

Programs testedPrograms() {
    const char* other = std::getenv("VIRELINE_TESTED_PROGRAM");
    return {other == nullptr ? TESTED_PROGRAM : other,
            TEST_APP,
            FILE_MANAGER,
            NOTIFIER_HOST,
            MONITOR_OUTPUTS,
#ifdef WAYLAND_TEST_PANEL
            WAYLAND_TEST_PANEL
#endif
    };
}

std::optional<VirtualDesktop::Manager> testedManager() {
    const char* name = std::getenv("VIRELINE_TESTED_MANAGER");
    if (name == nullptr || name == std::string_view{"none"})
        return std::nullopt;
    const auto manager = windowManagerNamed(name);
    if (!manager)
        throw std::runtime_error{"no window manager is called " + std::string{name}};
    return manager;
}

PanelPlanner::Request tiles(int pinned, int running) {
    PanelPlanner::Request request;
    request.counts.pinned = pinned;
    request.counts.unpinnedRunning = running;
    return request;
}

std::vector<Monitor> twoMonitors() {
    return {{"left", {0, 0, 1920, 1080}}, {"right", {1920, 0, 1920, 1080}}};
}

std::vector<Monitor> threeMonitors() {
    return {{"main", {1280, 800, 1600, 900}},
            {"above", {320, 0, 1280, 800}},
            {"side", {2880, 600, 1024, 768}}};
}

std::vector<App> someApps(int count) {
    constexpr std::array names{"Alpha", "Beta", "Gamma", "Delta", "Epsilon", "Zeta"};
    std::vector<App> apps;
    for (int i = 0; i < count; ++i) {
        const std::string name = i < static_cast<int>(names.size())
                                     ? names.at(static_cast<std::size_t>(i))
                                     : "App" + std::to_string(i);
        apps.push_back({"org.example." + name, name, distinctColour(i), {}, {}});
    }
    return apps;
}

}
