#include "Bridge/Attempt.hpp"

#include "App/DevLog.hpp"
#include "Bridge/Conversions.hpp"

#include <string>

namespace vireline::macos {

void reportException(const char* call, NSException* exception) {
    DevLog::write("exception in " + std::string{call} + ": " + toText(exception.name) + ": " +
                  toText(exception.reason));
}

}
