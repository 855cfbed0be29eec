/// The macOS platform: creates and owns all ports.
#pragma once

#include "Platform/Platform.hpp"

#include <expected>
#include <memory>

namespace vireline {

class HostPlatform {
public:
    /// An exit code. On this platform, starting never fails.
    using ExitStatus = int;

    [[nodiscard]] static std::expected<std::unique_ptr<HostPlatform>, ExitStatus> start();

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
