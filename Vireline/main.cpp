/// The executable: starts the platform, fixes where the log goes, hands both to the kit and runs.

#include "App/HostPlatform.hpp"
#include "App/VirelineApp.hpp"
#include "Platform/Platform.hpp"

int main() {
    const auto host = vireline::HostPlatform::start();
    if (!host)
        return host.error();
    const vireline::Platform platform = (*host)->ports();
    const auto log =
        vireline::VirelineApp::prepareLogFile(platform.userFolders, platform.fileSystem);
    return vireline::VirelineApp::run(platform, log.path());
}
