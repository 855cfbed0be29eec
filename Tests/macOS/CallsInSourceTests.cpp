#include "CallsInSource.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

constexpr auto source = R"(
/// Calls openURL, or so it says.
void MacWorkspace::open(const FileURL& url) {
    attempt("openURL", [&] { [NSWorkspace.sharedWorkspace openURL:toNSURL(url)]; });
}

void MacWorkspace::reveal(const FileURL& url) {
    // openURL: is for others.
    attempt("reveal", [&] { [NSWorkspace.sharedWorkspace select:toNSURL(url)]; });
}

EventTap::EventTap(Callback callback)
    : callback_{std::move(callback)}, port_(CGEventTapCreate(kCGHIDEventTap)) {
    open({});
}

- (BOOL)isOpen {
    return self.window.visible;
}

constexpr int everywhere = NSOnThis | NSOnThat;
)";

bool makesCall(const std::string& text, const char* function, const char* call) {
    for (const std::string& definition : definitionsOf(codeWithoutWords(text), function)) {
        if (uses(definition, call))
            return true;
    }
    return false;
}

TEST(CallsInSource, FindsCallsMessagesAndPropertiesInTheFunctionsThatMakeThem) {
    EXPECT_TRUE(makesCall(source, "open", "openURL"));
    EXPECT_TRUE(makesCall(source, "EventTap", "CGEventTapCreate"));
    EXPECT_TRUE(makesCall(source, "EventTap", "open"));
    EXPECT_TRUE(makesCall(source, "isOpen", "visible"));
    EXPECT_TRUE(makesCall(source, "everywhere", "NSOnThat"));
}

TEST(CallsInSource, TellsMethodsThatTheSystemCallsFromFunctions) {
    EXPECT_TRUE(definesMethod(source, "isOpen"));
    EXPECT_FALSE(definesMethod(source, "open"));
}

TEST(CallsInSource, TakesNoWordOfACommentOrALabelForACall) {
    std::string without = source;
    const std::string call = "[NSWorkspace.sharedWorkspace openURL:toNSURL(url)];";
    without.erase(without.find(call), call.size());

    EXPECT_FALSE(makesCall(without, "open", "openURL"));
}

TEST(CallsInSource, TakesACallElsewhereForNone) {
    EXPECT_FALSE(makesCall(source, "reveal", "openURL"));
    EXPECT_FALSE(makesCall(source, "isOpen", "openURL"));
    EXPECT_FALSE(makesCall(source, "close", "openURL"));
}

}
}
