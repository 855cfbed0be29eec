#include "Bridge/Attempt.hpp"

#include "Bridge/Conversions.hpp"
#include "Foundation/DevLog.hpp"

#include <cerrno>
#include <string>

namespace vireline::macos {

namespace {

/// Reading the exception may raise too.
std::string describe(NSException* exception) {
    @try {
        return toText(exception.name) + ": " + toText(exception.reason);
    } @catch (NSException*) {
        return "of unknown kind";
    }
}

}

void reportException(const char* call, NSException* exception) {
    DevLog::write("exception in " + std::string{call} + ": " + describe(exception));
}

PlatformError raisedError() {
    return {EIO, "the system raised an exception"};
}

}
