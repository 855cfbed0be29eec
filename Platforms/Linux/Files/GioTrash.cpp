#include "Files/GioTrash.hpp"

#include "GLib/GLibHandles.hpp"

#include <gio/gio.h>

#include <memory>

namespace vireline::x11 {
namespace {

using Completion = std::function<void(Result<void>)>;

void finish(GObject* source, GAsyncResult* result, gpointer data) {
    const std::unique_ptr<Completion> done{static_cast<Completion*>(data)};
    GError* error = nullptr;
    if (g_file_trash_finish(G_FILE(source), result, &error) != 0) {
        (*done)({});
        return;
    }
    const GErrorHandle owned{error};
    (*done)(std::unexpected{PlatformError{owned->code, owned->message}});
}

}

void GioTrash::moveToTrash(const FileURL& url, Completion done) {
    const GObjectHandle<GFile> file{g_file_new_for_path(url.path().c_str())};
    auto completion = std::make_unique<Completion>(std::move(done));
    g_file_trash_async(file.get(), G_PRIORITY_DEFAULT, nullptr, finish, completion.release());
}

}
