/// The executable: starts the platform, prepares the log file, and passes both to the kit.

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
