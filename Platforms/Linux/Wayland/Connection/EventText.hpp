/// Text in the compositor's events.
#pragma once

#include <string_view>

namespace vireline::wayland {

/// libwayland may pass null even where the protocol demands a text.
[[nodiscard]] inline std::string_view eventText(const char* text) {
    return text == nullptr ? std::string_view{} : std::string_view{text};
}

}
