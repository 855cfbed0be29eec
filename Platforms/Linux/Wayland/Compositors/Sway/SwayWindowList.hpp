/// All programs' windows through sway's IPC, which reports more than the protocol for window lists,
/// such as processes. sway never minimises windows, so they are hidden in its scratchpad.
#pragma once

#include "Applications/ClientWindows/WindowList.hpp"
#include "Compositors/Sway/SwayConnection.hpp"
#include "Compositors/Sway/SwayTree.hpp"
#include "Foundation/CallbackList.hpp"
#include "Foundation/NonCopyable.hpp"

#include <sys/types.h>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace vireline::wayland {

class SwayWindowList final : public xdg::WindowList, private NonCopyable {
public:
    /// Null if sway does not answer on that socket. Windows of the process `self` are left out.
    /// Needs the application object.
    [[nodiscard]] static std::unique_ptr<SwayWindowList> open(const std::string& socket,
                                                              pid_t self);

    [[nodiscard]] const std::vector<xdg::ClientWindow>& windows() const override {
        return windows_;
    }
    [[nodiscard]] xdg::WindowID activeWindow() const override { return active_; }
    /// Always unknown: every output shows a workspace of its own, and a window has the focus only
    /// if its workspace is shown.
    [[nodiscard]] std::optional<std::uint32_t> currentDesktop() const override { return {}; }
    [[nodiscard]] Subscription observe(std::function<void()> handler) override {
        return changes_.add(std::move(handler));
    }
    [[nodiscard]] std::vector<std::string>
    titles(std::span<const xdg::WindowID> windows) const override;
    /// Always empty: sway knows no icons.
    [[nodiscard]] std::vector<xdg::WindowIcon> icons(xdg::WindowID /*window*/) const override {
        return {};
    }

    void iconify(xdg::WindowID window) override;
    void restore(xdg::WindowID window) override;
    void activate(xdg::WindowID window) override;
    void close(xdg::WindowID window) override;
    void showDesktop(std::uint32_t /*desktop*/) override {}
    void flush() override { isPlacesRead_ = false; }

private:
    SwayWindowList(std::unique_ptr<SwayConnection> connection, pid_t self, SwayTree tree);

    void handle(const SwayMessage& message);
    /// Takes over the title if that is all that the event is about; false otherwise.
    bool noteTitle(const std::string& event);
    /// Requests the tree.
    void readTree();
    void readTreeAgain();
    void take(SwayTree tree);
    void noteFocus();
    void run(const std::string& command);
    [[nodiscard]] xdg::ClientWindow describe(const SwayWindow& window) const;

    std::unique_ptr<SwayConnection> connection_;
    pid_t self_;
    SwayTree tree_;
    std::vector<xdg::ClientWindow> windows_;
    xdg::WindowID active_ = xdg::WindowID::none;
    /// When each window last had the focus, as the value of a counter.
    std::map<std::int64_t, std::uint64_t> lastActive_;
    std::uint64_t activations_ = 0;
    /// How each window was when it was last seen outside of the scratchpad.
    std::map<std::int64_t, SwayWindow> places_;
    /// Trees that have been requested and have not arrived.
    int expectedTrees_ = 0;
    /// Something has changed since the latest tree was requested.
    bool isOutdated_ = false;
    /// The tree has been requested for the places of windows that are being hidden.
    bool isPlacesRead_ = false;
    CallbackList<> changes_;
};

}
