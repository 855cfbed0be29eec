#include "Interaction/TrashService.hpp"

#include "App/DevLog.hpp"

#include <utility>

namespace vireline {

void TrashService::trash(const std::vector<FileURL>& urls) {
    waiting_.insert(waiting_.end(), urls.begin(), urls.end());
    moveWaiting();
}

void TrashService::moveWaiting() {
    // A platform may finish a move within the call. This loop then takes the next file, instead of
    // one more level of calls for every file of a large drop.
    if (std::exchange(isInLoop_, true))
        return;
    while (!isMoving_ && !waiting_.empty()) {
        const FileURL url = std::move(waiting_.front());
        waiting_.pop_front();
        isMoving_ = true;
        trash_.moveToTrash(url, lifetime_.guard([this, url](const Result<void>& outcome) {
            finish(url, outcome);
        }));
    }
    isInLoop_ = false;
}

void TrashService::finish(const FileURL& url, const Result<void>& outcome) {
    if (outcome)
        DevLog::write("trashed " + url.lastPathComponent());
    else
        DevLog::write("trash failed for " + url.lastPathComponent() + ": " +
                      outcome.error().description);
    isMoving_ = false;
    moveWaiting();
}

}
