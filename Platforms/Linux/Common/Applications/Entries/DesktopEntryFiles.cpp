#include "Applications/Entries/DesktopEntryFiles.hpp"

#include "Files/BoundedFile.hpp"
#include "Text/PlainText.hpp"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <system_error>
#include <utility>

namespace vireline::xdg::DesktopEntryFiles {
namespace {

namespace fs = std::filesystem;

/// Collects the entry files in a folder and its subfolders.
class Walk {
public:
    explicit Walk(const FileURL& root) : root_(root.path()) {
        enter(root_, 0);
        // Directory order is arbitrary; sorting makes it deterministic which of two files with the
        // same ID wins.
        std::ranges::sort(found_);
    }

    /// Paths relative to the root folder.
    [[nodiscard]] const std::vector<std::string>& found() const noexcept { return found_; }

private:
    void enter(const fs::path& folder, int depth) {
        struct stat status{};
        if (stat(folder.c_str(), &status) != 0 || !S_ISDIR(status.st_mode) ||
            !visited_.emplace(status.st_dev, status.st_ino).second)
            return;
        std::error_code error;
        fs::directory_iterator item{folder, fs::directory_options::skip_permission_denied, error};
        for (; !error && item != fs::directory_iterator{}; item.increment(error)) {
            if (found_.size() >= maximumFiles)
                return;
            take(*item, depth);
        }
    }

    void take(const fs::directory_entry& item, int depth) {
        const std::string& path = item.path().native();
        if (path.ends_with(DesktopEntries::extension)) {
            std::string relative = path.substr(root_.native().size() + 1);
            if (PlainText::isClean(relative) && relative != DesktopEntries::extension)
                found_.push_back(std::move(relative));
            return;
        }
        std::error_code error;
        if (depth < maximumDepth && item.is_directory(error) && !error)
            enter(item.path(), depth + 1);
    }

    fs::path root_;
    std::set<std::pair<dev_t, ino_t>> visited_;
    std::vector<std::string> found_;
};

}

std::optional<DesktopEntry> read(const std::string& path, std::string id, const Skipped& skipped) {
    std::optional<DesktopEntry> entry;
    if (const auto text = BoundedFile::read(path, maximumBytes))
        entry = DesktopEntries::parse(*text, std::move(id), path);
    if (!entry && access(path.c_str(), F_OK) == 0)
        skipped(path);
    return entry;
}

std::vector<DesktopEntry> scan(std::span<const FileURL> folders, const Skipped& skipped) {
    std::vector<DesktopEntry> entries;
    for (const auto& folder : folders) {
        const Walk walk{folder};
        for (const auto& relative : walk.found()) {
            auto entry =
                read(folder.appending(relative).path(), DesktopEntries::idFor(relative), skipped);
            if (entry)
                entries.push_back(std::move(*entry));
        }
    }
    return entries;
}

std::string idOf(const std::string& path, std::span<const FileURL> folders) {
    for (const auto& folder : folders) {
        const std::string prefix = folder.path() + '/';
        if (path.starts_with(prefix))
            return DesktopEntries::idFor(std::string_view{path}.substr(prefix.size()));
    }
    return DesktopEntries::idFor(PlainText::baseName(path));
}

}
