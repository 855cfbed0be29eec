#include "Files/Watching/InotifyFileEvents.hpp"

#include "Files/Watching/PathFollower.hpp"

namespace vireline::xdg {

Result<Subscription> InotifyFileEvents::watch(const FileURL& url,
                                              std::function<void(FileEventSet)> handler) {
    return followPath(url,
                      [handler = std::move(handler), ended = false](PathEvents events) mutable {
                          if (ended || !(events.changed || events.removed))
                              return;
                          ended = events.removed;
                          handler({.changed = events.changed, .removed = events.removed});
                      });
}

}
