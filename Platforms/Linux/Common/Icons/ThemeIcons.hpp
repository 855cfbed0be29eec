/// The icons of applications and folders: from the icon theme, from files named in desktop entries,
/// from the apps' own windows, or drawn as a last resort.
#pragma once

#include "Foundation/CallbackList.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Icons/Themes/IconTheme.hpp"
#include "Platform/Applications/Icons.hpp"

#include <QImage>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vireline::xdg {

class DesktopEntryCatalog;
class WindowIconSource;

class ThemeIcons final : public Icons, private NonCopyable {
public:
    ThemeIcons(const DesktopEntryCatalog& catalog, const WindowIconSource& windows,
               std::shared_ptr<const IconTheme> theme);

    [[nodiscard]] ImageHandle iconForFile(const std::string& path, const std::string& key,
                                          Size size) override;
    /// Supports "NSTrashEmpty".
    [[nodiscard]] ImageHandle namedImage(const std::string& name, Size size) override;
    /// Supports "trash.fill".
    [[nodiscard]] ImageHandle symbol(const std::string& name,
                                     const std::string& accessibilityDescription,
                                     Size size) override;
    [[nodiscard]] ImageHandle actionIcon(const std::string& name, Size size) override {
        return declaredIcon(name, size);
    }
    [[nodiscard]] Subscription observeChanges(std::function<void()> handler) override {
        return changes_.add(std::move(handler));
    }

    /// Whether the icon named in a desktop entry can be found.
    [[nodiscard]] bool has(const std::string& icon) const;

    /// Switches all icons to another theme and notifies observers.
    void setTheme(std::shared_ptr<const IconTheme> theme);

private:
    /// A desktop entry's icon, given as a theme name or an absolute path. Null if it cannot be
    /// found.
    [[nodiscard]] ImageHandle declaredIcon(const std::string& icon, Size size) const;
    [[nodiscard]] ImageHandle windowIcon(const std::string& bundleID, Size size) const;
    /// The icon for the first of these names that the theme has; null if it has none.
    [[nodiscard]] ImageHandle themeIcon(const std::vector<std::string>& names, Size size) const;
    [[nodiscard]] ImageHandle genericIcon(Size size) const;

    const DesktopEntryCatalog& catalog_;
    const WindowIconSource& windows_;
    /// Shared with the images, which use it to render further sizes.
    std::shared_ptr<const IconTheme> theme_;
    CallbackList<> changes_;
};

}
