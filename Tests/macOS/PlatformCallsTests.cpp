/// Keeps the table of calls in docs/macos.md true.
#include "CallsInSource.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace vireline {
namespace {

struct PlatformCall {
    std::string call;
    std::string file;
    std::string function;
};

std::filesystem::path sourceFolder() {
    return VIRELINE_SOURCE_FOLDER;
}

std::string contentOf(const std::filesystem::path& path) {
    std::ifstream file{path, std::ios::binary};
    return {std::istreambuf_iterator<char>{file}, {}};
}

/// What stands between backquotes in a line, in order.
std::vector<std::string> backquotedTexts(std::string_view line) {
    std::vector<std::string> texts;
    for (auto open = line.find('`'); open != line.npos; open = line.find('`', open)) {
        const auto close = line.find('`', open + 1);
        if (close == line.npos)
            break;
        texts.emplace_back(line.substr(open + 1, close - open - 1));
        open = close + 1;
    }
    return texts;
}

std::vector<PlatformCall> documentedCalls() {
    std::ifstream document{sourceFolder() / "docs/macos.md"};
    std::vector<PlatformCall> calls;
    bool isInTable = false;
    for (std::string line; std::getline(document, line);) {
        isInTable = isInTable || line == "| call | file | function |";
        if (const auto texts = backquotedTexts(line); isInTable && texts.size() == 3)
            calls.push_back({texts.at(0), texts.at(1), texts.at(2)});
    }
    return calls;
}

/// Whether a function or type of that name in the source makes the call; a method that the system
/// calls only has to be there.
testing::AssertionResult makesCall(const std::string& source, const PlatformCall& expected) {
    const std::string code = codeWithoutWords(source);
    const auto definitions = definitionsOf(code, expected.function);
    if (definitions.empty())
        return testing::AssertionFailure() << expected.file << " has no " << expected.function;
    const bool isForTheSystem =
        expected.call == expected.function && definesMethod(code, expected.function);
    const auto makesIt = [&](const std::string& text) { return uses(text, expected.call); };
    if (isForTheSystem || std::ranges::any_of(definitions, makesIt))
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << expected.function << " in " << expected.file << " does not call " << expected.call;
}

TEST(PlatformCalls, AreMadeByTheFunctionsThatTheTableNames) {
    const auto calls = documentedCalls();
    ASSERT_FALSE(calls.empty());
    for (const PlatformCall& call : calls)
        EXPECT_TRUE(makesCall(contentOf(sourceFolder() / "Platforms/macOS" / call.file), call));
}

/// The services of the system that the program promises to use.
const std::vector<std::string>& promisedCalls() {
    static const std::vector<std::string> calls{
        "NSApplicationActivationPolicyAccessory",
        "mainMenu",
        "NSApplicationDelegate",
        "run",
        "runningApplications",
        "NSWorkspaceWillLaunchApplicationNotification",
        "NSWorkspaceDidLaunchApplicationNotification",
        "NSWorkspaceDidTerminateApplicationNotification",
        "openApplicationAtURL",
        "NSWorkspaceOpenConfiguration",
        "openURL",
        "activateFileViewerSelectingURLs",
        "URLForApplicationWithBundleIdentifier",
        "iconForFile",
        "active",
        "hide",
        "terminate",
        "processIdentifier",
        "NSScreen",
        "visibleFrame",
        "deviceDescription",
        "imageNamed",
        "imageWithSystemSymbolName",
        "doubleClickInterval",
        "NSWindowStyleMaskNonactivatingPanel",
        "NSFloatingWindowLevel",
        "NSTrackingArea",
        "setFrame",
        "NSMenuItem",
        "NSPasteboardTypeFileURL",
        "NSVisualEffectView",
        "systemFontOfSize",
        "separatorColor",
        "NSStatusBar",
        "NSWindow",
        "URLsForDirectory",
        "NSDownloadsDirectory",
        "NSTrashDirectory",
        "createDirectoryAtURL",
        "displayNameAtPath",
        "trashItemAtURL",
        "NSDistributedNotificationCenter",
        "timerWithTimeInterval",
        "CFPreferencesAppSynchronize",
        "CFPreferencesCopyAppValue",
        "DISPATCH_SOURCE_TYPE_VNODE",
        "O_EVTONLY",
        "CGDisplayUnitNumber",
        "CGEventTapCreate",
        "CGEventTapEnable",
        "CGEventGetLocation",
        "CGEventSetLocation",
        "AXIsProcessTrusted",
        "AXIsProcessTrustedWithOptions",
        "AXUIElementCreateApplication",
        "AXUIElementCopyAttributeValue",
        "AXUIElementSetAttributeValue",
        "AXUIElementSetMessagingTimeout",
        "AXValueCreate",
        "AXValueGetValue",
        "mainAppService",
        "registerAndReturnError",
        "unregisterAndReturnError",
    };
    return calls;
}

TEST(PlatformCalls, AreAllInTheTableThatWerePromised) {
    const auto calls = documentedCalls();
    for (const std::string& promised : promisedCalls())
        EXPECT_NE(std::ranges::find(calls, promised, &PlatformCall::call), calls.end()) << promised;
}

}
}
