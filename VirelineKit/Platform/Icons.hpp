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

    /// The icon of the file, folder or application at `path`, a generic one if it has none or does
    /// not exist. `key` is an app's bundle identifier, for apps that have no file of their own.
    [[nodiscard]] virtual ImageHandle iconForFile(const std::string& path, const std::string& key,
                                                  Size size) = 0;

    /// A named system image such as "NSTrashEmpty"; null when the system has none.
    [[nodiscard]] virtual ImageHandle namedImage(const std::string& name, Size size) = 0;

    /// A system symbol such as "trash.fill"; null when the system has none.
    [[nodiscard]] virtual ImageHandle
    symbol(const std::string& name, const std::string& accessibilityDescription, Size size) = 0;

    /// Announces that icons look different from now on, as after the user chose another icon theme.
    /// Images handed out before keep their old look. A platform without such a choice never calls.
    [[nodiscard]] virtual Subscription observeChanges(std::function<void()> handler) = 0;
};

}
