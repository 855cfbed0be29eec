/// Keeps one dock on every display that should have one, following changes of the displays, the
/// settings and the number of tiles.
#pragma once

#include "Displays/DockPanel.hpp"
#include "Foundation/Lifetime.hpp"
#include "Foundation/NonCopyable.hpp"
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

class DisplayCoordinator : private NonCopyable {
public:
    /// The settings that apply to all docks.
    struct DockConfig {
        DockPosition position = DockPosition::bottom;
        bool autoHide = false;
    };

    DisplayCoordinator(const DockViewContext& context, Screens& screens, PanelWindows& windows);

    /// Returns the current settings.
    std::function<DockConfig()> dockConfig = [] { return DockConfig{}; };

    /// Called after every reconcile with the bands along the bottom edges of the displays that have
    /// a dock, in event space.
    std::function<void(const std::vector<Rect>&)> onGuardZonesChanged;

    /// Called right before `onGuardZonesChanged` with the frames of all displays, in event space.
    std::function<void(const std::vector<Rect>&)> onDisplayFramesChanged;

    /// Reconciles immediately, and from then on whenever the displays change.
    void start();

    /// Reconciles once half a second has passed without another call.
    void scheduleReconcile();

    /// Creates, moves and retires panels until they match the displays. A call from within a call
    /// is carried out after the first has finished.
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
    /// Returns the iterator after the panel.
    Panels::iterator retire(Panels::iterator panel);
    void announceGuardZones(std::span<const ScreenSnapshot> screens) const;

    DockViewContext context_;
    Screens& screens_;
    PanelWindows& windows_;
    Panels panels_;
    /// Retired panels, already hidden. They are destroyed in the run loop's next turn, since the
    /// event that led to their retirement may come from one of their own windows.
    std::vector<std::unique_ptr<DockPanel>> retired_;
    Timer retirement_;
    bool isReconciling_ = false;
    bool isAnotherRoundDue_ = false;
    Timer debounce_;
    /// The number of screen-parameter notifications so far, for the log.
    int eventCount_ = 0;
    Subscription screenParameters_;
    Lifetime lifetime_;
};

}
