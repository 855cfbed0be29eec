/// What texts for the user call things on a Linux desktop. They suit every desktop alike, since
/// none of them names its parts as another does.
#pragma once

#include "Platform/DesktopWords.hpp"

namespace vireline::x11 {

[[nodiscard]] DesktopWords linuxWords();

}
