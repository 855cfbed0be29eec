/// The program's environment: the fake platform, the existing apps, and the apps pinned in the
/// desktop's own dock. The world changes it; the program and the model both read it.
#pragma once

#include "Support/FakePlatform.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace vireline::storm {

/// A tile of the desktop's own dock, with or without the optional fields.
struct Pin {
    enum class Kind { whole, unlabelled, unidentified, webAddress, withoutFile };

    Kind kind = Kind::whole;
    std::size_t app = 0;
};

class Surroundings {
public:
    Surroundings();

    /// Writes `pins` to where the program reads them.
    void writePins();

    [[nodiscard]] bool isOnDisk(const AppRef& app) const {
        return platform.fileSystem.exists(app.url);
    }
    [[nodiscard]] bool isInCatalog(const AppRef& app) const;
    [[nodiscard]] FileURL preferences() const;

    test::FakePlatform platform;
    /// Every app that has ever existed here; the first is the file manager.
    std::vector<AppRef> apps;
    std::vector<Pin> pins;
    /// A tile has a wrong type, which makes the whole list unreadable.
    bool pinsAreDamaged = false;
    bool pinsAreAbsent = false;
    /// The preferences file of the desktop's own dock.
    FileURL desktopsDock;
    /// A file that can be dropped, and that the program must not change.
    FileURL letter = FileURL::fromPath("/Users/ada/letter.txt");
    FileURL locked = FileURL::fromPath("/Users/ada/locked.txt");
};

/// The label in the desktop's own dock, which differs from the app's name.
[[nodiscard]] std::string pinnedLabel(const AppRef& app);

}
