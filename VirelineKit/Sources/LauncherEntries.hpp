/// Gathers what programs announce about apps. The announcements are not trusted: they are clamped,
/// and limited in number.
#pragma once

#include "Presentation/TileStatus.hpp"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>

namespace vireline {

class LauncherEntries {
public:
    /// Programs beyond these, and apps beyond these of one program, are ignored.
    static constexpr std::size_t maximumSenders = 64;
    static constexpr std::size_t maximumApps = 16;
    static constexpr std::size_t maximumNameBytes = 256;

    /// What one message says; what it does not mention stays as it is.
    struct Update {
        std::optional<std::int64_t> count = {};
        std::optional<bool> isCountVisible = {};
        std::optional<double> progress = {};
        std::optional<bool> isProgressVisible = {};
        std::optional<bool> isUrgent = {};
    };

    /// Takes a message of the program `sender` about the app with this identifier. Returns whether
    /// the program is new here, so that its end must be watched for.
    bool update(const std::string& sender, const std::string& app, const Update& update);

    /// The program has gone, and what it announced with it.
    void remove(const std::string& sender) { senders_.erase(sender); }
    void clear() { senders_.clear(); }

    /// What every app's tile should show. If several programs announce something about an app, the
    /// last one counts. Apps about which there is nothing to show are left out.
    [[nodiscard]] std::map<std::string, TileStatus> statuses() const;

private:
    struct Entry {
        std::int64_t count = 0;
        bool isCountVisible = false;
        double progress = 0;
        bool isProgressVisible = false;
        bool isUrgent = false;
        /// The number of the last message; greater is later.
        std::uint64_t turn = 0;

        [[nodiscard]] TileStatus status() const;
    };

    std::map<std::string, std::map<std::string, Entry>> senders_;
    std::uint64_t turns_ = 0;
};

}
