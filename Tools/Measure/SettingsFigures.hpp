/// How fast the settings window answers: how long it takes to come up the first time, and how long
/// a step of its slider takes until every dock shows it.
#pragma once

namespace vireline::desktop {

/// Measures on desktops of its own, and reports.
void measureSettings();

}
