#include "Storm/PaperWorld.hpp"

#include "ProgramTest.hpp"
#include "Unseen.hpp"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <numeric>

namespace vireline::storm {
namespace {

namespace fs = std::filesystem;

constexpr int firstProcess = 500;
constexpr int stepsBetweenHomes = 100;

const std::vector<PaperEvent>& allEvents() {
    static const std::vector<PaperEvent> events = [] {
        std::vector<PaperEvent> all;
        for (const auto& some : {pointerEvents(), surroundingEvents(), windowEvents()})
            all.insert(all.end(), some.begin(), some.end());
        return all;
    }();
    return events;
}

const PaperEvent& anyEvent(test::Random& random) {
    const auto& events = allEvents();
    const int total =
        std::accumulate(events.begin(), events.end(), 0,
                        [](int sum, const PaperEvent& event) { return sum + event.weight; });
    int left = random.integer(0, total - 1);
    for (const PaperEvent& event : events) {
        left -= event.weight;
        if (left < 0)
            return event;
    }
    return events.back();
}

/// A small change of the number yields an entirely different sequence.
unsigned mixed(unsigned seed, int step) {
    std::seed_seq sequence{seed, static_cast<unsigned>(step)};
    std::array<unsigned, 1> mixture{};
    sequence.generate(mixture.begin(), mixture.end());
    return mixture.front();
}

std::size_t openDescriptors() {
    const fs::directory_iterator all{"/proc/self/fd"};
    return static_cast<std::size_t>(std::distance(begin(all), end(all)));
}

/// Classes that perform something or show a dock must have the same number of instances every time.
bool countsExactly(const std::string& name) {
    static const std::set<std::string> names{"CADisplayLink",      "NSWindow",
                                             "NSStatusItem",       "NSTrackingArea",
                                             "PaperObserver",      "PaperPort",
                                             "PaperRunLoopSource", "VirelinePanel",
                                             "VirelineDockView",   "VirelineTickTarget",
                                             "VirelineMenuWatch",  "timer that is due",
                                             "PaperSource",        "file that is watched"};
    return names.contains(name);
}

std::vector<paper::Display> displaysAtHome() {
    return {{.number = 1, .frame = {{0, 0}, {1440, 900}}, .visible = {{0, 70}, {1440, 805}}},
            {.number = 2,
             .frame = {{1440, 0}, {1920, 1080}},
             .visible = {{1440, 0}, {1920, 1055}},
             .scale = 1}};
}

}

PaperWorld::PaperWorld(unsigned seed) : seed_(seed) {
    paper::setHome(home_);
    paper::lockFolder(pathIn("Applications"));
    for (const char* const file : {"letter.txt", "Library/Preferences/com.apple.dock.plist"}) {
        fs::create_directories(fs::path{pathIn(file)}.parent_path());
        std::ofstream{pathIn(file)} << "text";
    }
    int process = firstProcess;
    @autoreleasepool {
        for (const char* const app :
             {"Notes", "Mail", "Music", "Maps", "Chess", "Paint", "Radio"}) {
            apps.push_back({.bundleID = std::string{"com.example."} + app,
                            .name = app,
                            .processIdentifier = process++,
                            .path = pathIn(std::string{"Applications/"} + app + ".app")});
            fs::create_directories(apps.back().path);
            paper::install(apps.back());
        }
        displays = displaysAtHome();
        plug();
        pins = {0, 1, 2};
        writePins(false, false);
    }
    const fs::path preferences = pathIn("Library/Application Support/Vireline/preferences.json");
    fs::create_directories(preferences.parent_path());
    if (seed % 4 != 0)
        std::ofstream{preferences} << R"({"onboardingCompleted": true})";
    descriptors_ = openDescriptors();
}

void PaperWorld::perform(int step) {
    story_.clear();
    test::Random random{mixed(seed_, step)};
    @autoreleasepool {
        if (step % stepsBetweenHomes == 0) {
            note('#', step, ": everything as at the start");
            @autoreleasepool {
                goHome();
            }
            countObjects();
        } else {
            const PaperEvent& event = anyEvent(random);
            note('#', step, " at ", paper::now(), " s: ", event.name);
            // While a menu is open, any small event may happen; then an entry is chosen, or none.
            paper::answerMenus([&](NSMenu* menu) -> NSMenuItem* {
                note(", a menu opens");
                if (random.integer(0, 2) == 0)
                    interrupt(random);
                NSArray<NSMenuItem*>* const items = [menu paperItems];
                const auto chosen = static_cast<NSUInteger>(random.integer(0, 9));
                return chosen < items.count ? items[chosen] : nil;
            });
            event.happen(*this, random);
        }
        paper::display();
    }
    if (const auto faults = unseenFaults(); !faults.empty())
        fail(faults.front());
}

void PaperWorld::interrupt(test::Random& random) {
    if (std::exchange(isInterrupting_, true))
        return;
    const auto events = surroundingEvents();
    const auto last = static_cast<int>(events.size()) - 1;
    const PaperEvent& event = events.at(static_cast<std::size_t>(random.integer(0, last)));
    note(" [meanwhile: ", event.name, ']');
    event.happen(*this, random);
    isInterrupting_ = false;
}

void PaperWorld::plug() {
    if (!displays.empty()) {
        const NSPoint corner = displays.front().frame.origin;
        for (paper::Display& display : displays) {
            for (NSRect* const rect : {&display.frame, &display.visible}) {
                rect->origin.x -= corner.x;
                rect->origin.y -= corner.y;
            }
        }
    }
    paper::plug(displays);
}

void PaperWorld::writePins(bool announces, bool replacesFile) {
    NSMutableArray* const tiles = [NSMutableArray array];
    for (const std::size_t pin : pins)
        [tiles addObject:paper::dockTile(apps.at(pin))];
    paper::setPersistentApps(tiles);
    if (announces)
        [NSDistributedNotificationCenter.defaultCenter paperPost:@"com.apple.dock.prefchanged"
                                                        userInfo:nil];
    if (replacesFile) {
        const std::string list = pathIn("Library/Preferences/com.apple.dock.plist");
        std::ofstream{list + ".new"} << "another text";
        fs::rename(list + ".new", list);
    }
    paper::drain();
}

void PaperWorld::quitApp(std::size_t index, bool staysListed) {
    if (running.erase(index) == 0)
        return;
    const int process = apps.at(index).processIdentifier;
    paper::foreignApps().erase(process);
    if (staysListed)
        paper::quitButStayListed(process);
    else
        paper::quit(process);
}

NSWindow* PaperWorld::anyDock(test::Random& random) const {
    const auto& docks = panels->windows();
    if (docks.empty())
        return nil;
    const auto last = static_cast<int>(docks.size()) - 1;
    const unsigned display = docks.at(static_cast<std::size_t>(random.integer(0, last)))->display;
    return paper::windowTitled("Vireline dock #" + std::to_string(display));
}

void PaperWorld::settle() {
    paper::answerMenus(nullptr);
    paper::setEscapeDown(false);
    paper::cancelFileDrag();
    paper::release();
    paper::movePointer({-30000, -30000});
    for (auto& [process, app] : paper::foreignApps())
        app.isHung = false;
    // If a file is replaced a second time before it is watched again, only a notification reveals
    // it.
    writePins(true, false);
    // Longer than it takes to notice a withdrawn permission.
    paper::advance(7);
    paper::display();
    lookAtRest();
}

void PaperWorld::resetSettings() {
    static_cast<void>(paper::chooseStatusItem("Settings…"));
    NSWindow* const window = paper::windowTitled("Vireline Settings");
    for (const char* const title :
         {"Magnification", "Automatically hide and show the dock",
          "Keep Apple's Dock on its own display", "Open apps on the dock's display",
          "Move windows to the dock you click", "Fill the display on double-click"})
        switchOn(controlNamed(window, title), false);
    push(controlNamed(window, "Mirror Apple's Dock"));
    NSSegmentedControl* const position = controlNamed(window, "Position on screen");
    position.selectedSegment = 0;
    [position paperAct];
    NSSlider* const size = controlNamed(window, "Icon size");
    constexpr double usual = 44;
    paper::dragSlider(size, usual);
}

void PaperWorld::goHome() {
    paper::answerMenus(nullptr);
    paper::cancelFileDrag();
    paper::release();
    resetSettings();
    // Created on first use and then kept.
    static_cast<void>(paper::chooseStatusItem("Welcome Tour…"));
    for (const char* const title : {"Vireline Settings", "Welcome to Vireline"})
        [paper::windowTitled(title) close];
    const auto all = running;
    for (const std::size_t index : all)
        quitApp(index, false);
    paper::foreignApps().clear();
    paper::setTrusted(false);
    paper::setReducesMotion(false);
    displays = displaysAtHome();
    plug();
    pins = {0, 1, 2};
    writePins(true, false);
    paper::requests().clear();
    settle();
    // As long as the program waits for the windows of launched apps.
    paper::advance(15);
}

void PaperWorld::countObjects() {
    auto now = paper::rt::liveObjects();
    now["file that is watched"] = static_cast<long>(paper::fileWatches());
    // Not the objects: the program may hold one that has fired.
    now["timer that is due"] = static_cast<long>(paper::pendingTimers());
    if (++timesAtHome_ <= 2) {
        alive_ = std::move(now);
        return;
    }
    for (const auto& [name, count] : now) {
        // The program's own windows keep the page that they showed last, and caches their content.
        constexpr long slack = 24;
        if (count > alive_[name] + (countsExactly(name) ? 0 : slack))
            fail(count, " of ", name, " are alive, which were ", alive_[name]);
    }
}

void PaperWorld::lookForRemains() {
    if (const auto left = remains(); !left.empty())
        fail("left behind: ", left.front());
    if (const auto faults = unseenFaults(); !faults.empty())
        fail(faults.front());
    if (const std::size_t open = openDescriptors(); open > descriptors_)
        fail("descriptors: ", open, " are open, which were ", descriptors_);
}

}
