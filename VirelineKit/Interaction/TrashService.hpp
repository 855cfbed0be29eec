/// Moves dropped files to the user's Trash and knows the folders of the utility tiles.
#pragma once

#include "Foundation/FileURL.hpp"
#include "Foundation/Lifetime.hpp"
#include "Foundation/ScopedHandle.hpp"
#include "Platform/Trash.hpp"
#include "Platform/UserFolders.hpp"

#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vireline {

class RunLoop;

/// Files are moved one after the other. A move that takes long, as on a server that does not
/// answer, holds up the rest of its own folder alone. Files that still wait when the service ends
/// are not moved.
class TrashService {
public:
    /// Seconds until the files behind a move no longer wait for it.
    static constexpr double patience = 2;
    /// Moves that take long at a time: each keeps one of the platform's threads. Then all wait.
    static constexpr std::size_t maximumHanging = 8;

    TrashService(Trash& trash, const UserFolders& folders, RunLoop& runLoop)
        : trash_(trash), folders_(folders), runLoop_(runLoop) {}
    TrashService(const TrashService&) = delete;
    TrashService& operator=(const TrashService&) = delete;
    TrashService(TrashService&&) = delete;
    TrashService& operator=(TrashService&&) = delete;
    ~TrashService() = default;

    /// Nothing when there is none.
    [[nodiscard]] std::optional<FileURL> trashURL() const { return folders_.trash(); }
    [[nodiscard]] std::optional<FileURL> downloadsURL() const { return folders_.downloads(); }

    /// Moves the files in their order, behind those that still wait, and logs the outcome of each.
    /// A failure does not stop the rest.
    void trash(const std::vector<FileURL>& urls);

private:
    using Files = std::deque<FileURL>;

    void moveWaiting();
    void begin(const FileURL& url);
    void setAside(const FileURL& url);
    void finish(const FileURL& url, std::uint64_t move, const Result<void>& outcome);

    Trash& trash_;
    const UserFolders& folders_;
    RunLoop& runLoop_;
    Files waiting_;
    std::uint64_t lastMove_ = 0;
    /// The move that the others wait for.
    std::optional<std::uint64_t> current_;
    Timer patienceEnds_;
    /// The folders where a move hangs, and what waits for it there.
    std::map<std::string, Files> hanging_;
    bool isInLoop_ = false;
    Lifetime lifetime_;
};

}
