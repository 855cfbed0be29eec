/// The log file, opened so that nobody can have the program write anywhere else.
#pragma once

#include <string>
#include <string_view>

namespace vireline::x11::LogFile {

/// Appends to the regular file of this user's at `path`; makes one that this user alone can read if
/// nothing is there. Symbolic links are never followed, other users' files never written to, pipes
/// never waited for. Failures are silent.
void append(const std::string& path, std::string_view line);

}
