/// Tracks the desktop's choice of icon theme while the program runs, in the settings daemon and in
/// the user's files.
#pragma once

#include "Foundation/Lifetime.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Foundation/ScopedHandle.hpp"
#include "Icons/Themes/ChosenIconTheme.hpp"
#include "Icons/Themes/IconTheme.hpp"

#include <functional>
#include <string>
#include <vector>

namespace vireline {
class RunLoop;
}

namespace vireline::xdg {

class SettingsDaemon;

class IconThemeWatch : private NonCopyable {
public:
    /// Besides the settings daemon, what the choice depends on.
    struct Sources {
        IconTheme::Folders folders;
        ChosenIconTheme::Files files;
    };

    IconThemeWatch(SettingsDaemon& daemon, RunLoop& runLoop, Sources sources);

    /// The currently chosen theme.
    [[nodiscard]] const std::string& name() const noexcept { return name_; }

    /// Called after another theme was chosen.
    std::function<void()> onChange;

private:
    void watchFiles();
    void lookSoon();
    void look();

    SettingsDaemon& daemon_;
    RunLoop& runLoop_;
    Sources sources_;
    std::string name_;
    std::vector<Subscription> fileWatches_;
    Timer look_;
    Lifetime lifetime_;
    Subscription settingsChanges_;
};

}
