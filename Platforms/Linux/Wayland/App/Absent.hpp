/// What Wayland does not have.
#pragma once

#include "Applications/ClientWindows/WindowList.hpp"
#include "Desktop/SettingsDaemon.hpp"
#include "Platform/Desktop/PointerTap.hpp"

namespace vireline::wayland {

/// No protocol lets a program see or move the pointer outside of its own surfaces.
class NoPointerTaps final : public PointerTaps {
public:
    [[nodiscard]] bool needPermission() const override { return false; }
    [[nodiscard]] Result<std::unique_ptr<PointerTap>> create(PointerRule /*rule*/,
                                                             Disabled /*onDisabled*/) override {
        return std::unexpected{PlatformError{0, "Wayland lets no program move the pointer"}};
    }
};

/// Settings daemons serve X11 programs; Qt reads the desktop's settings itself.
class NoSettingsDaemon final : public xdg::SettingsDaemon {
public:
    [[nodiscard]] xdg::DesktopSettings read() const override { return {}; }
    [[nodiscard]] Subscription observe(std::function<void()> /*handler*/) override { return {}; }
};

/// For compositors that list no windows.
class NoWindows final : public xdg::WindowList {
public:
    [[nodiscard]] const std::vector<xdg::ClientWindow>& windows() const override {
        return windows_;
    }
    [[nodiscard]] xdg::WindowID activeWindow() const override { return xdg::WindowID::none; }
    [[nodiscard]] std::optional<std::uint32_t> currentDesktop() const override {
        return std::nullopt;
    }
    [[nodiscard]] Subscription observe(std::function<void()> /*handler*/) override { return {}; }
    [[nodiscard]] std::vector<xdg::WindowIcon> icons(xdg::WindowID /*window*/) const override {
        return {};
    }
    void iconify(xdg::WindowID /*window*/) override {}
    void restore(xdg::WindowID /*window*/) override {}
    void activate(xdg::WindowID /*window*/) override {}
    void close(xdg::WindowID /*window*/) override {}
    void showDesktop(std::uint32_t /*desktop*/) override {}
    void flush() override {}

private:
    std::vector<xdg::ClientWindow> windows_;
};

}
