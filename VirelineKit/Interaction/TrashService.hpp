/// Moves dropped files to the user's Trash and knows the folders of the utility tiles.
#pragma once

#include "Foundation/FileURL.hpp"
#include "Foundation/Lifetime.hpp"
#include "Platform/Trash.hpp"
#include "Platform/UserFolders.hpp"

#include <deque>
#include <optional>
#include <vector>

namespace vireline {

/// Files are moved one after the other. Those that still wait when the service ends are not moved.
class TrashService {
public:
    TrashService(Trash& trash, const UserFolders& folders) : trash_(trash), folders_(folders) {}
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
    void moveWaiting();
    void finish(const FileURL& url, const Result<void>& outcome);

    Trash& trash_;
    const UserFolders& folders_;
    std::deque<FileURL> waiting_;
    bool isMoving_ = false;
    bool isInLoop_ = false;
    Lifetime lifetime_;
};

}
