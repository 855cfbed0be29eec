#include "Applications/Launching/Launcher.hpp"

#include "Applications/Launching/LaunchContext.hpp"
#include "GLib/Worker.hpp"

#include <gio/gdesktopappinfo.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#include <utility>

namespace vireline::xdg {
namespace {

using FailureHandler = std::function<void(const PlatformError&)>;
using Children = std::vector<GPid>;
/// Shared with the worker, because std::function requires copyable captures.
using SharedContext = std::shared_ptr<GAppLaunchContext>;

PlatformError failure(GError* raw) {
    const GErrorHandle error{raw};
    if (!error)
        return {.code = EIO, .description = "unknown error"};
    return {.code = error->code, .description = error->message};
}

PlatformError nothingToStart() {
    return {.code = ENOENT, .description = "nothing to start"};
}

/// Runs in the child before exec: a new session, so that the program survives this one, even if
/// this one is ended from its terminal.
void startSession(gpointer) {
    setsid();
}

void noteChild(GDesktopAppInfo*, GPid child, gpointer children) {
    static_cast<Children*>(children)->push_back(child);
}

Result<Children> start(const std::string& path, GAppLaunchContext* context) {
    const GObjectHandle<GDesktopAppInfo> info{g_desktop_app_info_new_from_filename(path.c_str())};
    if (!info)
        return std::unexpected(nothingToStart());
    Children children;
    GError* error = nullptr;
    // NOLINTNEXTLINE(clang-analyzer-optin.core.EnumCastOutOfRange): C's way with flags
    const auto flags = static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_DO_NOT_REAP_CHILD);
    if (g_desktop_app_info_launch_uris_as_manager(info.get(), nullptr, context, flags, startSession,
                                                  nullptr, noteChild, &children, &error) == FALSE)
        return std::unexpected(failure(error));
    return children;
}

Result<void> performAction(const std::string& path, const std::string& actionID,
                           GAppLaunchContext* context) {
    const GObjectHandle<GDesktopAppInfo> info{g_desktop_app_info_new_from_filename(path.c_str())};
    // GLib requires that the entry has the action.
    if (!info ||
        g_strv_contains(g_desktop_app_info_list_actions(info.get()), actionID.c_str()) == FALSE)
        return std::unexpected(nothingToStart());
    g_desktop_app_info_launch_action(info.get(), actionID.c_str(), context);
    return {};
}

Result<void> openWith(const std::string& entryPath, const std::string& uri,
                      GAppLaunchContext* context) {
    const GObjectHandle<GDesktopAppInfo> info{
        g_desktop_app_info_new_from_filename(entryPath.c_str())};
    if (!info)
        return std::unexpected(nothingToStart());
    std::string address = uri;
    GList uris{.data = address.data(), .next = nullptr, .prev = nullptr};
    GError* error = nullptr;
    if (g_app_info_launch_uris(G_APP_INFO(info.get()), &uris, context, &error) == FALSE)
        return std::unexpected(failure(error));
    return {};
}

bool isFolder(const std::string& uri) {
    const GLibHandle<char, g_free> path{g_filename_from_uri(uri.c_str(), nullptr, nullptr)};
    return path && g_file_test(path.get(), G_FILE_TEST_IS_DIR) != FALSE;
}

Result<void> openFirst(const std::vector<std::string>& uris, const std::string& fileManagerPath,
                       GAppLaunchContext* context) {
    Result<void> outcome;
    for (const auto& uri : uris) {
        GError* error = nullptr;
        if (g_app_info_launch_default_for_uri(uri.c_str(), context, &error) != FALSE)
            return {};
        outcome = std::unexpected(failure(error));
    }
    const bool hasFallback = !fileManagerPath.empty() && isFolder(uris.back());
    return hasFallback ? openWith(fileManagerPath, uris.back(), context) : outcome;
}

/// Waits for the child's exit, which also reaps it.
void watch(GPid child, FailureHandler onFailure) {
    auto handler = std::make_unique<FailureHandler>(std::move(onFailure));
    const auto ended = [](GPid process, int status, gpointer data) {
        GError* error = nullptr;
        if (g_spawn_check_wait_status(status, &error) == FALSE)
            (*static_cast<const FailureHandler*>(data))(failure(error));
        g_spawn_close_pid(process);
    };
    const auto end = [](gpointer data) {
        std::unique_ptr<FailureHandler>{static_cast<FailureHandler*>(data)}.reset();
    };
    g_child_watch_add_full(G_PRIORITY_DEFAULT, child, ended, handler.release(), end);
}

}

void Launcher::launch(const DesktopEntry& entry, const LaunchPass& pass, FailureHandler onFailure) {
    const FailureHandler guarded = lifetime_.guard(std::move(onFailure));
    const PlatformError notActivated{.code = EIO, .description = "activation failed"};
    const SharedContext context{
        LaunchContext::make(pass, [guarded, notActivated] { guarded(notActivated); })};
    runInWorker<Result<Children>>(
        [path = entry.path, context] { return start(path, context.get()); },
        [guarded](const Result<Children>& outcome) {
            if (!outcome) {
                guarded(outcome.error());
                return;
            }
            for (const GPid child : *outcome)
                watch(child, guarded);
        });
}

void Launcher::perform(const DesktopEntry& entry, const std::string& actionID,
                       const LaunchPass& pass, FailureHandler onFailure) {
    const FailureHandler guarded = lifetime_.guard(std::move(onFailure));
    const PlatformError notStarted{.code = EIO, .description = "the action was not started"};
    const SharedContext context{
        LaunchContext::make(pass, [guarded, notStarted] { guarded(notStarted); })};
    runInWorker<Result<void>>([path = entry.path, actionID,
                               context] { return performAction(path, actionID, context.get()); },
                              [guarded](const Result<void>& outcome) {
                                  if (!outcome)
                                      guarded(outcome.error());
                              });
}

void Launcher::open(std::vector<std::string> uris, std::string fileManagerPath, Outcome done) {
    const SharedContext context{LaunchContext::make({}, [] {})};
    runInWorker<Result<void>>([uris = std::move(uris), path = std::move(fileManagerPath),
                               context] { return openFirst(uris, path, context.get()); },
                              lifetime_.guard(std::move(done)));
}

}
