/// Messages of the startup notification protocol, and their reassembly from the chunks in which
/// they are sent.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::xdg {

struct StartupMessage {
    /// "new", "change" or "remove".
    std::string kind;
    /// Upper-case keys such as ID, NAME and APPLICATION_ID.
    std::map<std::string, std::string, std::less<>> values;

    /// Empty if there is no such key.
    [[nodiscard]] std::string value(std::string_view key) const;

    bool operator==(const StartupMessage&) const = default;
};

namespace StartupMessages {

/// Limit on a message's text; real ones have some hundred bytes.
inline constexpr std::size_t maximumBytes = 4096;

/// Bytes of text per client message.
inline constexpr std::size_t chunkBytes = 20;
using Chunk = std::array<char, chunkBytes>;

/// nullopt for a text that does not begin with a kind or has no ID.
[[nodiscard]] std::optional<StartupMessage> parse(std::string_view text);

[[nodiscard]] std::string text(const StartupMessage& message);

/// The text and its terminating zero byte, split into chunks.
[[nodiscard]] std::vector<Chunk> chunks(std::string_view text);

}

/// Reassembles messages from the chunks of several senders. Bounded: a text that is too long is
/// dropped, and so is the oldest of too many incomplete ones.
class StartupMessageAssembler {
public:
    static constexpr std::size_t maximumSenders = 16;

    /// Adds a chunk, the first of a message if `isFirst`; returns the text that it completes.
    [[nodiscard]] std::optional<std::string> take(std::uint32_t sender, bool isFirst,
                                                  const StartupMessages::Chunk& chunk);

private:
    struct Unfinished {
        std::uint32_t sender;
        std::string text;
    };

    /// Oldest first.
    std::vector<Unfinished> unfinished_;
};

}
