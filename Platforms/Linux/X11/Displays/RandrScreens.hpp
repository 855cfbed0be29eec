/// The X server's displays: RandR's monitors with Qt's scale factors, minus the space that other
/// programs' panels reserve. Cached, and refreshed by events.
#pragma once

#include "Displays/DisplayGeometry.hpp"
#include "Displays/Monitors.hpp"
#include "Displays/StrutWindows.hpp"
#include "Foundation/CallbackList.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Platform/Desktop/Screens.hpp"
#include "Session/SleepWatch.hpp"

#include <QObject>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

class QScreen;

namespace vireline::x11 {

class X11Connection;

class RandrScreens final : public Screens, private NonCopyable {
public:
    explicit RandrScreens(X11Connection& connection);

    /// Returns the cached snapshot without a round trip.
    [[nodiscard]] std::vector<PlatformScreen> screens() const override;
    [[nodiscard]] Subscription observeParameters(std::function<void()> handler) override;

    /// The current geometry of the display with this ID; nullopt if it is gone.
    [[nodiscard]] std::optional<Display> display(std::uint32_t displayID) const;

    /// The current geometry of all displays, in the order of `screens`.
    [[nodiscard]] const std::vector<Display>& displays() const noexcept {
        return snapshot_.displays;
    }

    /// The X server's name for the display with this ID, such as "HDMI-1"; unique among displays.
    [[nodiscard]] const std::string& nameOf(std::uint32_t displayID) const;

    /// Qt's screen for that display; null if Qt has none of this name.
    [[nodiscard]] QScreen* qtScreen(std::uint32_t displayID) const;

private:
    struct Snapshot {
        std::vector<PlatformScreen> screens;
        /// In the same order.
        std::vector<Display> displays;

        bool operator==(const Snapshot&) const = default;
    };

    [[nodiscard]] Snapshot read();
    void watchQtScreens();
    void watchScale(QScreen* screen);
    void handle(const xcb_generic_event_t& event);
    [[nodiscard]] bool isScreenReconfigured(const xcb_generic_event_t& event) const;
    void refreshSoon(bool announce);
    void refresh();

    X11Connection& connection_;
    bool monitorsAreListed_ = false;
    std::uint8_t firstRandrEvent_ = 0;
    mutable std::map<xcb_atom_t, std::string> names_;
    StrutWindows strutWindows_;
    Snapshot snapshot_;
    bool refreshIsDue_ = false;
    bool announcementIsDue_ = false;
    CallbackList<> observers_;
    Subscription events_;
    xdg::SleepWatch sleepWatch_;
    /// Owns Qt's connections and queued calls, which end with this object.
    QObject context_;
};

}
