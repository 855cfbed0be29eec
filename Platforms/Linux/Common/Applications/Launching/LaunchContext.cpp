#include "Applications/Launching/LaunchContext.hpp"

#include "Applications/Launching/LaunchEnvironment.hpp"

#include <memory>

namespace vireline::xdg::LaunchContext {
namespace {

constexpr const char* startupIDKey = "vireline-startup-id";

char* startupNotifyID(GAppLaunchContext* context, GAppInfo*, GList*) {
    return g_strdup(static_cast<const char*>(g_object_get_data(G_OBJECT(context), startupIDKey)));
}

GType contextType() {
    static const GType type = g_type_register_static_simple(
        G_TYPE_APP_LAUNCH_CONTEXT, "VirelineLaunchContext", sizeof(GAppLaunchContextClass),
        [](gpointer classData, gpointer) {
            static_cast<GAppLaunchContextClass*>(classData)->get_startup_notify_id =
                startupNotifyID;
        },
        sizeof(GAppLaunchContext), nullptr, G_TYPE_FLAG_NONE);
    return type;
}

using Callback = std::function<void()>;

void launchFailed(GAppLaunchContext*, const char*, gpointer callback) {
    auto copy = std::make_unique<Callback>(*static_cast<const Callback*>(callback));
    const auto call = [](gpointer data) -> gboolean {
        (*static_cast<const Callback*>(data))();
        return G_SOURCE_REMOVE;
    };
    const auto end = [](gpointer data) {
        std::unique_ptr<Callback>{static_cast<Callback*>(data)}.reset();
    };
    g_main_context_invoke_full(nullptr, G_PRIORITY_DEFAULT, call, copy.release(), end);
}

}

GObjectHandle<GAppLaunchContext> make(const LaunchPass& pass, std::function<void()> onFailed) {
    GObjectHandle<GAppLaunchContext> context{
        static_cast<GAppLaunchContext*>(g_object_new(contextType(), nullptr))};
    for (const auto& [name, value] : LaunchEnvironment::changes()) {
        if (value)
            g_app_launch_context_setenv(context.get(), name.c_str(), value->c_str());
        else
            g_app_launch_context_unsetenv(context.get(), name.c_str());
    }
    if (!pass.startupID.empty()) {
        // GIO itself passes the ID only to entries that ask for it.
        g_app_launch_context_setenv(context.get(), "DESKTOP_STARTUP_ID", pass.startupID.c_str());
        g_object_set_data_full(G_OBJECT(context.get()), startupIDKey,
                               g_strdup(pass.startupID.c_str()), g_free);
    }
    if (!pass.activationToken.empty()) {
        g_app_launch_context_setenv(context.get(), "XDG_ACTIVATION_TOKEN",
                                    pass.activationToken.c_str());
    }
    auto callback = std::make_unique<Callback>(std::move(onFailed));
    const auto end = [](gpointer data, GClosure*) {
        std::unique_ptr<Callback>{static_cast<Callback*>(data)}.reset();
    };
    g_signal_connect_data(context.get(), "launch-failed", G_CALLBACK(launchFailed),
                          callback.release(), end, G_CONNECT_DEFAULT);
    return context;
}

}
