/// The part of a surface behind which KWin blurs what it shows.
#pragma once

#include "Connection/Proxies.hpp"
#include "Foundation/NonCopyable.hpp"

#include <QRegion>

namespace vireline::wayland {

class BlurredRegion : private NonCopyable {
public:
    /// The region is in the surface's coordinates, and takes effect when the surface is next
    /// committed. Sent only if it has changed.
    void set(org_kde_kwin_blur_manager& manager, wl_compositor& compositor, wl_surface& surface,
             const QRegion& region);
    /// To be called when the manager is gone.
    void clear();

private:
    QRegion region_;
    Proxy<org_kde_kwin_blur> blur_;
};

}
