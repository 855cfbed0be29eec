// Random events on paper: the platform's own adapters under the whole kit, from launch to quit.
#include "App/HostPlatform.hpp"
#include "App/VirelineApp.hpp"
#include "Platform/Platform.hpp"
#include "Storm/Episode.hpp"
#include "Storm/PaperWorld.hpp"
#include "Support/OtherPorts.hpp"

#include <memory>

namespace vireline::storm {
namespace {

void perform(const Episode& episode, PaperWorld& world, const Tell& tell) {
    for (const int step : episode.steps) {
        if (world.failure())
            return;
        world.perform(step);
        tell(world.story());
    }
}

}

std::optional<std::string> live(const Episode& episode, const Tell& tell) {
    PaperWorld world{episode.seed};
    paper::setScript([&] { paper::guarded("the storm", [&] { perform(episode, world, tell); }); });
    @autoreleasepool {
        const auto host = HostPlatform::start();
        const Platform platform = (*host)->ports();
        WitnessedPanels panels{platform.panelWindows};
        world.panels = &panels;
        const auto log = VirelineApp::prepareLogFile(platform.userFolders, platform.fileSystem);
        static_cast<void>(
            VirelineApp::run(test::with({.panelWindows = &panels}, platform), log.path()));
        world.panels = nullptr;
    }
    @autoreleasepool {
        paper::setPersistentApps(nil);
        paper::answerMenus(nullptr);
        paper::cancelFileDrag();
        // The paper pointer retains the view that was pressed.
        paper::loseRelease();
        paper::holdBackground(false);
        paper::drain();
    }
    world.lookForRemains();
    return world.failure();
}

std::string commandToRepeat() {
    return "script/storm --macos";
}

}
