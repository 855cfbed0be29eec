/// What the system knows about the process behind a window.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::xdg {

/// Unknown fields are empty.
struct ProcessFacts {
    /// Absolute, as the process itself sees the file system.
    std::string executable;
    std::vector<std::string> arguments;
    /// Set for a process inside a Flatpak sandbox.
    std::string flatpakID;
    /// Set for a process of a snap; `snapApp` is the snap's own name for the app.
    std::string snap;
    std::string snapApp;

    bool operator==(const ProcessFacts&) const = default;
};

namespace ProcessInspection {

/// Longest command line that is read, in bytes.
inline constexpr std::size_t maximumArgumentBytes = 32UL * 1024;

/// Reads /proc. Everything is empty for process 0, and for processes that are gone or belong to
/// another user.
[[nodiscard]] ProcessFacts read(std::int32_t processIdentifier);

/// The arguments in the text of /proc/…/cmdline.
[[nodiscard]] std::vector<std::string> argumentsIn(std::string_view text);

/// Adds to `facts` what the text of /proc/…/cgroup says about sandboxes.
void addControlGroup(ProcessFacts& facts, std::string_view text);

/// The ID in the text of a sandbox's /.flatpak-info; empty if it has none.
[[nodiscard]] std::string flatpakIDIn(std::string_view text);

}
}
