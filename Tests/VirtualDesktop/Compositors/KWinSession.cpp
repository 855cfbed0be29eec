#include "VirtualDesktop/Compositors/KWinSession.hpp"

#include "VirtualDesktop/Processes/Waiting.hpp"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace vireline::desktop {
namespace {

constexpr Colour nothing{0, 0, 0};

KWinProcess::Options withOutputs(KWinProcess::Options options,
                                 const std::vector<Monitor>& monitors) {
    const PixelRect& first = monitors.front().frame;
    int right = 0;
    for (const Monitor& monitor : monitors) {
        if (monitor.frame != PixelRect{right, 0, first.width, first.height})
            throw std::logic_error{"KWin's outputs lie side by side and have one size"};
        right += first.width;
    }
    options.outputs = static_cast<int>(monitors.size());
    options.width = first.width;
    options.height = first.height;
    return options;
}

}

KWinSession::KWinSession(const XClient& client, KWinProcess::Options options,
                         const std::vector<Monitor>& monitors)
    : CompositorSession(client, nothing), kwin_(withOutputs(std::move(options), monitors)) {
    while (outputs().size() < monitors.size()) {
        std::optional<Output> output;
        if (!eventually([&] { return (output = newOutput("KDE Wayland Compositor")).has_value(); }))
            throw std::runtime_error{"KWin shows no window for an output"};
        outputs().push_back(*output);
    }
    // It makes them in this order.
    std::ranges::sort(outputs(), {}, &Output::window);
    for (std::size_t i = 0; i < monitors.size(); ++i) {
        outputs()[i].name = "X11-" + std::to_string(i);
        placeWindow(outputs()[i], monitors[i]);
    }
}

void KWinSession::setMonitors(const std::vector<Monitor>& monitors) {
    if (!std::ranges::equal(outputs(), monitors, {}, &Output::monitor))
        throw std::logic_error{"KWin's outputs stay as they are"};
}

}
