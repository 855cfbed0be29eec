/// Moves dropped files to the user's Trash, and provides the folders of the utility tiles.
#pragma once

#include "Foundation/FileURL.hpp"
#include "Foundation/Lifetime.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Foundation/ScopedHandle.hpp"
#include "Platform/Files/Trash.hpp"
#include "Platform/Files/UserFolders.hpp"

#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vireline {

class RunLoop;

/// Files are moved one after the other. A move that hangs, for example on a server that does not
/// respond, delays only the other files of the same folder. Files that are still waiting when the
/// service is destroyed are not moved.
class TrashService : private NonCopyable {
public:
    /// Seconds after which a move counts as hanging, and files of other folders no longer wait for
    /// it.
    static constexpr double hangTimeout = 2;
    /// The maximum number of hanging moves, each of which occupies one of the platform's threads.
    /// Once it is reached, all files wait.
    static constexpr std::size_t maximumHanging = 8;

    TrashService(Trash& trash, const UserFolders& folders, RunLoop& runLoop)
        : trash_(trash), folders_(folders), runLoop_(runLoop) {}

    /// nullopt if there is none.
    [[nodiscard]] std::optional<FileURL> trashURL() const { return folders_.trash(); }
    [[nodiscard]] std::optional<FileURL> downloadsURL() const { return folders_.downloads(); }

    /// Moves the files in order, after those that are still waiting, and logs the outcome of each.
    /// A failure does not stop the rest.
    void trash(const std::vector<FileURL>& urls);

private:
    using Files = std::deque<FileURL>;

    void moveWaiting();
    void begin(const FileURL& url);
    void treatAsHanging(const FileURL& url);
    void finish(const FileURL& url, std::uint64_t move, const Result<void>& outcome);

    Trash& trash_;
    const UserFolders& folders_;
    RunLoop& runLoop_;
    Files waiting_;
    std::uint64_t lastMove_ = 0;
    /// The move that all waiting files wait for.
    std::optional<std::uint64_t> current_;
    Timer hangTimer_;
    /// Folders with a hanging move, and the files of the same folder that wait for it.
    std::map<std::string, Files> hanging_;
    bool isInLoop_ = false;
    Lifetime lifetime_;
};

}
