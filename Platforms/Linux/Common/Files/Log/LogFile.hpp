/// The log file, opened so that no one can redirect the program's output to another file.
#pragma once

#include <string>
#include <string_view>

namespace vireline::xdg::LogFile {

/// Appends to `path` if it is a regular file owned by this user, or creates it with mode 0600.
/// Never follows symbolic links, writes to other users' files or blocks on a pipe. Errors are
/// ignored.
void append(const std::string& path, std::string_view line);

}
