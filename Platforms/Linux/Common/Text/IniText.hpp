/// Parses "key=value" files with groups, the format of icon themes and toolkit settings.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vireline::xdg {

class IniText {
public:
    /// Lines that are neither a group, a key nor a comment are ignored. The first of several equal
    /// keys wins. The text must outlive this object.
    explicit IniText(std::string_view text);

    /// Trimmed; nullopt if there is no such key.
    [[nodiscard]] std::optional<std::string_view> value(std::string_view group,
                                                        std::string_view key) const;

    /// The value split at `,` or `;`, trimmed, without empty items.
    [[nodiscard]] std::vector<std::string_view> list(std::string_view group,
                                                     std::string_view key) const;

private:
    using Keys = std::unordered_map<std::string_view, std::string_view>;

    std::unordered_map<std::string_view, Keys> groups_;
};

}
