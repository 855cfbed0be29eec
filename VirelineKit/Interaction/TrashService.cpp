#include "Interaction/TrashService.hpp"

#include "Foundation/DevLog.hpp"
#include "Platform/RunLoop.hpp"

#include <utility>

namespace vireline {
namespace {

std::string folderOf(const FileURL& url) {
    return url.parent().path();
}

}

void TrashService::trash(const std::vector<FileURL>& urls) {
    waiting_.insert(waiting_.end(), urls.begin(), urls.end());
    moveWaiting();
}

void TrashService::moveWaiting() {
    // A platform may finish a move within the call, which leads back here. The loop then takes the
    // next file, so that a large drop does not recurse once per file.
    if (std::exchange(isInLoop_, true))
        return;
    while (!current_ && !waiting_.empty() && hanging_.size() < maximumHanging) {
        FileURL url = std::move(waiting_.front());
        waiting_.pop_front();
        if (const auto hanging = hanging_.find(folderOf(url)); hanging != hanging_.end()) {
            hanging->second.push_back(std::move(url));
        } else {
            begin(url);
        }
    }
    isInLoop_ = false;
}

void TrashService::begin(const FileURL& url) {
    const std::uint64_t move = ++lastMove_;
    current_ = move;
    hangTimer_ = runLoop_.after(hangTimeout, lifetime_.guard([this, url] { treatAsHanging(url); }));
    trash_.moveToTrash(url, lifetime_.guard([this, url, move](const Result<void>& outcome) {
        finish(url, move, outcome);
    }));
}

void TrashService::treatAsHanging(const FileURL& url) {
    current_.reset();
    hanging_.try_emplace(folderOf(url));
    moveWaiting();
}

void TrashService::finish(const FileURL& url, std::uint64_t move, const Result<void>& outcome) {
    if (outcome)
        DevLog::write("trashed " + url.lastPathComponent());
    else
        DevLog::write("trash failed for " + url.lastPathComponent() + ": " +
                      outcome.error().description);
    if (current_ == move) {
        current_.reset();
        hangTimer_.reset();
    } else if (auto folder = hanging_.extract(folderOf(url))) {
        Files& held = folder.mapped();
        waiting_.insert(waiting_.begin(), std::make_move_iterator(held.begin()),
                        std::make_move_iterator(held.end()));
    }
    moveWaiting();
}

}
