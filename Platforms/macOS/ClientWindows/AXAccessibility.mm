#include "ClientWindows/AXAccessibility.hpp"

#include "Bridge/Attempt.hpp"
#include "Bridge/CFHandle.hpp"
#include "Bridge/Conversions.hpp"
#include "Translation/AccessibilityErrors.hpp"

#import <ApplicationServices/ApplicationServices.h>

#include <utility>

namespace vireline::macos {
namespace {

static_assert(AccessibilityErrors::success == kAXErrorSuccess);
static_assert(AccessibilityErrors::failure == kAXErrorFailure);
static_assert(AccessibilityErrors::illegalArgument == kAXErrorIllegalArgument);

class AXElement final : public AccessibilityElement {
public:
    explicit AXElement(CFHandle<AXUIElementRef> element) : element_(std::move(element)) {}

    [[nodiscard]] AXUIElementRef ref() const noexcept { return element_.get(); }

private:
    CFHandle<AXUIElementRef> element_;
};

/// All elements that the kit passes in were created here, so the cast is safe. Null if the system
/// created none.
AXUIElementRef refOf(AccessibilityElement& element) {
    return static_cast<AXElement&>(element).ref();
}

std::unexpected<PlatformError> failure(AXError code) {
    return std::unexpected{PlatformError{code, AccessibilityErrors::describe(code)}};
}

/// Null if the value is not an element.
ElementHandle toElement(CFTypeRef value) {
    if (value == nullptr || CFGetTypeID(value) != AXUIElementGetTypeID())
        return nullptr;
    const auto element = static_cast<AXUIElementRef>(CFRetain(value));
    return std::make_shared<AXElement>(CFHandle<AXUIElementRef>{element});
}

Result<CFHandle<CFTypeRef>> attribute(AccessibilityElement& element, CFStringRef name) {
    const AXUIElementRef asked = refOf(element);
    if (asked == nullptr)
        return failure(kAXErrorIllegalArgument);
    CFTypeRef value = nullptr;
    const AXError code = AXUIElementCopyAttributeValue(asked, name, &value);
    CFHandle<CFTypeRef> owned{value};
    if (code != kAXErrorSuccess)
        return failure(code);
    if (!owned)
        return failure(kAXErrorFailure);
    return owned;
}

/// Reads an attribute whose value is a point or a size inside an AXValue.
template <class Content, class Converted>
Result<Converted> boxedAttribute(AccessibilityElement& element, CFStringRef name, AXValueType type,
                                 Converted (*convert)(Content)) {
    const auto value = attribute(element, name);
    if (!value)
        return std::unexpected{value.error()};
    Content content{};
    if (CFGetTypeID(value->get()) != AXValueGetTypeID() ||
        !AXValueGetValue(static_cast<AXValueRef>(value->get()), type, &content))
        return failure(kAXErrorFailure);
    return convert(content);
}

template <class Content>
Result<void> setBoxedAttribute(AccessibilityElement& element, CFStringRef name, AXValueType type,
                               const Content& content) {
    const AXUIElementRef asked = refOf(element);
    const CFHandle<AXValueRef> value{AXValueCreate(type, &content)};
    if (asked == nullptr || !value)
        return failure(kAXErrorIllegalArgument);
    const AXError code = AXUIElementSetAttributeValue(asked, name, value.get());
    if (code != kAXErrorSuccess)
        return failure(code);
    return {};
}

}

bool AXAccessibility::isTrusted() const {
    return AXIsProcessTrusted() != 0;
}

bool AXAccessibility::isTrustedWithPrompt() {
    return attemptOr(false, "AXIsProcessTrustedWithOptions", [] {
        NSDictionary* const options =
            @{(__bridge NSString*)kAXTrustedCheckOptionPrompt : [NSNumber numberWithBool:YES]};
        return AXIsProcessTrustedWithOptions((__bridge CFDictionaryRef)options) != 0;
    });
}

ElementHandle AXAccessibility::application(std::int32_t processIdentifier, const std::string&) {
    return std::make_shared<AXElement>(
        CFHandle<AXUIElementRef>{AXUIElementCreateApplication(processIdentifier)});
}

void AXAccessibility::setMessagingTimeout(AccessibilityElement& element, float seconds) {
    if (const AXUIElementRef asked = refOf(element); asked != nullptr)
        AXUIElementSetMessagingTimeout(asked, seconds);
}

Result<ElementHandle> AXAccessibility::mainWindow(AccessibilityElement& application) {
    const auto value = attribute(application, kAXMainWindowAttribute);
    if (!value)
        return std::unexpected{value.error()};
    return toElement(value->get());
}

Result<std::vector<ElementHandle>> AXAccessibility::windows(AccessibilityElement& application) {
    const auto value = attribute(application, kAXWindowsAttribute);
    if (!value)
        return std::unexpected{value.error()};
    if (CFGetTypeID(value->get()) != CFArrayGetTypeID())
        return failure(kAXErrorFailure);
    const auto array = static_cast<CFArrayRef>(value->get());
    std::vector<ElementHandle> elements;
    for (CFIndex index = 0; index < CFArrayGetCount(array); ++index)
        elements.push_back(toElement(CFArrayGetValueAtIndex(array, index)));
    return elements;
}

Result<Point> AXAccessibility::position(AccessibilityElement& window) {
    return boxedAttribute(window, kAXPositionAttribute, kAXValueCGPointType, &toPoint);
}

Result<void> AXAccessibility::setPosition(AccessibilityElement& window, Point position) {
    return setBoxedAttribute(window, kAXPositionAttribute, kAXValueCGPointType,
                             toCGPoint(position));
}

Result<Size> AXAccessibility::size(AccessibilityElement& window) {
    return boxedAttribute(window, kAXSizeAttribute, kAXValueCGSizeType, &toSize);
}

Result<void> AXAccessibility::setSize(AccessibilityElement& window, Size size) {
    return setBoxedAttribute(window, kAXSizeAttribute, kAXValueCGSizeType, toCGSize(size));
}

}
