/// Text that other programs wrote, made fit for names, identifiers and log lines.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vireline::x11::PlainText {

/// Longest name or identifier that is kept, in bytes.
inline constexpr std::size_t maximumNameBytes = 256;

/// `bytes` as UTF-8: taken for Latin-1 when they are not valid as they are, cut before the
/// character that would pass `maximumBytes`, control characters made spaces, those around removed.
[[nodiscard]] std::string clean(std::string_view bytes,
                                std::size_t maximumBytes = maximumNameBytes);

/// Whether `clean` would leave a text of this length as it is.
[[nodiscard]] bool isClean(std::string_view text, std::size_t maximumBytes = maximumNameBytes);

/// ASCII letters in lower case; other bytes stay.
[[nodiscard]] std::string folded(std::string_view text);

/// What stands behind the last slash.
[[nodiscard]] std::string_view baseName(std::string_view path) noexcept;

}
