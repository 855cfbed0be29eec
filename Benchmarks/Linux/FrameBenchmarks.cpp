/// One frame of a magnified dock, from the pointer movement until the pixels have been sent to the
/// server: the processor time of all threads, and the number of allocations.
#include "Connection/X11Connection.hpp"
#include "Displays/DockPanel.hpp"
#include "Displays/RandrScreens.hpp"
#include "Icons/DrawnIcons.hpp"
#include "Icons/IconImage.hpp"
#include "Layout/DockMagnifier.hpp"
#include "Model/DockMetrics.hpp"
#include "Panels/QtPanelWindows.hpp"
#include "Support/DockFixture.hpp"
#include "Toolkit/Appearance.hpp"
#include "Toolkit/PluginApplication.hpp"
#include "VirtualDesktop/VirtualDesktop.hpp"

#include <benchmark/benchmark.h>

#include <atomic>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <new>

namespace {

std::atomic<std::int64_t> allocations{0};

}

// Replacements of the global allocation functions cannot use owning types.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
void* operator new(std::size_t size) {
    allocations.fetch_add(1, std::memory_order_relaxed);
    if (void* const memory = std::malloc(size == 0 ? 1 : size))
        return memory;
    throw std::bad_alloc{};
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}
// NOLINTEND(cppcoreguidelines-owning-memory)

namespace vireline::x11 {
namespace {

/// Creates the platform's windows, and gives access to their listeners.
class TappedWindows final : public PanelWindows {
public:
    explicit TappedWindows(PanelWindows& windows) : windows_(windows) {}

    [[nodiscard]] std::unique_ptr<PanelWindow> makePanel(std::uint32_t displayID, const Rect& frame,
                                                         PanelWindowListener& listener) override {
        listener_ = &listener;
        return windows_.makePanel(displayID, frame, listener);
    }

    void move(Point at) const { listener_->pointerEvent({PointerEvent::Kind::moved, at}); }

private:
    PanelWindows& windows_;
    PanelWindowListener* listener_ = nullptr;
};

class DrawnAppIcons final : public Icons {
public:
    [[nodiscard]] ImageHandle iconForFile(const std::string& /*path*/, const std::string& /*key*/,
                                          Size size) override {
        return std::make_shared<xdg::IconImage>(size, xdg::DrawnIcons::application);
    }
    [[nodiscard]] ImageHandle namedImage(const std::string& /*name*/, Size size) override {
        return std::make_shared<xdg::IconImage>(size, xdg::DrawnIcons::trash);
    }
    [[nodiscard]] ImageHandle symbol(const std::string& /*name*/,
                                     const std::string& /*accessibilityDescription*/,
                                     Size size) override {
        return std::make_shared<xdg::IconImage>(size, xdg::DrawnIcons::trash);
    }
    [[nodiscard]] Subscription observeChanges(std::function<void()> /*handler*/) override {
        return {};
    }
};

double processorSeconds() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

struct Server {
    explicit Server(double scale)
        : desktop({}, {.monitors = {{"main", {0, 0, 10240, 1200}}}, .compositor = true}) {
        ::setenv("DISPLAY", desktop.display().c_str(), 1);
        ::setenv("QT_SCREEN_SCALE_FACTORS", ("main=" + std::to_string(scale)).c_str(), 1);
    }

    desktop::VirtualDesktop desktop;
};

constexpr int utilityTiles = 2;
constexpr double magnification = 2;

/// A dock's tiles, the length of its window and the path of the pointer in it, in points.
struct Dock {
    int tiles = 0;
    double iconSize = 44;
    double length = 1300;
    double from = 300;
    double to = 1000;
};

void magnifyFrames(benchmark::State& state, const Dock& dock, double scale) {
    const Server server{scale};
    const xdg::PluginApplication application{"xcb", xdg::PluginApplication::InactivePopups::stay};
    X11Connection connection;
    RandrScreens screens{connection};
    xdg::Appearance appearance{{}};
    QtPanelWindows windows{connection, screens, appearance};
    TappedWindows tapped{windows};
    test::DockFixture fixture;
    DrawnAppIcons drawn;
    IconStore icons{drawn};
    DockViewContext context{fixture.model,
                            icons,
                            fixture.actions,
                            fixture.platform.runLoop,
                            fixture.platform.pointerSettings,
                            fixture.platform.motionSettings,
                            fixture.trash,
                            fixture.platform.words,
                            std::nullopt};
    fixture.setTiles(dock.tiles - utilityTiles, 0);
    fixture.model.configuredIconSize.set(dock.iconSize);
    fixture.model.magnification.set(magnification);
    while (screens.screens().empty())
        QCoreApplication::processEvents();
    const auto screen = screens.screens().front();
    const PanelSpec spec{
        screen.number.value_or(0), {100, 4, dock.length, 130}, dock.length, DockPosition::bottom};
    DockPanel panel{spec, false, context, tapped};
    panel.orderFrontRegardless();
    for (int i = 0; i < 200; ++i)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);

    double x = dock.from;
    std::int64_t allocated = 0;
    for ([[maybe_unused]] const auto frame : state) {
        x = x < dock.to ? x + 3.7 : dock.from;
        fixture.platform.runLoop.advance(1.0 / 60);
        const double started = processorSeconds();
        const auto before = allocations.load();
        tapped.move({x, 100});
        QCoreApplication::processEvents();
        // The frame clock limits frames to the display's refresh rate.
        timespec pause{0, 17'000'000};
        nanosleep(&pause, nullptr);
        QCoreApplication::processEvents();
        state.SetIterationTime(processorSeconds() - started);
        allocated += allocations.load() - before;
    }
    state.counters["allocations"] =
        static_cast<double>(allocated) / static_cast<double>(state.iterations());
}

void magnifiedFrame(benchmark::State& state) {
    magnifyFrames(state, {.tiles = static_cast<int>(state.range(0))},
                  static_cast<double>(state.range(1)));
}
BENCHMARK(magnifiedFrame)
    ->Args({12, 1})
    ->Args({20, 1})
    ->Args({20, 2})
    ->UseManualTime()
    ->Iterations(200)
    ->Unit(benchmark::kMicrosecond);

/// Always uses the icon size of a dock with very many tiles, and a window that is as long as all
/// tiles.
void frameByTiles(benchmark::State& state) {
    Dock dock{.tiles = static_cast<int>(state.range(0)), .iconSize = DockMetrics::minIconSize};
    const double strip =
        DockOrdering::stripWidth({dock.tiles - utilityTiles, 0, utilityTiles}, dock.iconSize);
    dock.length = strip + DockMagnifier::maxExtraLength(dock.tiles, dock.iconSize, magnification);
    constexpr double around = 80;
    dock.from = dock.length / 2 - around;
    dock.to = dock.length / 2 + around;
    magnifyFrames(state, dock, 1);
    state.SetComplexityN(state.range(0));
}
BENCHMARK(frameByTiles)
    ->Arg(10)
    ->Arg(25)
    ->Arg(50)
    ->Arg(100)
    ->Arg(200)
    ->Arg(400)
    ->UseManualTime()
    ->Iterations(100)
    ->Unit(benchmark::kMicrosecond)
    ->Complexity(benchmark::oN);

}
}
