/// What programs tell each other about starting programs: the texts of the startup notification
/// protocol, and their reassembly from the pieces in which they travel.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::x11 {

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

/// Longest text that is taken; real ones have some hundred bytes.
inline constexpr std::size_t maximumBytes = 4096;

/// Bytes of text in one client message.
inline constexpr std::size_t chunkBytes = 20;
using Chunk = std::array<char, chunkBytes>;

/// Nothing for a text that does not begin with a kind or names no ID.
[[nodiscard]] std::optional<StartupMessage> parse(std::string_view text);

[[nodiscard]] std::string text(const StartupMessage& message);

/// The text and the zero byte that ends it, in as many pieces as it takes.
[[nodiscard]] std::vector<Chunk> chunks(std::string_view text);

}

/// Puts texts together again from the pieces that senders send. Bounded: a text that is too long is
/// dropped, and so is the oldest of too many unfinished ones.
class StartupMessageAssembler {
public:
    static constexpr std::size_t maximumSenders = 16;

    /// Takes one piece, the first of a text if `isFirst`; returns the text that it completes.
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
