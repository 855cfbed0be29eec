#include "App/Absent.hpp"

namespace vireline::wayland {
namespace {

class NoElement final : public AccessibilityElement {};

std::unexpected<PlatformError> cannotMove() {
    return std::unexpected{PlatformError{0, "this compositor cannot move windows"}};
}

}

ElementHandle NoAccessibility::application(std::int32_t /*processIdentifier*/,
                                           const std::string& /*bundleID*/) {
    return std::make_shared<NoElement>();
}

Result<ElementHandle> NoAccessibility::mainWindow(AccessibilityElement& /*application*/) {
    return cannotMove();
}

Result<std::vector<ElementHandle>> NoAccessibility::windows(AccessibilityElement& /*application*/) {
    return cannotMove();
}

Result<Point> NoAccessibility::position(AccessibilityElement& /*window*/) {
    return cannotMove();
}

Result<void> NoAccessibility::setPosition(AccessibilityElement& /*window*/, Point /*position*/) {
    return cannotMove();
}

Result<Size> NoAccessibility::size(AccessibilityElement& /*window*/) {
    return cannotMove();
}

Result<void> NoAccessibility::setSize(AccessibilityElement& /*window*/, Size /*size*/) {
    return cannotMove();
}

}
