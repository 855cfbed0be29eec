/// Keeps one dock on every display that should have one, in step with the displays, the settings
/// and the number of tiles.
#pragma once

#include "Displays/DockPanel.hpp"
#include "Foundation/Lifetime.hpp"
#include "Foundation/ScopedHandle.hpp"
#include "Settings/Settings.hpp"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <vector>

namespace vireline {

class PanelWindows;
class Screens;

class DisplayCoordinator {
public:
    /// What the settings say of all docks.
    struct DockConfig {
        DockPosition position = DockPosition::bottom;
        bool autoHide = false;
    };

    DisplayCoordinator(const DockViewContext& context, Screens& screens, PanelWindows& windows);
    DisplayCoordinator(const DisplayCoordinator&) = delete;
    DisplayCoordinator& operator=(const DisplayCoordinator&) = delete;
    DisplayCoordinator(DisplayCoordinator&&) = delete;
    DisplayCoordinator& operator=(DisplayCoordinator&&) = delete;
    ~DisplayCoordinator() = default;

    /// Reads the settings as they stand at the time of the call.
    std::function<DockConfig()> dockConfig = [] { return DockConfig{}; };

    /// Receives, after every reconcile, the bands along the bottom edges of the displays with a
    /// dock; event space.
    std::function<void(const std::vector<Rect>&)> onGuardZonesChanged;

    /// Receives the frames of all displays right before; event space.
    std::function<void(const std::vector<Rect>&)> onDisplayFramesChanged;

    /// Reconciles at once, then whenever the displays change.
    void start();

    /// Reconciles when no display has changed for half a second.
    void scheduleReconcile();

    /// Creates, moves and retires panels until they match the displays. Asked for while it is at
    /// work, it makes a further round afterwards.
    void reconcile();

private:
    using Panels = std::map<std::uint32_t, std::unique_ptr<DockPanel>>;

    void screenParametersChanged();
    void reconcileOnce();
    void closePanelsElsewhere(DockPosition position);
    [[nodiscard]] std::vector<PanelSpec> desiredPanels(std::span<const ScreenSnapshot> screens,
                                                       DockPosition position) const;
    void carryOut(const PanelPlan& plan, std::span<const PanelSpec> desired, bool autoHide);
    void create(const PanelSpec& spec, bool autoHide);
    /// Returns what follows the panel.
    Panels::iterator retire(Panels::iterator panel);
    void announceGuardZones(std::span<const ScreenSnapshot> screens) const;

    DockViewContext context_;
    Screens& screens_;
    PanelWindows& windows_;
    Panels panels_;
    /// Off their displays. Whatever led to their end may be an event of their own windows, so they
    /// live until the run loop's next turn.
    std::vector<std::unique_ptr<DockPanel>> retired_;
    Timer retirement_;
    bool isReconciling_ = false;
    bool isAnotherRoundDue_ = false;
    Timer debounce_;
    /// Screen-parameter notifications so far, for the log.
    int eventCount_ = 0;
    Subscription screenParameters_;
    Lifetime lifetime_;
};

}
