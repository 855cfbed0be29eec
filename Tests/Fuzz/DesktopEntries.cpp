/// Fuzzes desktop entries: those of applications, and the program's own in the autostart folder.
#include "Applications/Entries/AppCommand.hpp"
#include "Applications/Entries/DesktopEntry.hpp"
#include "Applications/Entries/DesktopEntryIndex.hpp"
#include "Foundation/Require.hpp"
#include "Fuzz/FuzzTarget.hpp"
#include "Session/AutostartEntry.hpp"
#include "Text/PlainText.hpp"

#include <array>
#include <string>

namespace vireline::xdg {
namespace {

const std::array<std::string, 2> desktopNames{"ubuntu", "GNOME"};

void readApplication(std::string_view text) {
    const auto entry = DesktopEntries::parse(text, "org.example.App", "/app.desktop");
    if (!entry)
        return;
    require(PlainText::isClean(entry->name), "a name is fit to be shown");
    require(entry->hidden || !entry->name.empty(), "an app has a name");
    const DesktopEntryIndex index{{*entry}};
    require((index.find(entry->id) == nullptr) == entry->hidden, "a hidden entry is not installed");
}

/// Enabling and disabling must have the intended effect, whatever else the entry contains.
void switchAutostart(const std::string& text) {
    const auto enabled = AutostartEntry::enabled(text, desktopNames);
    require(!enabled || AutostartEntry::isValid(text), "only valid entries can be enabled");
    if (enabled)
        require(AutostartEntry::isEnabled(*enabled, desktopNames), "an enabled entry is enabled");
    if (const auto hidden = AutostartEntry::hidden(text))
        require(!AutostartEntry::isEnabled(*hidden, desktopNames), "a hidden entry is not enabled");
    static_cast<void>(AutostartEntry::isUnedited(text));
}

}
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = vireline::fuzz::text(data, size);
    vireline::xdg::readApplication(text);
    vireline::xdg::switchAutostart(std::string{text});
    return 0;
}
