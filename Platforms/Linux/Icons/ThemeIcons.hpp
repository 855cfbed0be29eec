/// The pictures of applications and folders: from the icon theme, from files that desktop entries
/// name, from the apps' own windows, and drawn ones where there is none.
#pragma once

#include "Foundation/CallbackList.hpp"
#include "Icons/IconTheme.hpp"
#include "Platform/Icons.hpp"

#include <QImage>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vireline::x11 {

class DesktopEntryCatalog;
class WindowIconSource;

class ThemeIcons final : public Icons {
public:
    ThemeIcons(const DesktopEntryCatalog& catalog, const WindowIconSource& windows,
               std::shared_ptr<const IconTheme> theme);
    ThemeIcons(const ThemeIcons&) = delete;
    ThemeIcons& operator=(const ThemeIcons&) = delete;
    ThemeIcons(ThemeIcons&&) = delete;
    ThemeIcons& operator=(ThemeIcons&&) = delete;
    ~ThemeIcons() override = default;

    [[nodiscard]] ImageHandle iconForFile(const std::string& path, const std::string& key,
                                          Size size) override;
    /// Known is "NSTrashEmpty".
    [[nodiscard]] ImageHandle namedImage(const std::string& name, Size size) override;
    /// Known is "trash.fill".
    [[nodiscard]] ImageHandle symbol(const std::string& name,
                                     const std::string& accessibilityDescription,
                                     Size size) override;
    [[nodiscard]] Subscription observeChanges(std::function<void()> handler) override {
        return changes_.add(std::move(handler));
    }

    /// Whether a desktop entry's icon leads to a picture.
    [[nodiscard]] bool has(const std::string& icon) const;

    /// Takes all icons from another theme from now on, and announces it.
    void setTheme(std::shared_ptr<const IconTheme> theme);

private:
    /// A desktop entry's icon: a name in the theme or an absolute path. Null when it leads nowhere.
    [[nodiscard]] ImageHandle declaredIcon(const std::string& icon, Size size) const;
    [[nodiscard]] ImageHandle windowIcon(const std::string& bundleID, Size size) const;
    /// Of the first name that the theme has; null if it has none.
    [[nodiscard]] ImageHandle themeIcon(const std::vector<std::string>& names, Size size) const;
    [[nodiscard]] ImageHandle genericIcon(Size size) const;

    const DesktopEntryCatalog& catalog_;
    const WindowIconSource& windows_;
    /// Shared with the images, which ask it whenever they are needed at a new size.
    std::shared_ptr<const IconTheme> theme_;
    CallbackList<> changes_;
};

}
