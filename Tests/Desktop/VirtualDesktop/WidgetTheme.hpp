/// The part of a desktop's settings daemon that tells programs the name of its widget theme, by
/// which they are light or dark.
#pragma once

#include "VirtualDesktop/XClient.hpp"

#include <string_view>

namespace vireline::desktop {

/// Announces it for as long as this client lives, to programs that start from now on.
void announceWidgetTheme(const XClient& client, std::string_view name);

}
