/// Messages of sway's IPC, which is i3's: a frame of six letters, the length of the text and the
/// type, both in the machine's byte order.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vireline::wayland {

enum class SwayMessageType : std::uint32_t {
    runCommand = 0,
    getWorkspaces = 1,
    subscribe = 2,
    getTree = 4,
    workspaceEvent = 0x80000000,
    windowEvent = 0x80000003,
};

struct SwayMessage {
    SwayMessageType type{};
    std::string text;

    bool operator==(const SwayMessage&) const = default;
};

namespace SwayMessages {

/// Limit on a message's text. The tree of a thousand windows has about 2 MB.
inline constexpr std::size_t maximumBytes = std::size_t{64} << 20U;

[[nodiscard]] std::string bytes(SwayMessageType type, std::string_view text);

/// Whether the reply to a command says that every part of it was carried out.
[[nodiscard]] bool reportsSuccess(std::string_view reply);

}

/// Reassembles messages from the bytes as they arrive.
class SwayMessageReader {
public:
    void add(std::string_view bytes) { buffer_.append(bytes); }

    /// The next complete message; nullopt if there is none yet, and for good once what arrives is
    /// not this protocol.
    [[nodiscard]] std::optional<SwayMessage> next();

    /// Whether what has arrived cannot be this protocol.
    [[nodiscard]] bool isBroken() const noexcept { return isBroken_; }

private:
    std::string buffer_;
    bool isBroken_ = false;
};

}
