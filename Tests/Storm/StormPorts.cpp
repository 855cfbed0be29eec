#include "Storm/StormPorts.hpp"

#include "Support/OtherPorts.hpp"

namespace vireline::storm {

std::unique_ptr<PanelWindow> StormPanelWindows::makePanel(std::uint32_t displayID,
                                                          const Rect& frame,
                                                          PanelWindowListener& listener) {
    const int incarnation = ++made_[displayID];
    const bool isTracked = tracksAll_ || (!tracksNone_ && incarnation % 2 == 0);
    auto window = std::make_unique<StormWindow>(DockID{displayID, incarnation}, listener, witness_,
                                                isTracked);
    window->frame = frame;
    return window;
}

StormPorts::StormPorts(test::FakePlatform& platform, WindowWitness& witness, bool tracksAll,
                       bool tracksNone)
    : fake_(platform)
    , panelWindows_(witness, tracksAll, tracksNone)
    , screens_(platform.screens, listeners_, witness)
    , running_(platform.running, listeners_, witness)
    , workspace_(platform.workspace, witness) {}

Platform StormPorts::ports() {
    Platform ports = test::with({.application = &application_,
                                 .dockPreferences = &dockPreferences_,
                                 .runningApplications = &running_,
                                 .workspace = &workspace_,
                                 .icons = &icons_,
                                 .screens = &screens_,
                                 .panelWindows = &panelWindows_},
                                fake_.ports());
    ports.launcherAnnouncements = &announcements_;
    return ports;
}

}
