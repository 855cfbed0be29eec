/// All that the program finds around it: the fake platform, the apps that there are, and what the
/// desktop's own dock has pinned. The world changes it; program and model both read it.
#pragma once

#include "Support/FakePlatform.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace vireline::storm {

/// One tile of the desktop's own dock, with or without what its preferences usually say of it.
struct Pin {
    enum class Kind { whole, unlabelled, unidentified, webAddress, withoutFile };

    Kind kind = Kind::whole;
    std::size_t app = 0;
};

class Surroundings {
public:
    Surroundings();

    /// Writes `pins` where the program reads them.
    void writePins();

    [[nodiscard]] bool isOnDisk(const AppRef& app) const {
        return platform.fileSystem.exists(app.url);
    }
    [[nodiscard]] bool isInCatalog(const AppRef& app) const;
    [[nodiscard]] FileURL preferences() const;

    test::FakePlatform platform;
    /// Every app that ever existed here; the first is the file manager.
    std::vector<AppRef> apps;
    std::vector<Pin> pins;
    /// One of the tiles is of a wrong type, which spoils the list.
    bool pinsAreDamaged = false;
    bool pinsAreAbsent = false;
    /// The file of the desktop's own dock.
    FileURL desktopsDock;
    /// What the program would leave behind: files that can be dropped.
    FileURL letter = FileURL::fromPath("/Users/ada/letter.txt");
    FileURL locked = FileURL::fromPath("/Users/ada/locked.txt");
};

/// The label that the desktop's own dock shows, which differs from the app's own name.
[[nodiscard]] std::string pinnedLabel(const AppRef& app);

}
