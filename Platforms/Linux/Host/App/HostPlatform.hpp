/// The Linux platform as the executable sees it: chooses the window system, and owns it and
/// everything that stands on it.
#pragma once

#include "Foundation/NonCopyable.hpp"
#include "Platform/Platform.hpp"

#include <expected>
#include <memory>

namespace vireline {

class HostPlatform : private NonCopyable {
public:
    /// Exit status if the program must not go on: there is no window system (a line for the user
    /// has been printed), or another instance runs and was asked to show its settings.
    using ExitStatus = int;

    struct Parts;

    [[nodiscard]] static std::expected<std::unique_ptr<HostPlatform>, ExitStatus> start();

    ~HostPlatform();

    [[nodiscard]] Platform ports();

private:
    explicit HostPlatform(std::unique_ptr<Parts> parts);

    std::unique_ptr<Parts> parts_;
};

}
