/// The ports that deal with files, in memory: the program's own files, watches, the user's folders
/// and the Trash.
#pragma once

#include "Foundation/CallbackList.hpp"
#include "Platform/FileEvents.hpp"
#include "Platform/FileSystem.hpp"
#include "Platform/Trash.hpp"
#include "Platform/UserFolders.hpp"

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace vireline::test {

/// What a watch reports.
inline constexpr FileEventSet contentChanged{.changed = true, .removed = false};
inline constexpr FileEventSet fileRemoved{.changed = false, .removed = true};

class FakeFileSystem final : public FileSystem {
public:
    [[nodiscard]] bool exists(const FileURL& url) const override;
    [[nodiscard]] Result<std::string> read(const FileURL& url,
                                           std::size_t maximumBytes) const override;
    Result<void> createFolder(const FileURL& url) override;
    Result<void> writeAtomically(const FileURL& url, std::string_view content) override;

    /// Puts a file there with the folders above it; no write of the program's own.
    void put(const FileURL& url, std::string content = {});
    void putFolder(const FileURL& url);
    /// Takes the file or folder away, with all that lies in it.
    void remove(const FileURL& url);

    /// Content by path.
    std::map<std::string, std::string> files;
    std::set<std::string> folders{"/"};
    /// The content of every successful write, by path, oldest first.
    std::map<std::string, std::vector<std::string>> writes;

    /// While set, such calls fail and change nothing.
    std::optional<PlatformError> readFailure;
    std::optional<PlatformError> folderFailure;
    std::optional<PlatformError> writeFailure;
};

class FakeFileEvents final : public FileEvents {
public:
    explicit FakeFileEvents(const FakeFileSystem& fileSystem) : fileSystem_(fileSystem) {}

    [[nodiscard]] Result<Subscription> watch(const FileURL& url,
                                             std::function<void(FileEventSet)> handler) override;

    /// One batch of events of the file now watched at `url`. After one with `removed` its watches
    /// follow nothing any more.
    void fire(const FileURL& url, FileEventSet events);

    /// Watches of `url` that have not been ended, also those that follow nothing any more.
    [[nodiscard]] int watchCount(const FileURL& url) const;

    /// Whether a watch of a missing file waits for it instead of failing.
    bool waitsForMissingFiles = false;
    /// The paths of all calls of `watch`, failed ones included.
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

    /// Completes the oldest move that is held.
    void complete();
    /// Completes the held move of this file.
    void completeMove(const FileURL& url);
    [[nodiscard]] int heldCount() const { return static_cast<int>(held_.size()); }

    bool holds = false;
    /// The moves that fail, by path.
    std::map<std::string, PlatformError> failures;
    /// What was asked for, and what of it reached the Trash.
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
