#include "Panels/Picture/BlurredRegion.hpp"

#include <blur-client-protocol.h>
#include <wayland-client.h>

namespace vireline::wayland {

void BlurredRegion::set(org_kde_kwin_blur_manager& manager, wl_compositor& compositor,
                        wl_surface& surface, const QRegion& region) {
    if (region == region_ && blur_)
        return;
    region_ = region;
    blur_.reset(org_kde_kwin_blur_manager_create(&manager, &surface));
    const Proxy<wl_region> sent{wl_compositor_create_region(&compositor)};
    for (const QRect& rect : region)
        wl_region_add(sent.get(), rect.x(), rect.y(), rect.width(), rect.height());
    org_kde_kwin_blur_set_region(blur_.get(), sent.get());
    org_kde_kwin_blur_commit(blur_.get());
}

void BlurredRegion::clear() {
    region_ = {};
    blur_.reset();
}

}
