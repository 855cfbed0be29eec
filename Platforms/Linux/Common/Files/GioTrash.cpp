#include "Files/GioTrash.hpp"

#include "GLib/GLibHandles.hpp"
#include "GLib/Worker.hpp"

#include <gio/gio.h>

#include <string>
#include <utility>

namespace vireline::xdg {
namespace {

Result<void> move(const std::string& path) {
    const GObjectHandle<GFile> file{g_file_new_for_path(path.c_str())};
    GError* error = nullptr;
    if (g_file_trash(file.get(), nullptr, &error) != 0)
        return {};
    const GErrorHandle owned{error};
    return std::unexpected{PlatformError{owned->code, owned->message}};
}

}

// Even creating the GFile happens in the worker, because it may block if the path is on a network
// mount.
void GioTrash::moveToTrash(const FileURL& url, std::function<void(Result<void>)> done) {
    runInWorker<Result<void>>([path = url.path()] { return move(path); }, std::move(done));
}

}
