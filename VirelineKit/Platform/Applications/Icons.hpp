/// Pictures for tiles. The platform decides which pixels an image has at which size.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Foundation/ScopedHandle.hpp"
#include "Presentation/Image.hpp"

#include <functional>
#include <string>

namespace vireline {

class Icons {
public:
    virtual ~Icons() = default;

    /// The icon of the file, folder or application at `path`; a generic one if it has none or does
    /// not exist. `key` is the bundle identifier of an app, for apps that have no file of their
    /// own.
    [[nodiscard]] virtual ImageHandle iconForFile(const std::string& path, const std::string& key,
                                                  Size size) = 0;

    /// A named system image such as "NSTrashEmpty"; null if the system has no such image.
    [[nodiscard]] virtual ImageHandle namedImage(const std::string& name, Size size) = 0;

    /// A system symbol such as "trash.fill"; null if the system has no such symbol.
    [[nodiscard]] virtual ImageHandle
    symbol(const std::string& name, const std::string& accessibilityDescription, Size size) = 0;

    /// The icon that an application names for one of its actions; null if there is none.
    [[nodiscard]] virtual ImageHandle actionIcon(const std::string& /*name*/, Size /*size*/) {
        return nullptr;
    }

    /// Calls `handler` when icons have changed, for example because the user chose another icon
    /// theme. Images returned earlier keep their old look.
    [[nodiscard]] virtual Subscription observeChanges(std::function<void()> handler) = 0;
};

}
