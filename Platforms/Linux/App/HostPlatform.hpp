/// The Linux platform as the executable sees it: all ports, made in the right order and owned in
/// one place.
#pragma once

#include "Platform/Platform.hpp"
#include "X11/XServer.hpp"

#include <expected>
#include <memory>

namespace vireline {

class HostPlatform {
public:
    /// The exit code that the process ends with at once, after a line for the user: there is no X
    /// server, or another instance runs and was asked to show its settings.
    using Ended = int;

    [[nodiscard]] static std::expected<std::unique_ptr<HostPlatform>, Ended> start();

    HostPlatform(const HostPlatform&) = delete;
    HostPlatform& operator=(const HostPlatform&) = delete;
    HostPlatform(HostPlatform&&) = delete;
    HostPlatform& operator=(HostPlatform&&) = delete;
    ~HostPlatform();

    [[nodiscard]] Platform ports();

private:
    struct Parts;

    explicit HostPlatform(std::unique_ptr<Parts> parts);

    std::unique_ptr<Parts> parts_;
};

}
