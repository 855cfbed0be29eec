/// The lines of "key=value" files with groups, as icon themes and toolkit settings are written.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vireline::x11 {

class IniText {
public:
    /// Lines that are neither a group, a key nor a comment are passed over. The first of several
    /// equal keys counts. The text must outlive this.
    explicit IniText(std::string_view text);

    /// Trimmed; nothing when there is no such key.
    [[nodiscard]] std::optional<std::string_view> value(std::string_view group,
                                                        std::string_view key) const;

    /// The items between the separators `,` or `;`, trimmed, without empty ones.
    [[nodiscard]] std::vector<std::string_view> list(std::string_view group,
                                                     std::string_view key) const;

private:
    using Keys = std::unordered_map<std::string_view, std::string_view>;

    std::unordered_map<std::string_view, Keys> groups_;
};

}
