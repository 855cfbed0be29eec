// Accessibility elements of other programs' windows.
#include "Cocoa/CoreObjects.hpp"
#include "Cocoa/Paper.hpp"

#include <cstdlib>

// Documented: an opaque reference to a program or a window; two that name the same one are equal.
// Belief: a reference stays valid while other windows of the program come and go; here it is known
// by its place among them.
@implementation PaperElement

- (BOOL)isEqual:(id)other {
    if (![other isKindOfClass:PaperElement.class])
        return NO;
    PaperElement* const element = other;
    return element.processIdentifier == self.processIdentifier && element.window == self.window;
}

@end

// Documented: wraps a structure and knows which; it is not unwrapped as another one.
@implementation PaperBox
@end

namespace {

constexpr NSInteger noWindow = -1;
// Documented in AXError.h.
constexpr auto invalidElement = static_cast<AXError>(-25202);
constexpr auto cannotComplete = static_cast<AXError>(-25204);
constexpr auto noValue = static_cast<AXError>(-25212);

struct State {
    bool isTrusted = false;
    bool makesNoElements = false;
    float timeout = 6;
    std::map<int, paper::ForeignApp> apps;
};

State& state() {
    static auto& only = *new State;
    return only;
}

// Belief: a null reference ends the process, as for other functions of Core Foundation's kind.
PaperElement* elementOf(AXUIElementRef reference) {
    if (reference == nullptr)
        std::abort();
    return (__bridge PaperElement*)reference;
}

PaperElement* makeElement(int processIdentifier, NSInteger window) {
    PaperElement* const element = [[PaperElement alloc] init];
    element.processIdentifier = processIdentifier;
    element.window = window;
    return element;
}

/// Returns null and sets `error` if the app cannot answer. A call to a hung program waits for its
/// timeout.
paper::ForeignApp* asked(PaperElement* element, AXError& error) {
    const auto found = state().apps.find(element.processIdentifier);
    error = cannotComplete;
    if (found == state().apps.end())
        return nullptr;
    ++found->second.questions;
    if (found->second.delay > 0)
        paper::stall(found->second.delay);
    if (!found->second.isHung)
        return &found->second;
    paper::stall(state().timeout);
    return nullptr;
}

AXError copyOfApp(PaperElement* element, const paper::ForeignApp& app, const std::string& name,
                  CFTypeRef* value) {
    if (name == "AXMainWindow") {
        if (app.windows.empty())
            return noValue;
        *value = (__bridge_retained CFTypeRef)makeElement(element.processIdentifier, 0);
        return kAXErrorSuccess;
    }
    if (name == "AXFrontmost") {
        *value = (__bridge_retained CFTypeRef)[NSNumber numberWithBool:app.isFrontmost];
        return kAXErrorSuccess;
    }
    NSMutableArray* const windows = [NSMutableArray array];
    if (app.listsNonsense)
        [windows addObject:paper::text("nonsense")];
    for (std::size_t index = 0; index < app.windows.size(); ++index)
        [windows addObject:makeElement(element.processIdentifier, static_cast<NSInteger>(index))];
    *value = (__bridge_retained CFTypeRef)windows;
    return kAXErrorSuccess;
}

paper::ForeignWindow* windowOf(PaperElement* element, paper::ForeignApp& app, AXError& error) {
    const auto index = static_cast<std::size_t>(element.window);
    error = invalidElement;
    if (index >= app.windows.size())
        return nullptr;
    error = app.windows[index].error;
    return error == kAXErrorSuccess ? &app.windows[index] : nullptr;
}

}

