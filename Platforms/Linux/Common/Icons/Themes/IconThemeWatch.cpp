#include "Icons/Themes/IconThemeWatch.hpp"

#include "Desktop/SettingsDaemon.hpp"
#include "Files/Watching/PathFollower.hpp"
#include "Platform/RunLoop.hpp"

#include <utility>

namespace vireline::xdg {
namespace {

/// Debounce time: a desktop writes its choice to several places in quick succession.
constexpr double themeSettlingSeconds = 0.2;

}

IconThemeWatch::IconThemeWatch(SettingsDaemon& daemon, RunLoop& runLoop, Sources sources)
    : daemon_(daemon)
    , runLoop_(runLoop)
    , sources_(std::move(sources))
    , settingsChanges_(daemon.observe(lifetime_.guard([this] { lookSoon(); }))) {
    watchFiles();
    name_ = ChosenIconTheme::name(sources_.folders, daemon_.read().texts, sources_.files);
}

void IconThemeWatch::watchFiles() {
    for (const std::string& path : sources_.files.usersOwn) {
        auto watch = followPath(FileURL::fromPath(path),
                                lifetime_.guard([this](PathEvents) { lookSoon(); }));
        if (watch)
            fileWatches_.push_back(*std::move(watch));
    }
}

void IconThemeWatch::lookSoon() {
    look_ = runLoop_.after(themeSettlingSeconds, lifetime_.guard([this] { look(); }));
}

void IconThemeWatch::look() {
    auto name = ChosenIconTheme::name(sources_.folders, daemon_.read().texts, sources_.files);
    if (name == name_)
        return;
    name_ = std::move(name);
    if (onChange)
        onChange();
}

}
