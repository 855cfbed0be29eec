#include "Session/AutostartLoginItem.hpp"

#include "GLib/GLibHandles.hpp"
#include "Session/AutostartEntry.hpp"
#include "Text/PlainText.hpp"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

namespace vireline::xdg {
namespace {

/// Entries have some hundred bytes, so this is generous.
constexpr std::size_t maximumBytes = std::size_t{256} * 1024;

bool isEmptyText(const std::string& text) {
    return text.find_first_not_of(" \t\r\n") == std::string::npos;
}

/// Whether the word names an installed program.
bool isInstalled(const std::string& program) {
    return GLibHandle<char, g_free>{g_find_program_in_path(program.c_str())} != nullptr;
}

PlatformError notAnEntry(const FileURL& file) {
    return {EINVAL, file.path() + ": Not a desktop entry"};
}

}

AutostartLoginItem::AutostartLoginItem(FileSystem& fileSystem, Place place)
    : fileSystem_(fileSystem)
    , place_(std::move(place))
    , entry_(place_.configHome.appending("autostart").appending("vireline.desktop")) {}

std::string AutostartLoginItem::ownPath() {
    std::error_code failed;
    auto path = std::filesystem::read_symlink("/proc/self/exe", failed).string();
    if (failed)
        return "vireline";
    // The kernel appends this if the executable was deleted or replaced by a newer one.
    constexpr std::string_view mark = " (deleted)";
    if (path.ends_with(mark) && !std::filesystem::exists(path, failed))
        path.resize(path.size() - mark.size());
    return path;
}

Result<std::string> AutostartLoginItem::read() const {
    auto text = fileSystem_.read(entry_, maximumBytes);
    if (!text && text.error().code == ENOENT)
        return std::string{};
    return text;
}

LoginItemService::Status AutostartLoginItem::status() const {
    const auto text = read();
    if (!text)
        return Status::notFound;
    if (!AutostartEntry::isValid(*text))
        return Status::notRegistered;
    const bool starts = AutostartEntry::isEnabled(*text, place_.desktopNames) &&
                        std::ranges::all_of(AutostartEntry::neededPrograms(*text), isInstalled);
    return starts ? Status::enabled : Status::requiresApproval;
}

Result<void> AutostartLoginItem::registerItem() {
    const auto text = read();
    if (!text)
        return std::unexpected{text.error()};
    if (isEmptyText(*text))
        return write(AutostartEntry::make(place_.programPath));
    auto entry = AutostartEntry::enabled(*text, place_.desktopNames);
    if (entry && !startsUsersOwnProgram(*entry))
        entry = AutostartEntry::withProgram(*entry, place_.programPath);
    return entry ? write(*entry) : std::unexpected{notAnEntry(entry_)};
}

/// Whether the entry starts a program of the user's, such as a script that starts this one.
bool AutostartLoginItem::startsUsersOwnProgram(const std::string& text) const {
    const auto programs = AutostartEntry::neededPrograms(text);
    return std::ranges::all_of(programs, isInstalled) &&
           PlainText::baseName(programs.front()) != PlainText::baseName(place_.programPath);
}

Result<void> AutostartLoginItem::unregisterItem() {
    const auto text = read();
    if (!text)
        return std::unexpected{text.error()};
    if (isEmptyText(*text))
        return {};
    if (!AutostartEntry::isUnedited(*text)) {
        const auto hidden = AutostartEntry::hidden(*text);
        return hidden ? write(*hidden) : std::unexpected{notAnEntry(entry_)};
    }
    if (::unlink(entry_.path().c_str()) == 0 || errno == ENOENT)
        return {};
    const int code = errno;
    return std::unexpected{
        PlatformError{code, entry_.path() + ": " + std::generic_category().message(code)}};
}

Result<void> AutostartLoginItem::write(const std::string& text) {
    if (auto created = fileSystem_.createFolder(entry_.parent()); !created)
        return created;
    return fileSystem_.writeAtomically(entry_, text);
}

}
