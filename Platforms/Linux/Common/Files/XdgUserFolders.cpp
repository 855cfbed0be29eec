#include "Files/XdgUserFolders.hpp"

#include "Files/Folders.hpp"

#include <glib.h>
#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <string_view>

namespace vireline::xdg {
namespace {

std::optional<FileURL> absolutePath(const char* text) {
    if (text == nullptr || *text != '/')
        return std::nullopt;
    return FileURL::fromPath(text);
}

FileURL homeFolder() {
    if (const auto home = absolutePath(std::getenv("HOME")))
        return *home;
    const passwd* entry = ::getpwuid(::geteuid());
    return absolutePath(entry == nullptr ? nullptr : entry->pw_dir)
        .value_or(FileURL::fromPath("/"));
}

}

XdgUserFolders::XdgUserFolders()
    : home_(homeFolder())
    , dataHome_(
          absolutePath(std::getenv("XDG_DATA_HOME")).value_or(home_.appending(".local/share")))
    , configHome_(
          absolutePath(std::getenv("XDG_CONFIG_HOME")).value_or(home_.appending(".config"))) {}

std::optional<FileURL> XdgUserFolders::downloads() const {
    auto named = absolutePath(g_get_user_special_dir(G_USER_DIRECTORY_DOWNLOAD));
    if (named && *named != home_ && isFolder(*named))
        return named;
    const FileURL usual = home_.appending("Downloads");
    return isFolder(usual) ? std::optional{usual} : std::nullopt;
}

}
