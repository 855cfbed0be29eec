#include "Session/AutostartLoginItem.hpp"

#include "Session/AutostartEntry.hpp"

#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

namespace vireline::x11 {
namespace {

/// Entries have some hundred bytes.
constexpr std::size_t maximumBytes = std::size_t{256} * 1024;

bool isBlank(const std::string& text) {
    return text.find_first_not_of(" \t\r\n") == std::string::npos;
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
    const auto path = std::filesystem::read_symlink("/proc/self/exe", failed);
    return failed ? std::string{"vireline"} : path.string();
}

Result<std::optional<std::string>> AutostartLoginItem::read() const {
    auto text = fileSystem_.read(entry_, maximumBytes);
    if (text)
        return *std::move(text);
    if (text.error().code == ENOENT)
        return std::nullopt;
    return std::unexpected{std::move(text.error())};
}

LoginItemService::Status AutostartLoginItem::status() const {
    const auto text = read();
    if (!text)
        return Status::notFound;
    if (!*text || !AutostartEntry::isValid(**text))
        return Status::notRegistered;
    return AutostartEntry::isEnabled(**text, place_.desktopNames) ? Status::enabled
                                                                  : Status::requiresApproval;
}

Result<void> AutostartLoginItem::registerItem() {
    const auto text = read();
    if (!text)
        return std::unexpected{text.error()};
    if (!*text || isBlank(**text))
        return write(AutostartEntry::make(place_.programPath));
    const auto switchedOn = AutostartEntry::enabled(**text, place_.desktopNames);
    return switchedOn ? write(*switchedOn) : std::unexpected{notAnEntry(entry_)};
}

Result<void> AutostartLoginItem::unregisterItem() {
    const auto text = read();
    if (!text)
        return std::unexpected{text.error()};
    if (!*text)
        return {};
    if (!AutostartEntry::isUnedited(**text)) {
        const auto hidden = AutostartEntry::hidden(**text);
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
