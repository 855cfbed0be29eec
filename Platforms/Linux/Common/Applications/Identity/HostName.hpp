/// The name of this computer, by which other programs say where a window or a file is.
#pragma once

#include <string>

namespace vireline::xdg::HostName {

/// Empty if the system does not say.
[[nodiscard]] std::string read();

}
