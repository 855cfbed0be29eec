/// The words for parts of the desktop in texts for the user. They are neutral, because each Linux
/// desktop names its parts differently.
#pragma once

#include "Platform/Desktop/DesktopWords.hpp"

namespace vireline::xdg {

[[nodiscard]] DesktopWords linuxWords();

}
