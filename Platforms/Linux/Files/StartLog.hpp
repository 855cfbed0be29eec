/// Log lines of what is found before the program knows its log file.
#pragma once

#include <string>

namespace vireline::x11 {

/// Writes to the log; while that has no file yet, in the event loop's first turn instead.
void logOnceStarted(const std::string& message);

}
