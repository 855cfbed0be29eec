#include "ClientWindows/ToplevelList.hpp"

#include <algorithm>

namespace vireline::wayland {

void ToplevelList::set(xdg::WindowID id, const ToplevelState& state) {
    if (!isListed(state)) {
        remove(id);
        return;
    }
    auto found = std::ranges::find(windows_, id, &xdg::ClientWindow::id);
    if (found == windows_.end())
        found = windows_.insert(found, xdg::ClientWindow{});
    const xdg::ClientWindow before = *found;
    found->id = id;
    found->traits.setAppID(state.appID);
    found->processIdentifier = state.processIdentifier;
    found->isOrdinary = true;
    found->isDialog = state.isDialog;
    found->isHidden = state.isMinimised;
    found->isUrgent = state.isUrgent;
    if (state.isActive && active_ != id)
        found->lastActive = ++activations_;
    const bool isChanged = *found != before;
    if (noteActive(id, state.isActive) || isChanged)
        changes_.notify();
}

bool ToplevelList::isListed(const ToplevelState& state) const {
    return !state.isSkipped && (state.appID.empty() || state.appID != ownAppID_);
}

bool ToplevelList::noteActive(xdg::WindowID id, bool isActive) {
    if (isActive == (active_ == id))
        return false;
    active_ = isActive ? id : xdg::WindowID::none;
    return true;
}

void ToplevelList::remove(xdg::WindowID id) {
    const auto removed =
        std::erase_if(windows_, [id](const xdg::ClientWindow& window) { return window.id == id; });
    if (noteActive(id, false) || removed > 0)
        changes_.notify();
}

void ToplevelList::removeAll() {
    windows_.clear();
    active_ = xdg::WindowID::none;
    changes_.notify();
}

}
