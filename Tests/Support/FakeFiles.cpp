#include "Support/FakeFiles.hpp"

#include "Foundation/ReplacementNames.hpp"
#include "Foundation/Require.hpp"

#include <algorithm>
#include <system_error>

namespace vireline::test {
namespace {

std::unexpected<PlatformError> failure(std::errc code) {
    return std::unexpected{
        PlatformError{static_cast<int>(code), std::make_error_code(code).message()}};
}

}

bool FakeFileSystem::exists(const FileURL& url) const {
    return files.contains(url.path()) || folders.contains(url.path());
}

Result<std::string> FakeFileSystem::read(const FileURL& url, std::size_t maximumBytes) const {
    if (readFailure)
        return std::unexpected{*readFailure};
    const auto file = files.find(url.path());
    if (file == files.end())
        return failure(folders.contains(url.path()) ? std::errc::is_a_directory
                                                    : std::errc::no_such_file_or_directory);
    if (file->second.size() > maximumBytes)
        return failure(std::errc::file_too_large);
    return file->second;
}

Result<void> FakeFileSystem::createFolder(const FileURL& url) {
    if (folderFailure)
        return std::unexpected{*folderFailure};
    for (FileURL folder = url; folder.path() != "/"; folder = folder.parent()) {
        if (files.contains(folder.path()))
            return failure(std::errc::not_a_directory);
    }
    putFolder(url);
    return {};
}

Result<void> FakeFileSystem::writeAtomically(const FileURL& url, std::string_view content) {
    if (writeFailure)
        return std::unexpected{*writeFailure};
    if (!folders.contains(url.parent().path()))
        return failure(std::errc::no_such_file_or_directory);
    if (folders.contains(url.path()))
        return failure(std::errc::is_a_directory);
    std::erase_if(files, [&](const auto& file) {
        const auto other = FileURL::fromPath(file.first);
        return other.parent() == url.parent() &&
               ReplacementNames::isName(other.lastPathComponent(), url.lastPathComponent());
    });
    files[url.path()] = content;
    writes[url.path()].emplace_back(content);
    return {};
}

void FakeFileSystem::put(const FileURL& url, std::string content) {
    putFolder(url.parent());
    files[url.path()] = std::move(content);
}

void FakeFileSystem::putFolder(const FileURL& url) {
    for (FileURL folder = url; folder.path() != "/"; folder = folder.parent())
        folders.insert(folder.path());
}

void FakeFileSystem::remove(const FileURL& url) {
    const auto isGone = [&](const std::string& path) {
        return path == url.path() || path.starts_with(url.path() + "/");
    };
    std::erase_if(files, [&](const auto& file) { return isGone(file.first); });
    std::erase_if(folders, isGone);
}

Result<Subscription> FakeFileEvents::watch(const FileURL& url,
                                           std::function<void(FileEventSet)> handler) {
    attempts.push_back(url.path());
    const bool exists = fileSystem_.exists(url);
    if (!exists && !waitsForMissingFiles)
        return failure(std::errc::no_such_file_or_directory);
    auto watch = std::make_shared<Watch>(url, std::move(handler),
                                         exists ? Watch::State::attached : Watch::State::waiting);
    watches_.push_back(watch);
    return Subscription{std::move(watch)};
}

void FakeFileEvents::fire(const FileURL& url, FileEventSet events) {
    const auto watches = watches_;
    for (const auto& candidate : watches) {
        const auto watch = candidate.lock();
        if (!watch || watch->url != url)
            continue;
        if (watch->state == Watch::State::waiting && fileSystem_.exists(url))
            watch->state = Watch::State::attached;
        if (watch->state != Watch::State::attached)
            continue;
        if (events.removed)
            watch->state = Watch::State::lost;
        watch->handler(events);
    }
}

int FakeFileEvents::watchCount(const FileURL& url) const {
    return static_cast<int>(std::ranges::count_if(watches_, [&](const auto& candidate) {
        const auto watch = candidate.lock();
        return watch && watch->url == url;
    }));
}

void FakeTrash::moveToTrash(const FileURL& url, std::function<void(Result<void>)> done) {
    requests.push_back(url);
    const Move move{url, std::move(done)};
    if (holds)
        held_.push_back(move);
    else
        finish(move);
}

void FakeTrash::complete() {
    require(!held_.empty(), "a move to the Trash is held");
    const Move move = std::move(held_.front());
    held_.erase(held_.begin());
    finish(move);
}

void FakeTrash::completeMove(const FileURL& url) {
    const auto found = std::ranges::find(held_, url, &Move::url);
    require(found != held_.end(), "the move of that file is held");
    const Move move = std::move(*found);
    held_.erase(found);
    finish(move);
}

void FakeTrash::finish(const Move& move) {
    const auto failed = failures.find(move.url.path());
    if (failed != failures.end()) {
        move.done(std::unexpected{failed->second});
        return;
    }
    trashed.push_back(move.url);
    move.done({});
}

}
