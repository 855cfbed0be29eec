/// The macOS platform: creates and owns all ports.
#pragma once

#include "Foundation/NonCopyable.hpp"
#include "Platform/Platform.hpp"

#include <expected>
#include <memory>

namespace vireline {

class HostPlatform : private NonCopyable {
public:
    /// An exit code. On this platform, starting never fails.
    using ExitStatus = int;

    [[nodiscard]] static std::expected<std::unique_ptr<HostPlatform>, ExitStatus> start();

    ~HostPlatform();

    [[nodiscard]] Platform ports();

private:
    struct Parts;

    explicit HostPlatform(std::unique_ptr<Parts> parts);

    std::unique_ptr<Parts> parts_;
};

}
