#include "Compositors/CompositorAccessibility.hpp"

#include <cerrno>
#include <utility>

namespace vireline::wayland {
namespace {

std::unexpected<PlatformError> noPlacer() {
    return std::unexpected{PlatformError{ENOTSUP, "this compositor does not move windows"}};
}

}

CompositorAccessibility::CompositorAccessibility(std::unique_ptr<WindowPlacer> placer,
                                                 xdg::DesktopRunningApplications& applications,
                                                 std::function<Point()> primaryCorner)
    : ClientAccessibility(applications)
    , placer_(std::move(placer))
    , primaryCorner_(std::move(primaryCorner)) {}

CompositorAccessibility::~CompositorAccessibility() = default;

bool CompositorAccessibility::canMoveWindows() const {
    return placer_ && placer_->isAvailable();
}

Result<void> CompositorAccessibility::setPosition(AccessibilityElement& window, Point position) {
    if (!placer_)
        return noPlacer();
    WindowElement& element = WindowElement::of(window);
    element.position = position;
    const Point corner = primaryCorner_();
    return placer_->move(element.id, {position.x + corner.x, position.y + corner.y},
                         static_cast<double>(element.timeout));
}

/// Sets the position again together with the size, because a tiled window cannot take the position
/// that was set before.
Result<void> CompositorAccessibility::setSize(AccessibilityElement& window, Size size) {
    const WindowElement& element = WindowElement::of(window);
    const auto now = frame(element);
    if (!now)
        return std::unexpected{now.error()};
    const Point position = element.position.value_or(now->origin());
    const Point corner = primaryCorner_();
    return placer_->place(element.id,
                          {position.x + corner.x, position.y + corner.y, size.width, size.height},
                          static_cast<double>(element.timeout));
}

Result<Rect> CompositorAccessibility::frame(const WindowElement& window) const {
    if (!placer_)
        return noPlacer();
    const auto found = placer_->frame(window.id, static_cast<double>(window.timeout));
    if (!found)
        return std::unexpected{found.error()};
    const Point corner = primaryCorner_();
    return Rect{found->x - corner.x, found->y - corner.y, found->width, found->height};
}

}
