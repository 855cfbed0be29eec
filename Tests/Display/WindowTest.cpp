#include "Display/WindowTest.hpp"

#include "Toolkit/PluginApplication.hpp"
#include "VirtualDesktop/Processes/Waiting.hpp"

#include <QGuiApplication>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <optional>

namespace vireline::test {
namespace {

using desktop::PixelPoint;
using desktop::PixelRect;

constexpr Size dockSize{400, 84};
constexpr double labelZone = 26;

/// Outlives the individual tests. Qt must be shut down before the server that it is connected to.
struct Session {
    Session() {
        ::setenv("DISPLAY", desk.display().c_str(), 1);
        ::setenv("QT_SCREEN_SCALE_FACTORS", "left=1;main=1;dense=2", 1);
        application.emplace("xcb", xdg::PluginApplication::InactivePopups::stay);
    }

    desktop::VirtualDesktop desk{{}, {.monitors = {{"main", {1280, 300, 1280, 800}}}}};
    std::optional<xdg::PluginApplication> application;
};

std::unique_ptr<Session>& session() {
    static std::unique_ptr<Session> shared;
    return shared;
}

class EndOfSession final : public testing::Environment {
public:
    void TearDown() override { session().reset(); }
};

const testing::Environment* registered() noexcept {
    // GoogleTest takes ownership.
    return testing::AddGlobalTestEnvironment(std::make_unique<EndOfSession>().release());
}

[[maybe_unused]] const testing::Environment* const endOfSession = registered();

}

namespace {

std::string place(Point at) {
    return std::to_string(std::lround(at.x)) + ',' + std::to_string(std::lround(at.y));
}

}

void EventLog::pointerEvent(const PointerEvent& event) {
    static constexpr std::array names{"moved",     "exited", "pressed",  "released",
                                      "secondary", "middle", "cancelled"};
    std::string word = names.at(static_cast<std::size_t>(event.kind));
    if (event.kind != PointerEvent::Kind::exited && event.kind != PointerEvent::Kind::cancelled) {
        word += ' ' + place(event.position);
    }
    words.push_back(word);
    if (onPointer)
        onPointer();
}

void EventLog::dragEntered(const std::vector<std::string>& urls) {
    std::string word = "drag in";
    for (const std::string& url : urls)
        word += ' ' + url;
    words.push_back(word);
}

bool EventLog::dragMoved(Point at) {
    words.push_back("drag at " + place(at));
    return takesDrops;
}

bool EventLog::dropped(Point at) {
    words.push_back("dropped " + place(at));
    return takesDrops;
}

std::vector<AccessibleTile> EventLog::accessibleTiles() {
    ++tilesAsked;
    return tiles;
}

bool EventLog::has(std::string_view word) const {
    return std::ranges::find(words, word) != words.end();
}

desktop::VirtualDesktop& WindowTest::desk() {
    if (!session())
        session() = std::make_unique<Session>();
    return session()->desk;
}

std::vector<desktop::Monitor> WindowTest::threeMonitors() {
    return {{"main", {1280, 300, 1280, 800}},
            {"left", {0, 0, 1280, 900}},
            {"dense", {2560, 0, 1536, 1200}}};
}

bool WindowTest::prepare() {
    desk().setMonitors(threeMonitors());
    desk().pointer().moveTo({5, 5});
    return eventually([] { return QGuiApplication::screens().size() == 3; });
}

void WindowTest::SetUp() {
    EXPECT_TRUE(isPrepared_);
    settle();
}

void WindowTest::TearDown() {
    settle();
}

bool WindowTest::eventually(const std::function<bool()>& condition) {
    return desktop::eventually([&] {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
        return condition();
    });
}

/// Events are delivered in order: once the last change has arrived, all earlier ones have.
void WindowTest::settle() {
    constexpr const char* mark = "_VIRELINE_TEST_MARK";
    bool isHeard = false;
    const auto hearing = connection.observe([&](const xcb_generic_event_t& event) {
        if (x11::eventType(event) != XCB_PROPERTY_NOTIFY)
            return;
        const auto& change = x11::as<xcb_property_notify_event_t>(event);
        isHeard = isHeard || change.atom == connection.atom(mark);
    });
    client().setItems(client().root(), mark, XCB_ATOM_CARDINAL, {1});
    client().sync();
    EXPECT_TRUE(eventually([&] { return isHeard; }));
    QCoreApplication::processEvents();
}

PlatformScreen WindowTest::screen(const std::string& monitor) const {
    for (const PlatformScreen& candidate : screens.screens()) {
        if (candidate.number == idOf(monitor))
            return candidate;
    }
    ADD_FAILURE() << "no display " << monitor;
    return {};
}

Scene WindowTest::dockScene() {
    const Rect glass{0, labelZone, dockSize.width, dockSize.height - labelZone};
    Scene scene;
    scene.nodes.push_back({.id = {NodeID::Part::strip}, .frame = glass, .content = GlassNode{18}});
    scene.inputRegion = glass;
    return scene;
}

std::unique_ptr<PanelWindow> WindowTest::showDock(const std::string& monitor, EventLog& log) {
    const Rect display = screen(monitor).frame;
    auto dock = panels.makePanel(
        idOf(monitor),
        {display.midX() - dockSize.width / 2, display.minY() + 4, dockSize.width, dockSize.height},
        log);
    dock->present(dockScene());
    dock->orderFrontRegardless();
    EXPECT_TRUE(eventually([&] { return client().isViewable(windowOf(monitor)); }));
    settle();
    return dock;
}

xcb_window_t WindowTest::windowOf(const std::string& monitor) {
    const std::string title = "Vireline dock #" + std::to_string(idOf(monitor));
    for (const xcb_window_t window : client().allWindows()) {
        if (client().text(window, "_NET_WM_NAME") == title)
            return window;
    }
    return XCB_NONE;
}

PixelPoint WindowTest::pixelAt(const std::string& monitor, Point view) const {
    const auto frame = client().frame(windowOf(monitor)).value_or(PixelRect{});
    const double scale = screen(monitor).backingScaleFactor;
    return {frame.x + static_cast<int>(view.x * scale), frame.y + static_cast<int>(view.y * scale)};
}

xcb_window_t WindowTest::addPanel(const PixelRect& frame, const std::vector<std::uint32_t>& strut) {
    const xcb_window_t window = client().createWindow(frame, 0x00202830);
    client().setAtoms(window, "_NET_WM_WINDOW_TYPE", {"_NET_WM_WINDOW_TYPE_DOCK"});
    if (!strut.empty())
        client().setItems(window, "_NET_WM_STRUT_PARTIAL", XCB_ATOM_CARDINAL, strut);
    client().map(window);
    client().sync();
    EXPECT_TRUE(eventually([&] { return client().isViewable(window); }));
    return window;
}

}
