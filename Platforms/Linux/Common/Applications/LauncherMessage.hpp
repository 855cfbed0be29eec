/// Reads the parameters of a `com.canonical.Unity.LauncherEntry.Update` signal.
#pragma once

#include "Sources/LauncherEntries.hpp"

#include <gio/gio.h>

#include <optional>
#include <string>

namespace vireline::xdg {

struct LauncherMessage {
    /// A desktop-file ID without ".desktop".
    std::string app;
    LauncherEntries::Update update;

    /// nullopt for parameters of another type, without the identifier of an app, or too long.
    /// Properties of unexpected types are ignored.
    [[nodiscard]] static std::optional<LauncherMessage> parse(GVariant* parameters);
};

}
