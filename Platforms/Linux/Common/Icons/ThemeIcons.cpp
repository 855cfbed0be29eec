#include "Icons/ThemeIcons.hpp"

#include "Applications/ClientWindows/WindowIconSource.hpp"
#include "Applications/DesktopEntryCatalog.hpp"
#include "Files/Log/StartLog.hpp"
#include "Icons/DrawnIcons.hpp"
#include "Icons/IconImage.hpp"
#include "Icons/ImageFile.hpp"
#include "Text/PlainText.hpp"

#include <glib.h>

#include <QImageReader>
#include <algorithm>
#include <array>
#include <filesystem>
#include <utility>

namespace vireline::xdg {
namespace {

/// The size used to check whether the theme has an icon at all.
constexpr int probeSide = 48;
constexpr int maximumDecodedMegabytes = 96;
/// Larger window icons are not kept, because nothing draws icons that large.
constexpr std::uint32_t maximumWindowIconSide = 512;

using IconNames = std::vector<std::string>;

QImage genericPicture(const IconTheme& theme, int side) {
    for (const char* name : {"application-x-executable", "application-default-icon"}) {
        const auto path = theme.find(name, side);
        if (!path)
            continue;
        if (auto picture = ImageFile::load(*path, side))
            return *std::move(picture);
    }
    return DrawnIcons::application(side);
}

/// The picture in the file; the generic one if it is damaged or too large.
QImage pictureIn(const std::string& path, const IconTheme& theme, int side) {
    if (auto picture = ImageFile::load(path, side))
        return *std::move(picture);
    logOnceStarted("ignored icon: " + PlainText::clean(path, 4096));
    return genericPicture(theme, side);
}

/// Some entries add a file extension to a theme icon's name, against the format's rules.
IconNames themeNames(const std::string& icon) {
    for (const char* extension : {".png", ".svg", ".xpm"}) {
        if (icon.ends_with(extension))
            return {icon, icon.substr(0, icon.size() - 4)};
    }
    return {icon};
}

/// The smallest image that is large enough, otherwise the largest; `pictures` must be in ascending
/// order.
QImage bestOf(const std::vector<QImage>& pictures, int side) {
    const auto enough = std::ranges::find_if(pictures, [side](const QImage& picture) {
        return std::max(picture.width(), picture.height()) >= side;
    });
    return enough == pictures.end() ? pictures.back() : *enough;
}

std::optional<QImage> picture(const WindowIcon& icon) {
    const std::size_t count = std::size_t{icon.width} * icon.height;
    if (icon.width == 0 || icon.height == 0 || icon.width > maximumWindowIconSide ||
        icon.height > maximumWindowIconSide || icon.pixels.size() < count)
        return std::nullopt;
    const QImage wrapped{reinterpret_cast<const uchar*>(icon.pixels.data()),
                         static_cast<int>(icon.width), static_cast<int>(icon.height),
                         QImage::Format_ARGB32};
    return wrapped.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

/// Icon names for a folder: the one for its purpose before the generic one.
IconNames folderIcons(const std::string& path) {
    struct Purpose {
        GUserDirectory directory;
        const char* icon;
    };
    static constexpr std::array purposes{
        Purpose{G_USER_DIRECTORY_DOWNLOAD, "folder-download"},
        Purpose{G_USER_DIRECTORY_DOCUMENTS, "folder-documents"},
        Purpose{G_USER_DIRECTORY_MUSIC, "folder-music"},
        Purpose{G_USER_DIRECTORY_PICTURES, "folder-pictures"},
        Purpose{G_USER_DIRECTORY_VIDEOS, "folder-videos"},
        Purpose{G_USER_DIRECTORY_DESKTOP, "user-desktop"},
    };
    const std::string home = g_get_home_dir();
    if (path == home)
        return {"user-home", "folder"};
    for (const Purpose& purpose : purposes) {
        const char* const folder = g_get_user_special_dir(purpose.directory);
        if (folder != nullptr && path == folder)
            return {purpose.icon, "folder"};
    }
    if (path == home + "/Downloads")
        return {"folder-download", "folder"};
    return {"folder"};
}

}

ThemeIcons::ThemeIcons(const DesktopEntryCatalog& catalog, const WindowIconSource& windows,
                       std::shared_ptr<const IconTheme> theme)
    : catalog_(catalog), windows_(windows), theme_(std::move(theme)) {
    // Also limits images embedded in drawings, which Qt decodes on its own.
    QImageReader::setAllocationLimit(maximumDecodedMegabytes);
}

ImageHandle ThemeIcons::iconForFile(const std::string& path, const std::string& key, Size size) {
    const DesktopEntryIndex& index = catalog_.index();
    const IndexedEntry* indexed = index.findPath(path);
    if (indexed == nullptr)
        indexed = index.find(key);

    ImageHandle image;
    if (indexed != nullptr) {
        image = declaredIcon(indexed->entry.icon, size);
    } else if (path.ends_with(DesktopEntries::extension)) {
        if (const auto elsewhere = catalog_.entryAt(FileURL::fromPath(path)))
            image = declaredIcon(elsewhere->icon, size);
    }
    if (!image)
        image = windowIcon(key, size);
    std::error_code error;
    if (!image && std::filesystem::is_directory(path, error))
        image = themeIcon(folderIcons(path), size);
    return image ? image : genericIcon(size);
}

ImageHandle ThemeIcons::namedImage(const std::string& name, Size size) {
    return name == "NSTrashEmpty" ? themeIcon({"user-trash", "emptytrash"}, size) : nullptr;
}

ImageHandle ThemeIcons::symbol(const std::string& name,
                               const std::string& /*accessibilityDescription*/, Size size) {
    return name == "trash.fill" ? std::make_shared<IconImage>(size, DrawnIcons::trash) : nullptr;
}

bool ThemeIcons::has(const std::string& icon) const {
    return declaredIcon(icon, {1, 1}) != nullptr;
}

void ThemeIcons::setTheme(std::shared_ptr<const IconTheme> theme) {
    theme_ = std::move(theme);
    changes_.notify();
}

ImageHandle ThemeIcons::declaredIcon(const std::string& icon, Size size) const {
    if (!icon.starts_with('/'))
        return themeIcon(themeNames(icon), size);
    std::error_code error;
    if (!std::filesystem::is_regular_file(icon, error))
        return nullptr;
    return std::make_shared<IconImage>(
        size, [icon, theme = theme_](int side) { return pictureIn(icon, *theme, side); });
}

ImageHandle ThemeIcons::windowIcon(const std::string& bundleID, Size size) const {
    std::vector<QImage> pictures;
    for (const WindowIcon& icon : windows_.windowIcons(bundleID)) {
        if (auto found = picture(icon))
            pictures.push_back(*std::move(found));
    }
    if (pictures.empty())
        return nullptr;
    return std::make_shared<IconImage>(size, [pictures = std::move(pictures)](int side) {
        return ImageFile::fitted(bestOf(pictures, side), side);
    });
}

ImageHandle ThemeIcons::themeIcon(const IconNames& names, Size size) const {
    const auto known = std::ranges::find_if(names, [this](const std::string& name) {
        return theme_->find(name, probeSide).has_value();
    });
    if (known == names.end())
        return nullptr;
    return std::make_shared<IconImage>(size, [name = *known, theme = theme_](int side) {
        const auto path = theme->find(name, side);
        return path ? pictureIn(*path, *theme, side) : genericPicture(*theme, side);
    });
}

ImageHandle ThemeIcons::genericIcon(Size size) const {
    return std::make_shared<IconImage>(
        size, [theme = theme_](int side) { return genericPicture(*theme, side); });
}

}
