/// Measures the settings window: the time until it first appears, and the time from a step of its
/// slider until every dock has followed.
#pragma once

namespace vireline::desktop {

/// Uses separate desktops; prints the figures.
void measureSettings();

}
