/// Sanitises text from other programs for use in names, identifiers and log lines.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vireline::xdg::PlainText {

/// Maximum length of a name or identifier, in bytes.
inline constexpr std::size_t maximumNameBytes = 256;

/// `bytes` as valid UTF-8: decoded as Latin-1 if they are not valid UTF-8, truncated to
/// `maximumBytes` at a character boundary, with control characters replaced by spaces, and trimmed.
[[nodiscard]] std::string clean(std::string_view bytes,
                                std::size_t maximumBytes = maximumNameBytes);

/// Whether `clean` would return the text unchanged.
[[nodiscard]] bool isClean(std::string_view text, std::size_t maximumBytes = maximumNameBytes);

/// Lower-cases ASCII letters; other bytes are kept.
[[nodiscard]] std::string folded(std::string_view text);

/// The part after the last slash.
[[nodiscard]] std::string_view baseName(std::string_view path) noexcept;

}
