/// Keeps the model up to date with what apps signal: badges, progress, and that they want the
/// user's attention.
#pragma once

#include "Foundation/Lifetime.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Foundation/ScopedHandle.hpp"
#include "Sources/Attention.hpp"

#include <map>
#include <optional>
#include <string>

namespace vireline {

class DockViewModel;
class LauncherAnnouncements;
class RunLoop;
class RunningApplications;

class TileSignals : private NonCopyable {
public:
    /// However often apps announce something, the docks change no more often than this.
    static constexpr double shortestPause = 0.016;
    /// How long a tile bobs: three times up and down.
    static constexpr double bobbingSeconds = 1.8;

    /// `announcements` is null where apps cannot announce anything.
    TileSignals(LauncherAnnouncements* announcements, RunningApplications& applications,
                RunLoop& runLoop, DockViewModel& model);

    void start();

private:
    void announced();
    void read();
    void lookForAttention();
    void bob(const std::string& app);

    LauncherAnnouncements* announcements_;
    RunningApplications& applications_;
    RunLoop& runLoop_;
    DockViewModel& model_;
    Attention::State attention_;
    std::optional<double> lastRead_;
    /// Set while a reading is due.
    Timer reading_;
    /// Set for each app that bobs.
    std::map<std::string, Timer> bobbing_;
    Subscription announced_;
    Subscription attentionChanges_;
    Subscription itemChanges_;
    Lifetime lifetime_;
};

}
