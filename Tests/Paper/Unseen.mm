#include "Unseen.hpp"

#include "Cocoa/Paper.hpp"

#include <set>

namespace vireline {
namespace {

/// Classes documented as thread-safe, or created by the runtime itself.
const std::set<std::string, std::less<>>& threadSafeClasses() {
    static const std::set<std::string, std::less<>> names{
        "NSConstantString", "NSData",        "NSDictionary",
        "NSError",          "NSFileManager", "NSNumber",
        "NSObject",         "NSString",      "NSURL",
        "PaperQueue",       "PaperCFString", "PaperShortString",
        "NSMutableArray",   "NSArray",       "PaperBlock",
        "PaperPort",        "PaperEvent",    "PaperRunLoopSource",
        "PaperThreadLoop"};
    return names;
}

}

std::vector<std::string> unseenFaults() {
    std::vector<std::string> faults = paper::escapedExceptions();
    for (const auto& [message, times] : paper::rt::unansweredMessages())
        faults.push_back("nothing answers " + message);
    for (const auto& [message, times] : paper::rt::messagesOffMainThread()) {
        if (!threadSafeClasses().contains(message.substr(0, message.find(' '))))
            faults.push_back("off the main thread: " + message);
    }
    return faults;
}

std::vector<std::string> remains() {
    std::vector<std::string> left = paper::leftovers();
    for (const auto& [name, count] : paper::rt::liveObjects()) {
        if (name.starts_with("Vireline") && count > 0)
            left.push_back(std::to_string(count) + " of " + name);
    }
    return left;
}

}
