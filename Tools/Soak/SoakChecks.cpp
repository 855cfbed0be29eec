#include "Soak/SoakChecks.hpp"

#include "Settings/SettingsCoding.hpp"
#include "VirtualDesktop/Processes/Waiting.hpp"

#include <xcb/res.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <functional>
#include <regex>
#include <sstream>

namespace vireline::desktop {
namespace {

/// What is wrong; empty if nothing is.
using Finding = std::string;

std::string describe(const std::vector<DockWindow>& shown,
                     const std::vector<PlannedDock>& planned) {
    std::ostringstream text;
    text << "planned:";
    for (const auto& dock : planned)
        text << " #" << dock.spec.displayID << ' ' << dock.frame;
    text << "; shown:";
    for (const auto& dock : shown)
        text << ' ' << dock;
    return text.str();
}

bool liesIn(const PixelRect& inner, const PixelRect& outer) {
    return inner.x >= outer.x && inner.y >= outer.y && inner.right() <= outer.right() &&
           inner.bottom() <= outer.bottom();
}

/// Checks that every display that should have a dock has one, on the display and, unless
/// auto-hiding, exactly in place.
Finding findDocks(SoakWorld& world) {
    const auto planned = world.desktop().planned(world.request());
    const auto shown = world.desktop().docks().shown();
    const bool hides = world.settings().autoHide;
    const bool match =
        std::ranges::equal(shown, planned, [hides](const auto& dock, const auto& plan) {
            return dock.displayID == plan.spec.displayID &&
                   (hides ? liesIn(dock.frame, plan.monitor.frame) : dock.frame == plan.window);
        });
    return match ? Finding{} : describe(shown, planned);
}

/// Checks for the tiles of the pinned apps in order, followed by one for each other running app.
Finding findTiles(SoakWorld& world) {
    if (world.settings().autoHide)
        return {};
    const auto pinned = world.pinned();
    auto unpinned = world.runningUnpinned();
    for (const auto& dock : world.desktop().planned(world.request())) {
        const DockLayout layout = world.layout(dock);
        int index = 0;
        for (const App& app : pinned) {
            if (!isSame(world.desktop().pixel(layout.icon(index++)), app.colour))
                return "no tile of " + app.name + " at " + std::to_string(index - 1);
        }
        auto missing = unpinned;
        for (std::size_t i = 0; i < unpinned.size(); ++i) {
            const Colour seen = world.desktop().pixel(layout.icon(index++));
            std::erase_if(missing, [&](const App& app) { return isSame(seen, app.colour); });
        }
        if (!missing.empty())
            return "no tile of " + missing.front().name + ", which runs";
    }
    return {};
}

Finding findFile(SoakWorld& world) {
    if (world.isFileReplaced())
        return {};
    const auto saved = SettingsCoding::decode(readFile(world.desktop().home().preferences()));
    if (!saved)
        return "the preferences cannot be read: " + saved.error().description;
    return *saved == world.settings() ? Finding{} : "the preferences are not what was saved last";
}

void settles(SoakWorld& world, const std::function<Finding(SoakWorld&)>& find) {
    Finding finding;
    if (!eventually([&] { return (finding = find(world)).empty(); }))
        throw Violation{finding};
}

/// The part of an ID that identifies the client.
xcb_window_t clientOf(SoakWorld& world, xcb_window_t resource) {
    const xcb_setup_t* const setup = xcb_get_setup(world.desktop().client().get());
    return resource & ~setup->resource_id_mask;
}

std::size_t entriesIn(const std::filesystem::path& folder) {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator{folder}, {}));
}

std::size_t resourcesOf(SoakWorld& world, xcb_window_t resource) {
    auto* const x = world.desktop().client().get();
    const Owned<xcb_res_query_client_resources_reply_t> reply{xcb_res_query_client_resources_reply(
        x, xcb_res_query_client_resources(x, resource), nullptr)};
    if (!reply)
        throw std::runtime_error{"the X server does not tell of resources"};
    std::size_t count = 0;
    for (auto type = xcb_res_query_client_resources_types_iterator(reply.get()); type.rem > 0;
         xcb_res_type_next(&type))
        count += type.data->count;
    return count;
}

}

void require(bool isSo, const std::string& complaint) {
    if (!isSo)
        throw Violation{complaint};
}

void checkDesktop(SoakWorld& world) {
    world.parkPointer();
    if (!world.desktop().vireline().isRunning())
        throw Violation{"the program has ended by itself"};
    settles(world, findDocks);
    settles(world, findTiles);
    settles(world, findFile);
}

Holdings holdings(SoakWorld& world) {
    const auto docks = world.desktop().docks().shown();
    if (docks.empty())
        throw std::logic_error{"without a dock, the program's client is unknown"};
    const xcb_window_t dock = docks.front().window;
    Holdings found;
    const auto all = world.desktop().client().allWindows();
    found.windows = static_cast<std::size_t>(std::ranges::count_if(all, [&](xcb_window_t window) {
        return clientOf(world, window) == clientOf(world, dock);
    }));
    found.otherResources = resourcesOf(world, dock) - found.windows;
    found.descriptors =
        entriesIn("/proc/" + std::to_string(world.desktop().vireline().pid()) + "/fd");
    return found;
}

void checkHoldings(const Holdings& before, const Holdings& now) {
    struct Kind {
        const char* name;
        std::size_t Holdings::* count;
        /// Tolerance for resources in momentary use, such as pictures and connections.
        std::size_t slack;
    };
    constexpr std::array kinds{Kind{"windows", &Holdings::windows, 0},
                               Kind{"descriptors", &Holdings::descriptors, 2},
                               Kind{"X resources", &Holdings::otherResources, 8}};
    for (const Kind& kind : kinds) {
        if (now.*kind.count > before.*kind.count + kind.slack)
            throw Violation{std::string{kind.name} +
                            " leak: " + std::to_string(before.*kind.count) + " have become " +
                            std::to_string(now.*kind.count)};
    }
}

void OutputCheck::operator()(SoakWorld& world) {
    static const std::regex wellFormed{R"(\[\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ\] .+)"};
    const auto lines = world.desktop().log().lines();
    for (std::size_t i = linesRead_; i < lines.size(); ++i) {
        if (!std::regex_match(lines[i], wellFormed))
            throw Violation{"a line of the log is none: " + lines[i]};
    }
    linesRead_ = lines.size();
    const auto errors = readFile(world.desktop().home().scratch() / "vireline.err");
    for (const char* const found : {"AddressSanitizer", "LeakSanitizer", "runtime error:"}) {
        if (errors.contains(found))
            throw Violation{errors};
    }
}

}
