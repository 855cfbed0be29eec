/// In-memory fakes of the ports for files: the program's own files, watches, the user's folders and
/// the Trash.
#pragma once

#include "Foundation/CallbackList.hpp"
#include "Platform/Files/FileEvents.hpp"
#include "Platform/Files/FileSystem.hpp"
#include "Platform/Files/Trash.hpp"
#include "Platform/Files/UserFolders.hpp"

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace vireline::test {

/// A report of changed content.
inline constexpr FileEventSet contentChanged{.changed = true, .removed = false};
inline constexpr FileEventSet fileRemoved{.changed = false, .removed = true};

class FakeFileSystem final : public FileSystem {
public:
    [[nodiscard]] bool exists(const FileURL& url) const override;
    [[nodiscard]] Result<std::string> read(const FileURL& url,
                                           std::size_t maximumBytes) const override;
    Result<void> createFolder(const FileURL& url) override;
    Result<void> writeAtomically(const FileURL& url, std::string_view content) override;

    /// Creates a file and its parent folders; does not count as a write of the program.
    void put(const FileURL& url, std::string content = {});
    void putFolder(const FileURL& url);
    /// Deletes the file or folder recursively.
    void remove(const FileURL& url);

    /// Content by path.
    std::map<std::string, std::string> files;
    std::set<std::string> folders{"/"};
    /// The content of all successful writes, by path, oldest first.
    std::map<std::string, std::vector<std::string>> writes;

    /// While set, these calls fail and change nothing.
    std::optional<PlatformError> readFailure;
    std::optional<PlatformError> folderFailure;
    std::optional<PlatformError> writeFailure;
};

class FakeFileEvents final : public FileEvents {
public:
    explicit FakeFileEvents(const FakeFileSystem& fileSystem) : fileSystem_(fileSystem) {}

    [[nodiscard]] Result<Subscription> watch(const FileURL& url,
                                             std::function<void(FileEventSet)> handler) override;

    /// Reports a batch of events for the file at `url`. After `removed` its watches report nothing
    /// more.
    void fire(const FileURL& url, FileEventSet events);

    /// Number of active subscriptions for `url`, including those that report nothing more.
    [[nodiscard]] int watchCount(const FileURL& url) const;

    /// Whether a watch on a missing file waits for it instead of failing.
    bool waitsForMissingFiles = false;
    /// The paths of all calls of `watch`, including failed ones.
    std::vector<std::string> attempts;

private:
    struct Watch {
        FileURL url;
        std::function<void(FileEventSet)> handler;
        enum class State { waiting, attached, lost } state;
    };

    const FakeFileSystem& fileSystem_;
    std::vector<std::weak_ptr<Watch>> watches_;
};

class FakeUserFolders final : public UserFolders {
public:
    [[nodiscard]] FileURL home() const override { return homeFolder; }
    [[nodiscard]] std::vector<FileURL> applicationSupport() const override {
        return applicationSupportFolders;
    }
    [[nodiscard]] std::optional<FileURL> downloads() const override { return downloadsFolder; }
    [[nodiscard]] std::optional<FileURL> trash() const override { return trashFolder; }

    FileURL homeFolder = FileURL::fromPath("/Users/ada");
    std::vector<FileURL> applicationSupportFolders{
        FileURL::fromPath("/Users/ada/Library/Application Support")};
    std::optional<FileURL> downloadsFolder = FileURL::fromPath("/Users/ada/Downloads");
    std::optional<FileURL> trashFolder = FileURL::fromPath("/Users/ada/.Trash");
};

class FakeTrash final : public Trash {
public:
    /// Completes within the call, or later through `complete` while `holds` is set.
    void moveToTrash(const FileURL& url, std::function<void(Result<void>)> done) override;

    /// Completes the oldest held move.
    void complete();
    /// Completes the held move of this file.
    void completeMove(const FileURL& url);
    [[nodiscard]] int heldCount() const { return static_cast<int>(held_.size()); }

    bool holds = false;
    /// Moves that fail, by path.
    std::map<std::string, PlatformError> failures;
    /// The requested moves, and those that succeeded.
    std::vector<FileURL> requests;
    std::vector<FileURL> trashed;

private:
    struct Move {
        FileURL url;
        std::function<void(Result<void>)> done;
    };

    void finish(const Move& move);

    std::vector<Move> held_;
};

}
