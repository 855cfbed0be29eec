/// Logging for what happens before the log file is known.
#pragma once

#include <string>

namespace vireline::xdg {

/// Writes to the log, or defers the line to the event loop's first turn if there is no log file
/// yet.
void logOnceStarted(const std::string& message);

}
