#include "Storm/PreferencesText.hpp"

#include <nlohmann/json.hpp>

namespace vireline::storm {
namespace {

nlohmann::json json(const Settings& settings) {
    const auto* const position = settings.position == DockPosition::bottom ? "bottom"
                                 : settings.position == DockPosition::left ? "left"
                                                                           : "right";
    auto apps = nlohmann::json::array();
    for (const StoredApp& app : settings.manualApps)
        apps.push_back({{"bundleID", app.bundleID}, {"name", app.name}, {"path", app.path}});
    return {{"schemaVersion", settings.schemaVersion},
            {"sourceMode", settings.sourceMode == SourceMode::mirror ? "mirror" : "manual"},
            {"manualApps", apps},
            {"iconSize", settings.iconSize},
            {"hideOverFullScreen", settings.hideOverFullScreen},
            {"position", position},
            {"autoHide", settings.autoHide},
            {"magnificationEnabled", settings.magnificationEnabled},
            {"magnification", settings.magnification},
            {"anchorAppleDock", settings.anchorAppleDock},
            {"openOnThisDisplay", settings.openOnThisDisplay},
            {"summonOnClick", settings.summonOnClick},
            {"fillOnDoubleClick", settings.fillOnDoubleClick},
            {"onboardingCompleted", settings.onboardingCompleted}};
}

}

std::string preferencesText(const Settings& settings) {
    return json(settings).dump(2);
}

bool says(const std::string& text, const Settings& settings) {
    return nlohmann::json::parse(text, nullptr, false) == json(settings);
}

}
