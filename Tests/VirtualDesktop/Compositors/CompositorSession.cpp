#include "VirtualDesktop/Compositors/CompositorSession.hpp"

#include <algorithm>
#include <array>

namespace vireline::desktop {
namespace {

/// The background of menus in the style that Qt uses without a desktop's settings.
constexpr Colour menuColour{0xff, 0xff, 0xff};

/// FNV-1a, as documented for the program's log.
std::uint32_t idOf(std::string_view name) {
    std::uint32_t hash = 2166136261U;
    for (const char letter : name)
        hash = (hash ^ static_cast<unsigned char>(letter)) * 16777619U;
    return hash;
}

/// The bounding rectangle of everything in the picture that is not the empty desktop.
PixelRect content(const Picture& picture, Colour background) {
    int left = picture.width();
    int top = picture.height();
    int right = 0;
    int bottom = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.at(x, y) == background)
                continue;
            left = std::min(left, x);
            right = std::max(right, x + 1);
            top = std::min(top, y);
            bottom = std::max(bottom, y + 1);
        }
    }
    return right == 0 ? PixelRect{} : PixelRect{left, top, right - left, bottom - top};
}

}

std::optional<CompositorSession::Output>
CompositorSession::newOutput(std::string_view titleBeginning) const {
    for (const xcb_window_t window : client_.children(client_.root())) {
        const std::string title = client_.text(window, "_NET_WM_NAME");
        if (title.starts_with(titleBeginning) && client_.isViewable(window) &&
            std::ranges::find(outputs_, window, &Output::window) == outputs_.end())
            return Output{title.substr(titleBeginning.size()), window, {}};
    }
    return std::nullopt;
}

void CompositorSession::placeWindow(Output& output, const Monitor& monitor) const {
    output.monitor = monitor;
    const auto& frame = monitor.frame;
    const std::array<std::uint32_t, 4> values{
        static_cast<std::uint32_t>(frame.x), static_cast<std::uint32_t>(frame.y),
        static_cast<std::uint32_t>(frame.width), static_cast<std::uint32_t>(frame.height)};
    xcb_configure_window(client_.get(), output.window,
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                             XCB_CONFIG_WINDOW_HEIGHT,
                         values.data());
    client_.sync();
}

std::map<std::string, std::uint32_t> CompositorSession::displayIDs() const {
    std::map<std::string, std::uint32_t> ids;
    for (const Output& output : outputs_)
        ids[output.monitor.name] = idOf(output.name);
    return ids;
}

std::string CompositorSession::outputOf(const std::string& monitor) const {
    const auto found = std::ranges::find_if(
        outputs_, [&](const Output& output) { return output.monitor.name == monitor; });
    return found == outputs_.end() ? std::string{} : found->name;
}

std::vector<DockWindow> CompositorSession::shown() const {
    std::vector<DockWindow> docks;
    for (const Output& output : outputs_) {
        const auto& frame = output.monitor.frame;
        const PixelRect seen = content(emptied(output), background_);
        if (seen != PixelRect{}) {
            docks.push_back({idOf(output.name),
                             {frame.x + seen.x, frame.y + seen.y, seen.width, seen.height},
                             output.window});
        }
    }
    std::ranges::sort(docks, {}, &DockWindow::displayID);
    return docks;
}

std::vector<PixelRect> CompositorSession::menus() const {
    std::vector<PixelRect> menus;
    for (const Output& output : outputs_) {
        const auto& frame = output.monitor.frame;
        for (PixelRect menu : emptied(output).areas(menuColour)) {
            menu.x += frame.x;
            menu.y += frame.y;
            menus.push_back(menu);
        }
    }
    return menus;
}

bool CompositorSession::showsBackground(const Output& output) const {
    const PixelRect& frame = output.monitor.frame;
    const PixelRect corner{frame.right() - 1, frame.bottom() - 1, 1, 1};
    return Picture::ofScreen(client_, corner).at(0, 0) == background_;
}

Picture CompositorSession::emptied(const Output& output) const {
    const auto& frame = output.monitor.frame;
    Picture picture = Picture::ofScreen(client_, frame);
    std::vector<PixelRect> covers = windowFrames();
    covers.insert(covers.end(), ignored_.begin(), ignored_.end());
    for (const PixelRect& cover : covers) {
        const int right = std::min(cover.right(), frame.right());
        const int bottom = std::min(cover.bottom(), frame.bottom());
        for (int y = std::max(cover.y, frame.y); y < bottom; ++y) {
            for (int x = std::max(cover.x, frame.x); x < right; ++x)
                picture.set(x - frame.x, y - frame.y, background_);
        }
    }
    return picture;
}

}
