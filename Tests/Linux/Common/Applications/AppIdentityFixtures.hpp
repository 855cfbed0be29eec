/// Windows, processes and entries as found on real desktops.
#pragma once

#include "Applications/Identity/AppIdentity.hpp"

#include <ostream>
#include <string>
#include <vector>

namespace vireline::xdg::fixtures {

// GCC warns about members without a default initializer that a designated initializer list omits.
struct EntryShape {
    std::string id;
    std::string exec;
    std::string wmClass = {};
    bool noDisplay = false;
    bool terminal = false;
};

struct WindowShape {
    std::string instance = {};
    std::string className = {};
    std::string gtkID = {};
    std::string kdeFile = {};
};

struct ProcessShape {
    std::string executable = {};
    std::vector<std::string> arguments = {};
    std::string controlGroup = {};
    std::string flatpakID = {};
};

struct IdentityCase {
    std::string name;
    WindowShape window;
    ProcessShape process;
    std::vector<EntryShape> entries;
    /// The expected bundle identifier of the window's app.
    std::string expected;
    bool hasEntry = true;
};

inline std::ostream& operator<<(std::ostream& out, const IdentityCase& identityCase) {
    return out << identityCase.name;
}

[[nodiscard]] DesktopEntryIndex indexOf(const std::vector<EntryShape>& shapes);
[[nodiscard]] IdentifiedApp identify(const IdentityCase& identityCase);

[[nodiscard]] EntryShape firefox();
[[nodiscard]] ProcessShape firefoxProcess();

[[nodiscard]] std::vector<IdentityCase> toolkitCases();
[[nodiscard]] std::vector<IdentityCase> classCases();
[[nodiscard]] std::vector<IdentityCase> sandboxCases();
[[nodiscard]] std::vector<IdentityCase> wineCases();
[[nodiscard]] std::vector<IdentityCase> webAppCases();
[[nodiscard]] std::vector<IdentityCase> programCases();
[[nodiscard]] std::vector<IdentityCase> trapCases();

}
