#include "ClientWindows/AXAccessibility.hpp"

#include "Bridge/Attempt.hpp"
#include "Bridge/CFHandle.hpp"
#include "Bridge/Conversions.hpp"
#include "Translation/AccessibilityErrors.hpp"

#import <AppKit/AppKit.h>
#import <ApplicationServices/ApplicationServices.h>

#include <string>
#include <utility>

namespace vireline::macos {
namespace {

/// The longest that reading an app's windows may take.
constexpr double totalSeconds = 0.5;

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

double uptime() {
    return attemptOr(0.0, "systemUptime", [] { return NSProcessInfo.processInfo.systemUptime; });
}

/// Empty if there is no such attribute, or if it is not a text.
std::string text(const Result<CFHandle<CFTypeRef>>& value) {
    const id object = value ? (__bridge id)value->get() : nil;
    return [object isKindOfClass:NSString.class] ? toText(static_cast<NSString*>(object))
                                                 : std::string{};
}

bool isTrue(const Result<CFHandle<CFTypeRef>>& value) {
    const id object = value ? (__bridge id)value->get() : nil;
    return [object isKindOfClass:NSNumber.class] && [static_cast<NSNumber*>(object) boolValue];
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

/// The system lists windows front to back, minimised ones included, and each answer may take until
/// the timeout. So the time that is left for all titles decreases with each.
Result<std::vector<OpenWindow>> AXAccessibility::openWindows(AccessibilityElement& application) {
    if (!isTrusted())
        return failure(kAXErrorAPIDisabled);
    const double started = uptime();
    const auto elements = windows(application);
    if (!elements)
        return std::unexpected{elements.error()};
    const bool isFrontmost = isTrue(attribute(application, kAXFrontmostAttribute));
    std::vector<OpenWindow> open;
    for (const ElementHandle& element : *elements) {
        if (!element)
            continue;
        const double left = totalSeconds - (uptime() - started);
        if (left <= 0)
            return failure(kAXErrorCannotComplete);
        setMessagingTimeout(*element, static_cast<float>(left));
        open.push_back({element, text(attribute(*element, kAXTitleAttribute)),
                        isFrontmost && isTrue(attribute(*element, kAXMainAttribute))});
    }
    return open;
}

Result<void> AXAccessibility::bringForward(AccessibilityElement& window) {
    const AXUIElementRef asked = refOf(window);
    pid_t process = 0;
    if (asked == nullptr || AXUIElementGetPid(asked, &process) != kAXErrorSuccess)
        return failure(kAXErrorIllegalArgument);
    attempt("AXMinimized", [asked] {
        AXUIElementSetAttributeValue(asked, kAXMinimizedAttribute,
                                     (__bridge CFTypeRef)[NSNumber numberWithBool:NO]);
    });
    const AXError code = AXUIElementPerformAction(asked, kAXRaiseAction);
    if (code != kAXErrorSuccess)
        return failure(code);
    attempt("activateWithOptions", [process] {
        [[NSRunningApplication runningApplicationWithProcessIdentifier:process]
            activateWithOptions:0];
    });
    return {};
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
