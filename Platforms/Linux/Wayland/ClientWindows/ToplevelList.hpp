/// The part of the list of windows that is the same for all protocols that list them.
#pragma once

#include "Applications/ClientWindows/WindowList.hpp"
#include "Foundation/CallbackList.hpp"
#include "Foundation/NonCopyable.hpp"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vireline::wayland {

/// What a compositor says of a window.
struct ToplevelState {
    std::string appID;
    /// 0 if unknown.
    std::int32_t processIdentifier = 0;
    bool isActive = false;
    bool isMinimised = false;
    bool isDialog = false;
    bool isUrgent = false;
    /// Whether the window asks to be left out of lists of windows.
    bool isSkipped = false;
};

class ToplevelList : public xdg::WindowList, private NonCopyable {
public:
    [[nodiscard]] const std::vector<xdg::ClientWindow>& windows() const override {
        return windows_;
    }
    [[nodiscard]] xdg::WindowID activeWindow() const override { return active_; }
    /// Always unknown, so that every window counts as being on the current desktop.
    [[nodiscard]] std::optional<std::uint32_t> currentDesktop() const override { return {}; }
    [[nodiscard]] Subscription observe(std::function<void()> handler) override {
        return changes_.add(std::move(handler));
    }
    [[nodiscard]] std::vector<xdg::WindowIcon> icons(xdg::WindowID /*window*/) const override {
        return {};
    }
    void showDesktop(std::uint32_t /*desktop*/) override {}

protected:
    /// Windows with this app ID, the program's own, are left out.
    explicit ToplevelList(std::string ownAppID) : ownAppID_(std::move(ownAppID)) {}

    [[nodiscard]] xdg::WindowID nextID() { return static_cast<xdg::WindowID>(++lastID_); }

    /// Adds the window as the newest, or updates it.
    void set(xdg::WindowID id, const ToplevelState& state);
    void remove(xdg::WindowID id);
    void removeAll();

private:
    [[nodiscard]] bool isListed(const ToplevelState& state) const;
    /// Returns whether that changed something.
    bool noteActive(xdg::WindowID id, bool isActive);

    std::string ownAppID_;
    std::vector<xdg::ClientWindow> windows_;
    xdg::WindowID active_ = xdg::WindowID::none;
    std::uint64_t activations_ = 0;
    std::uint64_t lastID_ = 0;
    CallbackList<> changes_;
};

}
