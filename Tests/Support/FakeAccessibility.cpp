#include "Support/FakeAccessibility.hpp"

#include <algorithm>
#include <functional>
#include <iterator>
#include <sstream>
#include <utility>

namespace vireline::test {
namespace {

/// The error codes of macOS.
constexpr int invalidElement = -25202;
constexpr int cannotComplete = -25204;
constexpr int noValue = -25212;

template <class Value>
std::string described(const std::string& attribute, const Value& value) {
    std::ostringstream text;
    text << attribute << ' ' << value;
    return text.str();
}

}

struct FakeAccessibility::Element final : public AccessibilityElement {
    Element(std::int32_t process, std::string identifier)
        : processIdentifier(process), bundleID(std::move(identifier)) {}
    explicit Element(const std::shared_ptr<FakeWindow>& shown) : window(shown) {}

    std::int32_t processIdentifier = 0;
    std::string bundleID;
    std::weak_ptr<FakeWindow> window;
    bool hasTimeout = false;

    static Element& of(AccessibilityElement& element) { return dynamic_cast<Element&>(element); }
};

bool FakeAccessibility::isTrustedWithPrompt() {
    if (!isTrusted())
        ++prompts;
    return isTrusted();
}

ElementHandle FakeAccessibility::application(std::int32_t processIdentifier,
                                             const std::string& bundleID) {
    return std::make_shared<Element>(processIdentifier, bundleID);
}

void FakeAccessibility::setMessagingTimeout(AccessibilityElement& element, float seconds) {
    Element::of(element).hasTimeout = true;
    timeouts.push_back(seconds);
}

Result<ElementHandle> FakeAccessibility::mainWindow(AccessibilityElement& application) {
    if (const auto failure = failureOf("AXMainWindow", application))
        return std::unexpected{*failure};
    auto windows = windowsOf(Element::of(application));
    std::erase_if(windows, [](const Owned& owned) { return owned.window->isDialog; });
    const auto main = std::ranges::max_element(windows, {}, &Owned::lastActive);
    if (main == windows.end())
        return std::unexpected{PlatformError{noValue, "no main window"}};
    if (isNoElement("AXMainWindow"))
        return ElementHandle{};
    return std::make_shared<Element>(main->window);
}

Result<std::vector<ElementHandle>> FakeAccessibility::windows(AccessibilityElement& application) {
    if (const auto failure = failureOf("AXWindows", application))
        return std::unexpected{*failure};
    std::vector<ElementHandle> elements;
    if (isNoElement("AXWindows"))
        elements.emplace_back();
    for (const Owned& owned : windowsOf(Element::of(application)))
        elements.push_back(std::make_shared<Element>(owned.window));
    return elements;
}

Result<std::vector<OpenWindow>> FakeAccessibility::openWindows(AccessibilityElement& application) {
    if (const auto failure = failureOf("openWindows", application))
        return std::unexpected{*failure};
    if (!trusted || !listsWindows)
        return std::unexpected{PlatformError{cannotComplete, "not permitted"}};
    auto windows = windowsOf(Element::of(application));
    std::ranges::sort(windows, std::greater{}, &Owned::lastActive);
    std::vector<OpenWindow> open;
    open.reserve(windows.size());
    for (const Owned& owned : windows)
        open.push_back({std::make_shared<Element>(owned.window), owned.window->title,
                        owned.lastActive == activations_ && !owned.window->isHidden});
    return open;
}

Result<void> FakeAccessibility::bringForward(AccessibilityElement& window) {
    if (const auto failure = failureOf("bringForward", window))
        return std::unexpected{*failure};
    FakeWindow& shown = *Element::of(window).window.lock();
    shown.isHidden = false;
    broughtForward.push_back(shown.title);
    activate(shown);
    return {};
}

Result<Point> FakeAccessibility::position(AccessibilityElement& window) {
    if (const auto failure = failureOf("AXPosition", window))
        return std::unexpected{*failure};
    const Rect frame = Element::of(window).window.lock()->frame;
    return Point{frame.x, frame.y};
}

Result<void> FakeAccessibility::setPosition(AccessibilityElement& window, Point position) {
    sets.push_back(described("AXPosition", position));
    if (const auto failure = failureOf("set AXPosition", window))
        return std::unexpected{*failure};
    Rect& frame = Element::of(window).window.lock()->frame;
    frame = {position.x, position.y, frame.width, frame.height};
    return {};
}

Result<Size> FakeAccessibility::size(AccessibilityElement& window) {
    if (const auto failure = failureOf("AXSize", window))
        return std::unexpected{*failure};
    return Element::of(window).window.lock()->frame.size();
}

Result<void> FakeAccessibility::setSize(AccessibilityElement& window, Size size) {
    sets.push_back(described("AXSize", Point{size.width, size.height}));
    if (const auto failure = failureOf("set AXSize", window))
        return std::unexpected{*failure};
    FakeWindow& changed = *Element::of(window).window.lock();
    changed.frame.width = std::max(size.width, changed.minimumSize.width);
    changed.frame.height = std::max(size.height, changed.minimumSize.height);
    return {};
}

FakeWindow& FakeAccessibility::addWindow(const RunningApplication& app, const Rect& frame) {
    auto window = std::make_shared<FakeWindow>(FakeWindow{.frame = frame});
    windows_.push_back(
        {app.bundleID.value_or(""), app.processIdentifier, ++activations_, std::move(window)});
    return *windows_.back().window;
}

void FakeAccessibility::activate(const FakeWindow& window) {
    find(window)->lastActive = ++activations_;
}

void FakeAccessibility::close(const FakeWindow& window) {
    windows_.erase(find(window));
}

std::optional<PlatformError> FakeAccessibility::failureOf(const std::string& call,
                                                          AccessibilityElement& element) {
    const Element& asked = Element::of(element);
    if (!asked.hasTimeout)
        ++callsWithoutTimeout;
    if (const auto failure = failures.find(call); failure != failures.end())
        return failure->second;
    if (call.ends_with("Window") || call.ends_with("Windows"))
        return std::nullopt;
    if (!answers)
        return PlatformError{cannotComplete, "no answer"};
    if (asked.window.expired())
        return PlatformError{invalidElement, "the window is gone"};
    return std::nullopt;
}

bool FakeAccessibility::isNoElement(const std::string& attribute) const {
    return std::ranges::find(notElements, attribute) != notElements.end();
}

std::vector<FakeAccessibility::Owned>
FakeAccessibility::windowsOf(const Element& application) const {
    std::vector<Owned> all;
    std::ranges::copy_if(windows_, std::back_inserter(all), [&](const Owned& owned) {
        return owned.bundleID == application.bundleID;
    });
    std::vector<Owned> its;
    std::ranges::copy_if(all, std::back_inserter(its), [&](const Owned& owned) {
        return owned.processIdentifier == application.processIdentifier;
    });
    return application.processIdentifier == 0 || its.empty() ? all : its;
}

std::vector<FakeAccessibility::Owned>::iterator FakeAccessibility::find(const FakeWindow& window) {
    return std::ranges::find(windows_, &window,
                             [](const Owned& owned) { return owned.window.get(); });
}

class FakePointerTaps::Tap final : public PointerTap {
public:
    explicit Tap(std::shared_ptr<State> state) : state_(std::move(state)) {}
    void setEnabled(bool isEnabled) override { state_->isEnabled = isEnabled; }
    void setRule(PointerRule rule) override { state_->rule = std::move(rule); }

private:
    std::shared_ptr<State> state_;
};

Result<std::unique_ptr<PointerTap>> FakePointerTaps::create(PointerRule rule, Disabled onDisabled) {
    if (failure)
        return std::unexpected{*failure};
    ++created;
    auto state = std::make_shared<State>(
        State{.rule = std::move(rule), .onDisabled = std::move(onDisabled)});
    tap_ = state;
    return std::make_unique<Tap>(std::move(state));
}

Point FakePointerTaps::move(Point to) {
    const auto tap = tap_.lock();
    if (!tap || !tap->isEnabled)
        return to;
    return tap->rule(to).value_or(to);
}

void FakePointerTaps::disable(PointerTapEvent reason) {
    const auto tap = tap_.lock();
    tap->isEnabled = false;
    tap->onDisabled(reason);
}

bool FakePointerTaps::isEnabled() const {
    const auto tap = tap_.lock();
    return tap && tap->isEnabled;
}

}
