/// What the system knows of the process behind a window.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::x11 {

/// What is not known is empty.
struct ProcessFacts {
    /// Absolute, in the process's own view of the file system.
    std::string executable;
    std::vector<std::string> arguments;
    /// Set for a process inside a Flatpak sandbox.
    std::string flatpakID;
    /// Set for a process of a snap; `snapApp` is the snap's own name for the program.
    std::string snap;
    std::string snapApp;

    bool operator==(const ProcessFacts&) const = default;
};

namespace ProcessInspection {

/// Longest command line that is read, in bytes.
inline constexpr std::size_t maximumArgumentBytes = 32UL * 1024;

/// Reads /proc. All empty for 0 and for a process that is gone or another user's.
[[nodiscard]] ProcessFacts read(std::int32_t processIdentifier);

/// The arguments in the text of /proc/…/cmdline.
[[nodiscard]] std::vector<std::string> argumentsIn(std::string_view text);

/// Completes `facts` by what the text of /proc/…/cgroup says of sandboxes.
void takeControlGroup(ProcessFacts& facts, std::string_view text);

/// The ID in the text of a sandbox's /.flatpak-info; empty if there is none.
[[nodiscard]] std::string flatpakIDIn(std::string_view text);

}
}