extern "C" {

CFStringRef kAXTrustedCheckOptionPrompt = CFSTR("AXTrustedCheckOptionPrompt");

Boolean AXIsProcessTrusted(void) {
    return state().isTrusted;
}

Boolean AXIsProcessTrustedWithOptions(CFDictionaryRef) {
    paper::requests().emplace_back("ask for the permission");
    return state().isTrusted;
}

CFTypeID AXUIElementGetTypeID(void) {
    return paper::elementType;
}

AXUIElementRef AXUIElementCreateApplication(int processIdentifier) {
    if (state().makesNoElements)
        return nullptr;
    return (__bridge_retained AXUIElementRef)makeElement(processIdentifier, noWindow);
}

AXError AXUIElementSetMessagingTimeout(AXUIElementRef reference, float seconds) {
    static_cast<void>(elementOf(reference));
    state().timeout = seconds;
    return kAXErrorSuccess;
}

// Documented: the caller owns the value.
AXError AXUIElementCopyAttributeValue(AXUIElementRef reference, CFStringRef attribute,
                                      CFTypeRef* value) {
    PaperElement* const element = elementOf(reference);
    const std::string& name = [(__bridge NSString*)attribute paperText];
    AXError error = kAXErrorSuccess;
    paper::ForeignApp* const app = asked(element, error);
    if (app == nullptr)
        return error;
    if (const auto refused = app->errors.find(name); refused != app->errors.end())
        return refused->second;
    if (app->nonsense.contains(name)) {
        *value = (__bridge_retained CFTypeRef)paper::text("nonsense");
        return kAXErrorSuccess;
    }
    if (element.window == noWindow)
        return copyOfApp(element, *app, name, value);
    const paper::ForeignWindow* const window = windowOf(element, *app, error);
    if (window == nullptr)
        return error;
    if (name == "AXTitle") {
        *value = (__bridge_retained CFTypeRef)paper::text(window->title);
        return kAXErrorSuccess;
    }
    if (name == "AXMain") {
        *value = (__bridge_retained CFTypeRef)[NSNumber numberWithBool:element.window == 0];
        return kAXErrorSuccess;
    }
    *value = name == "AXPosition" ? AXValueCreate(kAXValueCGPointType, &window->position)
                                  : AXValueCreate(kAXValueCGSizeType, &window->size);
    return kAXErrorSuccess;
}

// Belief: a window accepts every position and size; real ones have limits of their own.
AXError AXUIElementSetAttributeValue(AXUIElementRef reference, CFStringRef attribute,
                                     CFTypeRef value) {
    PaperElement* const element = elementOf(reference);
    AXError error = kAXErrorSuccess;
    paper::ForeignApp* const app = asked(element, error);
    const std::string& name = [(__bridge NSString*)attribute paperText];
    if (app != nullptr && app->errors.contains("set " + name))
        return app->errors.at("set " + name);
    paper::ForeignWindow* const window = app == nullptr ? nullptr : windowOf(element, *app, error);
    if (window == nullptr)
        return error;
    if (name == "AXMinimized")
        window->isMinimized = [(__bridge NSNumber*)value boolValue];
    else if (name == "AXPosition")
        AXValueGetValue(static_cast<AXValueRef>(value), kAXValueCGPointType, &window->position);
    else
        AXValueGetValue(static_cast<AXValueRef>(value), kAXValueCGSizeType, &window->size);
    return kAXErrorSuccess;
}

AXError AXUIElementGetPid(AXUIElementRef reference, int* processIdentifier) {
    *processIdentifier = elementOf(reference).processIdentifier;
    return kAXErrorSuccess;
}

// Belief: raising a window makes it the main one of its program, in whichever order they were.
AXError AXUIElementPerformAction(AXUIElementRef reference, CFStringRef action) {
    PaperElement* const element = elementOf(reference);
    AXError error = kAXErrorSuccess;
    paper::ForeignApp* const app = asked(element, error);
    const paper::ForeignWindow* const window =
        app == nullptr ? nullptr : windowOf(element, *app, error);
    if (window == nullptr)
        return error;
    paper::requests().push_back([(__bridge NSString*)action paperText] + " " + window->title);
    return kAXErrorSuccess;
}

CFTypeID AXValueGetTypeID(void) {
    return paper::boxType;
}

AXValueRef AXValueCreate(AXValueType type, const void* content) {
    PaperBox* const box = [[PaperBox alloc] init];
    box.type = type;
    box.content = *static_cast<const CGPoint*>(content);
    return (__bridge_retained AXValueRef)box;
}

Boolean AXValueGetValue(AXValueRef value, AXValueType type, void* content) {
    PaperBox* const box = (__bridge PaperBox*)value;
    if (box.type != type)
        return 0;
    *static_cast<CGPoint*>(content) = box.content;
    return 1;
}
}

namespace paper {

std::map<int, ForeignApp>& foreignApps() {
    return state().apps;
}

void makeNoElements(bool fails) {
    state().makesNoElements = fails;
}

void setTrusted(bool isTrusted) {
    state().isTrusted = isTrusted;
}

bool isTrusted() {
    return state().isTrusted;
}

}
