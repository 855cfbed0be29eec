#include "Icons/WorkspaceIcons.hpp"

#include "Bridge/Attempt.hpp"
#include "Bridge/Conversions.hpp"
#include "Icons/MacImage.hpp"

namespace vireline::macos {
namespace {

/// Copies the image, since the system shares it with other users.
ImageHandle sized(NSImage* image, Size size) {
    NSImage* const own = [image copy];
    if (own == nil)
        return nullptr;
    own.size = toCGSize(size);
    return std::make_shared<MacImage>(own, size);
}

}

ImageHandle WorkspaceIcons::iconForFile(const std::string& path, const std::string&, Size size) {
    return attemptOr(ImageHandle{}, "iconForFile", [&] {
        return sized([NSWorkspace.sharedWorkspace iconForFile:toNSString(path)], size);
    });
}

ImageHandle WorkspaceIcons::namedImage(const std::string& name, Size size) {
    // If the system raises an exception, the image exists but shows nothing.
    const ImageHandle empty = std::make_shared<MacImage>(nil, size);
    return attemptOr(empty, "imageNamed",
                     [&] { return sized([NSImage imageNamed:toNSString(name)], size); });
}

ImageHandle WorkspaceIcons::symbol(const std::string& name,
                                   const std::string& accessibilityDescription, Size size) {
    return attemptOr(ImageHandle{}, "imageWithSystemSymbolName", [&] {
        return sized([NSImage imageWithSystemSymbolName:toNSString(name)
                               accessibilityDescription:toNSString(accessibilityDescription)],
                     size);
    });
}

}
