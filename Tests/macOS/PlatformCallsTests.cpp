/// Keeps the table of calls in docs/macos.md true.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
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

bool isWordCharacter(char character) {
    return std::isalnum(static_cast<unsigned char>(character)) != 0 || character == '_';
}

/// Whether `word` stands in `text` as a word of its own.
bool names(std::string_view text, std::string_view word) {
    for (auto at = text.find(word); at != text.npos; at = text.find(word, at + 1)) {
        const auto behind = at + word.size();
        if ((at == 0 || !isWordCharacter(text.at(at - 1))) &&
            (behind == text.size() || !isWordCharacter(text.at(behind))))
            return true;
    }
    return false;
}

TEST(PlatformCalls, StandInTheFilesAndFunctionsThatTheTableNames) {
    const auto calls = documentedCalls();
    ASSERT_FALSE(calls.empty());
    for (const auto& [call, file, function] : calls) {
        const std::string source = contentOf(sourceFolder() / "Platforms/macOS" / file);
        EXPECT_FALSE(source.empty()) << file << " is missing";
        EXPECT_TRUE(names(source, call)) << file << " does not name " << call;
        EXPECT_TRUE(names(source, function)) << file << " has no " << function;
    }
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
        "propertyListWithData",
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
