/// The displays as Qt's wayland plugin reports them, with the space that panels reserve on them.
#pragma once

#include "Displays/ReservedSpace.hpp"
#include "Displays/ScreenLayout.hpp"
#include "Displays/SwayWorkspaces.hpp"
#include "Foundation/CallbackList.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Platform/Desktop/Screens.hpp"

#include <QObject>
#include <QRectF>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

class QScreen;

namespace vireline::wayland {

class WaylandConnection;

class WaylandScreens final : public Screens, private NonCopyable {
public:
    /// The connection must outlive this object. `swaySocket` is empty under other compositors.
    WaylandScreens(const WaylandConnection& connection, const std::string& swaySocket);

    [[nodiscard]] std::vector<PlatformScreen> screens() const override;
    [[nodiscard]] Subscription observeParameters(std::function<void()> handler) override;

    /// Qt's screen for the display; null if it is gone.
    [[nodiscard]] QScreen* qtScreen(std::uint32_t displayID) const;
    /// The name of the connector, such as "HDMI-A-1"; empty if there is no such display.
    [[nodiscard]] std::string nameOf(std::uint32_t displayID) const;

    /// The primary display in Qt's coordinates; empty without displays.
    [[nodiscard]] QRect primary() const;

    /// The display's top-left corner in Qt's coordinates, as of the latest `screens`.
    [[nodiscard]] QPoint cornerOf(std::uint32_t displayID) const;

    /// Converts from global coordinates to Qt's.
    [[nodiscard]] QRectF toQt(const Rect& global) const;

private:
    void watch(QScreen* screen);
    void refreshSoon();
    void refresh();
    [[nodiscard]] std::vector<OutputState> read() const;
    [[nodiscard]] Insets reservedOn(QScreen& screen) const;

    const WaylandConnection& connection_;
    /// Only under sway, since `EdgeProbe` does not work there before version 1.8.
    std::unique_ptr<SwayWorkspaces> workspaces_;
    std::map<std::string, std::unique_ptr<ReservedSpace>> reserved_;
    /// Sorted by `ScreenLayout::inOrder`, the primary display first.
    std::vector<OutputState> outputs_;
    bool refreshIsDue_ = false;
    CallbackList<> observers_;
    /// Owns Qt's connections and queued calls, which end with this object.
    QObject context_;
};

}
