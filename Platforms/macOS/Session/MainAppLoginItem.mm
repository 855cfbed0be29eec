#include "Session/MainAppLoginItem.hpp"

#include "Bridge/Attempt.hpp"
#include "Bridge/Conversions.hpp"
#include "Translation/LoginItemStatuses.hpp"

#import <ServiceManagement/ServiceManagement.h>

namespace vireline::macos {
namespace {

static_assert(LoginItemStatuses::notRegistered == SMAppServiceStatusNotRegistered);
static_assert(LoginItemStatuses::enabled == SMAppServiceStatusEnabled);
static_assert(LoginItemStatuses::requiresApproval == SMAppServiceStatusRequiresApproval);

}

LoginItemService::Status MainAppLoginItem::status() const {
    return attemptOr(Status::notFound, "SMAppService status", [] {
        return LoginItemStatuses::fromReported(SMAppService.mainAppService.status);
    });
}

Result<void> MainAppLoginItem::registerItem() {
    return attemptOr(Result<void>{std::unexpected{raisedError()}}, "registerAndReturnError",
                     []() -> Result<void> {
                         NSError* error = nil;
                         if (![SMAppService.mainAppService registerAndReturnError:&error])
                             return std::unexpected{toPlatformError(error)};
                         return {};
                     });
}

Result<void> MainAppLoginItem::unregisterItem() {
    return attemptOr(Result<void>{std::unexpected{raisedError()}}, "unregisterAndReturnError",
                     []() -> Result<void> {
                         NSError* error = nil;
                         if (![SMAppService.mainAppService unregisterAndReturnError:&error])
                             return std::unexpected{toPlatformError(error)};
                         return {};
                     });
}

}
