#include "ProgramTest.hpp"

#include "Unseen.hpp"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <utility>

int vireline_main();

namespace vireline {
namespace {

namespace fs = std::filesystem;

std::size_t entriesOf(const fs::path& folder) {
    return static_cast<std::size_t>(std::ranges::distance(fs::directory_iterator{folder}));
}

std::string contentOf(const fs::path& file) {
    std::ifstream in{file, std::ios::binary};
    std::ostringstream content;
    content << in.rdbuf();
    return content.str();
}

NSView* dockView(NSWindow* dock) {
    return dock.contentView.subviews.firstObject;
}

id controlIn(NSView* view, std::string_view name) {
    for (NSView* child in view.subviews) {
        const bool isButton = [child isKindOfClass:NSButton.class];
        NSString* const title =
            isButton ? [static_cast<NSButton*>(child) paperTitle] : child.accessibilityLabel;
        if ([child isKindOfClass:NSControl.class] && title != nil && title.paperText == name)
            return child;
        if (const id found = controlIn(child, name); found != nil)
            return found;
    }
    return nil;
}

}

ProgramTest::ProgramTest() {
    paper::setHome(home_);
    ::setenv("HOME", home_.c_str(), 1);
    @autoreleasepool {
        paper::plug(threeDisplays());
    }
    // The state after the first run.
    writePreferences(R"({"onboardingCompleted": true})");
}

void ProgramTest::runProgram(std::function<void()> user) {
    int code = -1;
    const std::size_t descriptors = entriesOf("/proc/self/fd");
    const std::size_t threads = entriesOf("/proc/self/task");
    paper::setScript([&] { paper::guarded("the test", user); });
    @autoreleasepool {
        code = vireline_main();
    }
    EXPECT_EQ(code, 0);
    expectAGoodEnd();
    EXPECT_EQ(entriesOf("/proc/self/fd"), descriptors);
    EXPECT_EQ(entriesOf("/proc/self/task"), threads);
}

void ProgramTest::expectAGoodEnd() {
    @autoreleasepool {
        paper::setPersistentApps(nil);
        paper::answerMenus(nullptr);
    }
    @autoreleasepool {
        paper::drain();
    }
    EXPECT_EQ(unseenFaults(), std::vector<std::string>{});
    EXPECT_EQ(remains(), std::vector<std::string>{});
}

std::string ProgramTest::supportFolder() const {
    return home_ + "/Library/Application Support/Vireline";
}

void ProgramTest::writePreferences(std::string_view json) const {
    fs::create_directories(supportFolder());
    std::ofstream{supportFolder() + "/preferences.json"} << json;
}

std::string ProgramTest::preferences() const {
    return contentOf(supportFolder() + "/preferences.json");
}

std::vector<std::string> ProgramTest::log() const {
    std::istringstream in{contentOf(supportFolder() + "/vireline.log")};
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);)
        lines.push_back(line.substr(line.find(' ') + 1));
    return lines;
}

bool ProgramTest::logHas(std::string_view line) const {
    const auto lines = log();
    return std::ranges::any_of(
        lines, [&](const std::string& each) { return each.find(line) != std::string::npos; });
}

paper::App ProgramTest::makeApp(const std::string& name, int processIdentifier) const {
    paper::App app{.bundleID = "com.example." + name,
                   .name = name,
                   .processIdentifier = processIdentifier,
                   .path = home_ + "/Applications/" + name + ".app"};
    fs::create_directories(app.path);
    @autoreleasepool {
        paper::install(app);
    }
    return app;
}

void ProgramTest::pinThreeApps() {
    @autoreleasepool {
        NSMutableArray* const tiles = [NSMutableArray array];
        for (const char* const name : {"Notes", "Mail", "Music"})
            [tiles addObject:paper::dockTile(makeApp(name, 0))];
        paper::setPersistentApps(tiles);
    }
}

std::vector<paper::Display> threeDisplays() {
    return {{.number = 1, .frame = {{0, 0}, {1440, 900}}, .visible = {{0, 70}, {1440, 805}}},
            {.number = 2,
             .frame = {{1440, 0}, {1920, 1080}},
             .visible = {{1440, 0}, {1920, 1055}},
             .scale = 1},
            {.number = 3,
             .frame = {{-1280, 100}, {1280, 800}},
             .visible = {{-1280, 100}, {1280, 775}}}};
}

NSWindow* dockOn(unsigned display) {
    const std::string title = "Vireline dock #" + std::to_string(display);
    const auto& windows = paper::orderedWindows();
    const auto found = std::ranges::find_if(windows, [&](NSWindow* window) {
        return window.title != nil && window.title.paperText == title;
    });
    return found == windows.end() ? nil : *found;
}

std::vector<std::string> tileNames(NSWindow* dock) {
    std::vector<std::string> names;
    for (id tile in [dockView(dock) accessibilityChildren])
        names.push_back([[tile accessibilityLabel] paperText]);
    return names;
}

id tileNamed(NSWindow* dock, std::string_view name) {
    for (id tile in [dockView(dock) accessibilityChildren])
        if ([[tile accessibilityLabel] paperText].starts_with(name))
            return tile;
    return nil;
}

NSPoint centreOf(id tile) {
    const NSRect frame = [tile accessibilityFrame];
    return {frame.origin.x + frame.size.width / 2, frame.origin.y + frame.size.height / 2};
}

id controlNamed(NSWindow* window, std::string_view name) {
    return controlIn(window.contentView, name);
}

void switchOn(id control, bool isOn) {
    [control setState:isOn ? NSControlStateValueOn : NSControlStateValueOff];
    [control paperAct];
}

void push(id button) {
    [button paperAct];
}

}
